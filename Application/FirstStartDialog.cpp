#include "Application/FirstStartDialog.h"

#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QVBoxLayout>

#include "Application/Guide.h"
#include "Platform/Interface/HeightKeeper.h"
#include "Platform/Interface/Mnemonics.h"
#include "Platform/Interface/PlainText.h"

namespace {

constexpr qreal SizeOfTitle = 1.5;

/// The id of the button of the first offer is the next one.
constexpr int Later = 0;
enum Beginning { Empty, Examples, OtherDatabases };

struct LabeledChoice {
    int id;
    QString name;
    QString text;
};

/// Returns a font that leaves everything but the weight to the parent.
QFont fontOfWeight(QFont::Weight weight) {
    QFont font;
    font.setWeight(weight);
    return font;
}

QGroupBox *makeGroup(const QString &question, const QList<LabeledChoice> &choices,
                     QButtonGroup &group) {
    auto *box = new QGroupBox(question);
    box->setFont(fontOfWeight(QFont::Bold));
    auto *layout = new QVBoxLayout(box);
    for (const LabeledChoice &choice : choices) {
        auto *button = new QRadioButton(choice.text);
        button->setObjectName(choice.name + QStringLiteral("Button"));
        button->setFont(fontOfWeight(QFont::Normal));
        group.addButton(button, choice.id);
        layout->addWidget(button);
    }
    group.buttons().constFirst()->setChecked(true);
    return box;
}

QLabel *makeTitle(const QString &text) {
    QLabel *title = PlainText::label(text);
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * SizeOfTitle);
    font.setBold(true);
    title->setFont(font);
    return title;
}

}  // namespace

FirstStartDialog::FirstStartDialog(QList<LocationOffer> offers, QWidget *parent)
    : QDialog(parent),
      m_offers(std::move(offers)),
      m_places(new QButtonGroup(this)),
      m_beginnings(new QButtonGroup(this)) {
    const QString title = tr("Welcome to Velmora");
    setWindowTitle(title);
    new HeightKeeper(this);
    Guide::addShortcut(this, Guide::BeginPage);
    auto *buttons = new QDialogButtonBox;
    buttons->addButton(tr("Start"), QDialogButtonBox::AcceptRole)->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(12);
    layout->addWidget(makeTitle(title));
    layout->addWidget(makePlaces());
    layout->addWidget(makeBeginnings());
    layout->addWidget(PlainText::label(tr("You can change this later in Sync Preferences.")));
    layout->addStretch();
    layout->addWidget(buttons);
    connect(m_places, &QButtonGroup::idToggled, this, &FirstStartDialog::updateImport);
    updateImport();
}

QGroupBox *FirstStartDialog::makePlaces() {
    QList<LabeledChoice> choices{{Later, QStringLiteral("later"), tr("Decide later")}};
    for (const LocationOffer &offer : m_offers) {
        choices.append({static_cast<int>(choices.size()), offer.kind, offer.place});
    }
    return makeGroup(tr("Where should your notes be kept in sync?"), choices, *m_places);
}

QGroupBox *FirstStartDialog::makeBeginnings() {
    return makeGroup(tr("How do you want to begin?"),
                     {{Empty, QStringLiteral("empty"), tr("Without notes")},
                      {Examples, QStringLiteral("examples"), tr("With examples")},
                      {OtherDatabases, QStringLiteral("otherDatabases"),
                       tr("With databases from another computer")}},
                     *m_beginnings);
}

void FirstStartDialog::updateImport() {
    const bool hasPlace = m_places->checkedId() != Later;
    QAbstractButton *import = m_beginnings->button(OtherDatabases);
    import->setEnabled(hasPlace);
    import->setToolTip(hasPlace ? QString() : tr("Choose first where these databases are."));
    import->setAccessibleDescription(import->toolTip());
    if (!hasPlace && import->isChecked()) {
        m_beginnings->button(Empty)->setChecked(true);
    }
}

FirstStart FirstStartDialog::choice() const {
    FirstStart start;
    if (const int place = m_places->checkedId(); place != Later) {
        start.location = m_offers.at(place - 1).kind;
    }
    if (m_beginnings->checkedId() == OtherDatabases) {
        start.next = LocationAdding::Next::DatabasesToImport;
    }
    if (m_beginnings->checkedId() == Examples) {
        start.contents = FirstContents::Welcome;
    }
    return start;
}

FirstStart FirstStartDialog::ask(const QList<LocationOffer> &offers) {
    FirstStartDialog dialog(offers);
    return dialog.exec() == Accepted ? dialog.choice() : FirstStart();
}

void FirstStartDialog::showEvent(QShowEvent *event) {
    Mnemonics::assign(*this);
    QDialog::showEvent(event);
}
