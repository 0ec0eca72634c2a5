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
    m_note = {};
    m_isEdited = false;
    showNotes();
}

void NotesView::showNotes() {
    const Expected<QList<Note>> notes = m_database ? m_database->notes() : QList<Note>();
    m_notes = notes.value_or(QList<Note>());
    const int row = rowOf(m_note);
    {
        const QSignalBlocker blocker(m_list);
        m_list->clear();
        for (const Note &note : std::as_const(m_notes)) {
            m_list->addItem(shownTitle(note));
        }
        const int nearest = qBound(m_notes.isEmpty() ? -1 : 0, m_row, m_list->count() - 1);
        m_list->setCurrentRow(row >= 0 || m_isEdited ? row : nearest);
    }
    m_addButton->setEnabled(m_database != nullptr);
    // What is being typed stays what it was typed over, whatever has come meanwhile.
    if (!m_isEdited) {
        showNote(m_list->currentRow());
    }
    if (!notes) {
        NSApp()->presentError(notes.error());
    }
}

void NotesView::showNote(int row) {
    const Note wanted = row >= 0 ? m_notes.at(row) : Note();
    commit();
    if (m_isEdited) {
        // It could not be saved, and nobody leaves it before it is.
        const QSignalBlocker blocker(m_list);
        m_list->setCurrentRow(rowOf(m_note));
        return;
    }
    // Saving may have moved the rows.
    m_row = rowOf(wanted);
    const bool isNote = m_row >= 0;
    m_note = isNote ? m_notes.at(m_row) : Note();
    {
        const QSignalBlocker blocker(m_list);
        m_list->setCurrentRow(m_row);
    }
    const QSignalBlocker blocker(m_text);
    if (m_title->text() != m_note.title) {
        m_title->setText(m_note.title);
    }
    if (m_text->toPlainText() != m_note.text) {
        m_text->setPlainText(m_note.text);
    }
    m_title->setEnabled(isNote);
    m_text->setEnabled(isNote);
    m_removeButton->setEnabled(isNote);
}

void NotesView::noteEdited() {
    if (!m_note.UUID.isEmpty()) {
        m_isEdited = true;
        m_pause.start();
    }
}

int NotesView::rowOf(const Note &note) const {
    const auto found = std::find_if(m_notes.begin(), m_notes.end(),
                                    [&](const Note &each) { return each.UUID == note.UUID; });
    return found == m_notes.end() ? -1 : static_cast<int>(found - m_notes.begin());
}

void NotesView::commit() {
    m_pause.stop();
    if (!m_isEdited) {
        return;
    }
    m_isEdited = false;
    Note note = m_note;
    note.title = m_title->text();
    note.text = m_text->toPlainText();
    note.modified = QDateTime::currentDateTime();
    const Expected<void> saved = m_database->saveNote(note);
    // What could not be saved is tried again with what is typed next, or where another is chosen.
    m_isEdited = !saved;
    presentIfAny(saved);
}

void NotesView::addNote() {
    commit();
    Note note;
    note.title = tr("New Note");
    note.modified = QDateTime::currentDateTime();
    if (const Expected<void> saved = m_database->saveNote(note); !saved) {
        presentIfAny(saved);
        return;
    }
    m_list->setCurrentRow(m_list->count() - 1);
    m_title->setFocus();
    m_title->selectAll();
}

void NotesView::removeNote() {
    commit();
    m_isEdited = false;
    presentIfAny(m_database->removeNote(m_note));
}
