#include "Application/NotesView.h"

#include <QtCore/QSignalBlocker>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSplitter>

#include "Application/PresentIfAny.h"

namespace {

QString shownTitle(const Note &note) {
    return note.title.isEmpty() ? NotesView::tr("Untitled") : note.title;
}

}  // namespace

NotesView::NotesView(QWidget *parent)
    : QWidget(parent),
      m_list(new QListWidget),
      m_title(new QLineEdit),
      m_text(new QPlainTextEdit),
      m_addButton(new QPushButton(tr("New &Note"))),
      m_removeButton(new QPushButton(tr("&Delete Note"))) {
    m_list->setAccessibleName(tr("Notes"));
    m_title->setAccessibleName(tr("Title"));
    m_title->setPlaceholderText(tr("Title"));
    m_text->setAccessibleName(tr("Text"));
    m_pause.setSingleShot(true);
    m_pause.setInterval(500);

    auto *listSide = new QWidget;
    auto *listLayout = new QVBoxLayout(listSide);
    listLayout->setContentsMargins(0, 0, 0, 0);
    listLayout->addWidget(m_list);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_addButton);
    buttons->addWidget(m_removeButton);
    listLayout->addLayout(buttons);

    auto *noteSide = new QWidget;
    auto *noteLayout = new QVBoxLayout(noteSide);
    noteLayout->setContentsMargins(0, 0, 0, 0);
    noteLayout->addWidget(m_title);
    noteLayout->addWidget(m_text);

    auto *splitter = new QSplitter;
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(listSide);
    splitter->addWidget(noteSide);
    splitter->setStretchFactor(1, 2);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);

    connect(&m_pause, &QTimer::timeout, this, &NotesView::commit);
    connect(m_list, &QListWidget::currentRowChanged, this, &NotesView::showNote);
    connect(m_title, &QLineEdit::textEdited, this, &NotesView::noteEdited);
    connect(m_text, &QPlainTextEdit::textChanged, this, &NotesView::noteEdited);
    connect(m_addButton, &QPushButton::clicked, this, &NotesView::addNote);
    connect(m_removeButton, &QPushButton::clicked, this, &NotesView::removeNote);
    showNotes();
}

NotesView::~NotesView() {
    commit();
}

void NotesView::setDatabase(const std::shared_ptr<NoteDatabase> &database) {
    commit();
    if (m_database) {
        disconnect(m_database.get(), nullptr, this, nullptr);
    }
    m_database = database && database->isOpen() ? database : nullptr;
    if (m_database) {
        connect(m_database.get(), &NoteDatabase::notesChanged, this, &NotesView::showNotes);
    }
    m_row = -1;
    showNotes();
}

void NotesView::showNotes() {
    const int row = m_row;
    m_notes = m_database ? m_database->notes() : QList<Note>();
    {
        const QSignalBlocker blocker(m_list);
        m_list->clear();
        for (const Note &note : std::as_const(m_notes)) {
            m_list->addItem(shownTitle(note));
        }
        m_list->setCurrentRow(
            qBound(m_notes.isEmpty() ? -1 : 0, row, static_cast<int>(m_notes.size()) - 1));
    }
    m_addButton->setEnabled(m_database != nullptr);
    if (!m_pause.isActive()) {
        showNote(m_list->currentRow());
    }
}

void NotesView::showNote(int row) {
    commit();
    m_row = row;
    const bool isNote = row >= 0 && row < m_notes.size();
    const Note note = isNote ? m_notes.at(row) : Note();
    const QSignalBlocker blocker(m_text);
    if (m_title->text() != note.title) {
        m_title->setText(note.title);
    }
    if (m_text->toPlainText() != note.text) {
        m_text->setPlainText(note.text);
    }
    m_title->setEnabled(isNote);
    m_text->setEnabled(isNote);
    m_removeButton->setEnabled(isNote);
}

void NotesView::noteEdited() {
    if (m_row >= 0) {
        m_pause.start();
    }
}

void NotesView::commit() {
    if (!m_pause.isActive()) {
        return;
    }
    m_pause.stop();
    Note note = m_notes.at(m_row);
    note.title = m_title->text();
    note.text = m_text->toPlainText();
    m_list->item(m_row)->setText(shownTitle(note));
    presentIfAny(m_database->saveNote(note));
}

void NotesView::addNote() {
    commit();
    Note note;
    note.title = tr("New Note");
    if (const auto error = m_database->saveNote(note)) {
        presentIfAny(error);
        return;
    }
    m_list->setCurrentRow(m_list->count() - 1);
    m_title->setFocus();
    m_title->selectAll();
}

void NotesView::removeNote() {
    commit();
    presentIfAny(m_database->removeNote(m_notes.at(m_row).UUID));
}
