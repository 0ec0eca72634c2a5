#include "Application/FirstStartDialog.h"

#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QVBoxLayout>

#include "Platform/Interface/HeightKeeper.h"
#include "Platform/Interface/Mnemonics.h"
#include "Platform/Interface/PlainText.h"

namespace {

constexpr qreal SizeOfTitle = 1.5;

enum Place { Later, Folder, WebDAV, OtherComputer };
enum Beginning { Empty, Examples, OtherDatabases };

struct Answer {
    int id;
    const char *name;
    QString text;
};

QGroupBox *makeGroup(const QString &question, const QList<Answer> &answers, QButtonGroup &group) {
    auto *box = new QGroupBox(question);
    auto *layout = new QVBoxLayout(box);
    for (const Answer &answer : answers) {
        auto *button = new QRadioButton(answer.text);
        button->setObjectName(QLatin1StringView(answer.name));
        group.addButton(button, answer.id);
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

FirstStartDialog::FirstStartDialog(QWidget *parent)
    : QDialog(parent), m_places(new QButtonGroup(this)), m_beginnings(new QButtonGroup(this)) {
    const QString title = tr("Welcome to Velmora");
    setWindowTitle(title);
    new HeightKeeper(this);
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
    return makeGroup(tr("Where should your notes be kept in sync?"),
                     {{Later, "laterButton", tr("Decide later")},
                      {Folder, "folderButton", tr("In a folder that your computers share")},
                      {WebDAV, "webDAVButton", tr("On a WebDAV server")},
                      {OtherComputer, "otherComputerButton", tr("On another computer")}},
                     *m_places);
}

QGroupBox *FirstStartDialog::makeBeginnings() {
    return makeGroup(
        tr("How do you want to begin?"),
        {{Empty, "emptyButton", tr("Without notes")},
         {Examples, "examplesButton", tr("With examples")},
         {OtherDatabases, "otherDatabasesButton", tr("With databases from another computer")}},
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
    using Kind = LocationAdding::Kind;
    FirstStart start;
    const bool imports = m_beginnings->checkedId() == OtherDatabases;
    switch (m_places->checkedId()) {
        case Folder:
            start.location = imports ? Kind::ExistingFolder : Kind::NewFolder;
            break;
        case WebDAV:
            start.location = Kind::WebDAV;
            break;
        case OtherComputer:
            start.location = Kind::DirectConnection;
            break;
        default:
            break;
    }
    if (imports) {
        start.next = LocationAdding::Next::DatabasesToImport;
    }
    if (m_beginnings->checkedId() == Examples) {
        start.contents = FirstContents::Welcome;
    }
    return start;
}

FirstStart FirstStartDialog::ask() {
    FirstStartDialog dialog;
    return dialog.exec() == Accepted ? dialog.choice() : FirstStart();
}

void FirstStartDialog::showEvent(QShowEvent *event) {
    Mnemonics::assign(*this);
    QDialog::showEvent(event);
}
