#include "Application/RemovalDialog.h"

#include <QtGui/QGuiApplication>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>
#include <utility>

#include "Application/CountText.h"
#include "Application/WindowSize.h"
#include "Platform/Interface/HeightKeeper.h"
#include "Platform/Interface/PlainText.h"

namespace {

/// More are only counted.
constexpr qsizetype MostTitles = 10000;

QString heading(const RemovalQuestion &question) {
    return translateCount("RemovalDialog",
                          "The synchronization with “%1” would remove %2 of the %3 "
                          "notes in “%4”.",
                          nullptr, question.total)
        .arg(question.location, QString::number(question.titles.size()),
             QString::number(question.total), question.database);
}

/// Returns a line for each note, each of a bounded length.
QStringList notesOf(const RemovalQuestion &question) {
    QStringList lines;
    for (const QString &title : question.titles.first(qMin(question.titles.size(), MostTitles))) {
        const QString line = PlainText::message(title).simplified();
        lines.append(line.isEmpty() ? RemovalDialog::tr("Untitled") : line);
    }
    if (const qsizetype more = question.titles.size() - MostTitles; more > 0) {
        lines.append(translateCount("RemovalDialog", "… and %1 more", nullptr, more).arg(more));
    }
    return lines;
}

}  // namespace

QStringList RemovalDialog::notes(const RemovalQuestion &question) {
    QStringList notes = notesOf(question);
    for (QString &note : notes) {
        note.prepend(QStringLiteral("    "));
    }
    return notes;
}

QStringList RemovalDialog::lines(const RemovalQuestion &question) {
    return QStringList{heading(question)}
           << notes(question)
           << tr("Nothing has been changed yet. “velmora sync --removals keep” keeps these "
                 "notes, also on your other computers; “--removals remove” removes them.");
}

RemovalDialog::RemovalDialog(const RemovalQuestion &question,
                             std::function<void(RemovalDecision)> handler, QWidget *parent)
    : QDialog(parent), m_handler(std::move(handler)) {
    setWindowTitle(QGuiApplication::applicationDisplayName());
    setWindowModality(Qt::WindowModal);
    setAttribute(Qt::WA_DeleteOnClose);
    resize(WindowSize::of(*this, 80, 28));
    new HeightKeeper(this);

    auto *title = PlainText::label(heading(question));
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    auto *list = new QListWidget;
    list->setAccessibleName(tr("Notes that would be removed"));
    list->setUniformItemSizes(true);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const QStringList notes = notesOf(question);
    for (const QString &note : notes) {
        (new QListWidgetItem(note, list))->setToolTip(PlainText::toolTip(note));
    }

    auto *buttons = new QDialogButtonBox;
    auto *keep = buttons->addButton(tr("&Keep the Notes"), QDialogButtonBox::AcceptRole);
    auto *remove = buttons->addButton(tr("&Remove Them"), QDialogButtonBox::DestructiveRole);
    auto *later = buttons->addButton(tr("Decide &Later"), QDialogButtonBox::RejectRole);
    keep->setDefault(true);
    keep->setFocus();
    connect(keep, &QPushButton::clicked, this, [this] { decide(RemovalDecision::Keep); });
    connect(remove, &QPushButton::clicked, this, [this] { decide(RemovalDecision::Remove); });
    connect(later, &QPushButton::clicked, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(title);
    layout->addWidget(PlainText::label(
        tr("Nothing has been changed yet. If you keep the notes, they also return on your other "
           "computers. If you remove them, you find them in “Deleted Notes” for a while.")));
    layout->addWidget(list, 1);
    layout->addWidget(buttons);
}

RemovalDialog::~RemovalDialog() {
    callHandler();
}

void RemovalDialog::decide(RemovalDecision decision) {
    m_decision = decision;
    accept();
}

void RemovalDialog::done(int result) {
    QDialog::done(result);
    callHandler();
}

void RemovalDialog::callHandler() {
    if (const auto handler = std::exchange(m_handler, nullptr)) {
        handler(m_decision);
    }
}
