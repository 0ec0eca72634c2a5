#include "Application/NotesView.h"

#include <QtCore/QSignalBlocker>
#include <QtGui/QAction>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>
#include <algorithm>
#include <iterator>

#include "Application/ConflictBar.h"
#include "Application/ConflictDialog.h"
#include "Application/NoteTextEdit.h"
#include "Application/PresentIfFailed.h"
#include "Application/Splitter.h"
#include "Application/UnsavedTextDialog.h"
#include "Platform/Interface/PlainText.h"

namespace {

/// Longer titles are not editable: a line edit draws all of its text each time the cursor blinks,
/// which takes up to 0.1 ms for a character that no font has.
constexpr int LongestTitle = PlainText::LongestMessage;

void present(const QString &description) {
    NSApp()->presentError(
        {.domain = QStringLiteral("Velmora"), .localizedDescription = description});
}

void presentTitleCut() {
    present(NotesView::tr("A title has at most %L1 characters, so not all of what you entered was "
                          "added to it. Enter it into the text of the note.")
                .arg(LongestTitle));
}

void presentTextRefused() {
    present(NotesView::tr("The text was not inserted, because the note would be too long to be "
                          "edited: it may have %L1 lines of at most %L2 characters, and %L3 "
                          "characters in all. Insert a part of it, or several lines.")
                .arg(PlainText::MostLines)
                .arg(PlainText::LongestLine)
                .arg(NoteTextEdit::LongestText));
}

constexpr int PauseInMilliseconds = 500;

QString shownTitle(const Note &note) {
    constexpr qsizetype longest = 200;
    return note.title.isEmpty() ? NotesView::tr("Untitled") : note.title.left(longest);
}

}  // namespace

NotesView::NotesView(UnsavedTexts unsavedTexts, QWidget *parent)
    : QWidget(parent),
      m_unsavedTexts(std::move(unsavedTexts)),
      m_list(new QListWidget),
      m_title(new QLineEdit),
      m_text(new NoteTextEdit),
      m_notice(PlainText::label()),
      m_conflict(new ConflictBar),
      m_addButton(new QPushButton(tr("New &Note"))),
      m_removeButton(new QPushButton(tr("De&lete Note"))),
      m_undoAction(new QAction(this)) {
    m_list->setAccessibleName(tr("Notes"));
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_title->setAccessibleName(tr("Title"));
    m_title->setPlaceholderText(tr("Title"));
    m_title->setMaxLength(LongestTitle);
    // A text that is moved here would be cut to that length.
    m_title->setAcceptDrops(false);
    m_text->setAccessibleName(tr("Text"));
    m_notice->setObjectName(QStringLiteral("notice"));
    m_notice->hide();
    m_conflict->hide();
    m_undoAction->setShortcut(QKeySequence::Undo);
    updateUndoAction();
    m_pause.setSingleShot(true);
    m_pause.setInterval(PauseInMilliseconds);
    m_keeping.setSingleShot(true);
    m_keeping.setInterval(PauseInMilliseconds);
    makeWidgets();

    connect(&m_pause, &QTimer::timeout, this, &NotesView::commit);
    connect(&m_keeping, &QTimer::timeout, this, &NotesView::keepEdits);
    connect(m_list, &QListWidget::currentRowChanged, this, &NotesView::selectNote);
    connect(m_title, &QLineEdit::textEdited, this, &NotesView::noteEdited);
    connect(m_title, &QLineEdit::inputRejected, this, &presentTitleCut);
    connect(m_text, &NoteTextEdit::insertionRefused, this, &presentTextRefused);
    connect(m_text, &QPlainTextEdit::textChanged, this, &NotesView::noteEdited);
    connect(m_addButton, &QPushButton::clicked, this, &NotesView::addNote);
    connect(m_removeButton, &QPushButton::clicked, this, &NotesView::removeNote);
    connect(m_conflict, &ConflictBar::compareRequested, this, &NotesView::compareEdits);
    connect(m_conflict, &ConflictBar::keepThisRequested, this, [this] {
        resolveConflict([this](const Note &shown, const Note &other) { keepEdit(shown, other); });
    });
    connect(m_conflict, &ConflictBar::keepOtherRequested, this, [this] {
        resolveConflict([this](const Note &shown, const Note &other) { keepEdit(other, shown); });
    });
    connect(m_conflict, &ConflictBar::keepBothRequested, this, [this] {
        resolveConflict(
            [this](const Note &shown, const Note &other) { keepBothEdits(shown, other); });
    });
    connect(m_undoAction, &QAction::triggered, this, &NotesView::undoDeletion);
    showNotes();
}

NotesView::~NotesView() {
    // The window that observes this view may be in its destructor.
    const QSignalBlocker blocker(this);
    commit();
}

void NotesView::makeWidgets() {
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
    noteLayout->addWidget(m_conflict);
    noteLayout->addWidget(m_title);
    noteLayout->addWidget(m_notice);
    noteLayout->addWidget(m_text);

    auto *splitter = new Splitter;
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(listSide);
    splitter->addWidget(noteSide);
    splitter->setStretchFactor(1, 2);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);
}

bool NotesView::setDatabase(const std::shared_ptr<NoteDatabase> &database) {
    const auto shown = database && database->isOpen() ? database : nullptr;
    if (shown == m_database) {
        return true;
    }
    if (!leave()) {
        return false;
    }
    if (m_database) {
        disconnect(m_database.get(), nullptr, this, nullptr);
    }
    m_database = shown;
    if (m_database) {
        connect(m_database.get(), &NoteDatabase::notesChanged, this, &NotesView::showNotes);
    }
    showNothing();
    showNotes();
    return true;
}

void NotesView::showNothing() {
    m_notes.clear();
    {
        const QSignalBlocker blocker(m_list);
        m_list->clear();
    }
    m_addButton->setEnabled(false);
    showNote(-1);
}

void NotesView::showNotes() {
    const Expected<QList<Note>> notes = m_database ? m_database->notes() : QList<Note>();
    if (!notes) {
        NSApp()->presentError(notes.error());
        return;
    }
    m_notes = *notes;
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
    showConflict();
    // While the user edits, the base revision stays the one that was shown, even if another
    // arrives.
    if (!m_isEdited) {
        showNote(m_list->currentRow());
    }
}

void NotesView::selectNote(int row) {
    const Note wanted = row >= 0 ? m_notes.at(row) : Note();
    if (leave()) {
        // Saving may have moved the rows.
        showNote(rowOf(wanted));
    } else {
        const QSignalBlocker blocker(m_list);
        m_list->setCurrentRow(rowOf(m_note));
    }
}

void NotesView::showNote(int row) {
    m_row = row;
    m_note = row >= 0 ? m_notes.at(row) : Note();
    {
        const QSignalBlocker blocker(m_list);
        m_list->setCurrentRow(row);
    }
    showContents();
    showConflict();
    m_title->setEnabled(row >= 0);
    m_text->setEnabled(row >= 0);
    m_removeButton->setEnabled(row >= 0);
    Q_EMIT noteChanged();
}

void NotesView::select(const Note &note) {
    if (const int row = rowOf(note); row >= 0) {
        m_list->setCurrentRow(row);
    }
}

void NotesView::showContents() {
    const QSignalBlocker blocker(m_text);
    if (m_title->text() != m_note.title) {
        m_title->setText(m_note.title);
    }
    if (m_text->noteText() != m_note.text) {
        m_text->setNoteText(m_note.text);
    }
    const bool isExact = m_title->text() == m_note.title && m_text->noteText() == m_note.text;
    m_title->setReadOnly(!isExact);
    m_text->setReadOnly(!isExact);
    setNotice(isExact ? QString()
                      : tr("This note cannot be edited here: it contains something that the editor "
                           "would change, or too many or too long lines."));
}

void NotesView::noteEdited() {
    if (m_note.UUID.isEmpty()) {
        return;
    }
    setEdited(true);
    m_pause.start();
    if (!m_keeping.isActive()) {
        m_keeping.start();
    }
}

void NotesView::setEdited(bool isEdited) {
    m_isEdited = isEdited;
    Q_EMIT editedChanged(isEdited);
}

void NotesView::keepEdits() {
    if (m_isEdited && !m_unsavedTexts.keep(m_database->UUID(), editedNote())) {
        commit();
    }
}

int NotesView::rowOf(const Note &note) const {
    auto found = std::find_if(m_notes.begin(), m_notes.end(), [&](const Note &each) {
        return !note.revision.isEmpty() && each.revision == note.revision;
    });
    if (found == m_notes.end()) {
        found = std::find_if(m_notes.begin(), m_notes.end(),
                             [&](const Note &each) { return each.UUID == note.UUID; });
    }
    return found == m_notes.end() ? -1 : static_cast<int>(found - m_notes.begin());
}

Note NotesView::editedNote() const {
    Note note = m_note;
    if (m_isEdited) {
        note.title = m_title->text();
        note.text = m_text->noteText();
        note.modified = QDateTime::currentDateTime();
    }
    return note;
}

Expected<void> NotesView::save() {
    m_pause.stop();
    if (!m_isEdited) {
        return {};
    }
    Note note = editedNote();
    Expected<void> saved = m_database->saveNote(note);
    setEdited(!saved);
    if (saved) {
        m_unsavedTexts.remove(note.UUID);
        m_hasToldFailure = false;
        setNotice({});
        showSaved(note);
    } else {
        saveFailed(saved.error());
    }
    return saved;
}

void NotesView::showSaved(const Note &note) {
    m_note = note;
    // The list may show another edit as the note, or may not have been read again.
    if (const int row = rowOf(note); row >= 0 && m_notes.at(row).revision == note.revision) {
        showNote(row);
    }
}

void NotesView::saveFailed(const Error &error) {
    const Expected<void> kept = m_unsavedTexts.keep(m_database->UUID(), editedNote());
    setNotice(tr("This note is not saved: %1").arg(error.localizedDescription));
    if (!kept) {
        NSApp()->presentError(kept.error());
    }
}

void NotesView::setNotice(const QString &text) {
    m_notice->setText(PlainText::message(text));
    m_notice->setVisible(!text.isEmpty());
}

void NotesView::showConflict() {
    const qsizetype others = otherEdits().size();
    m_conflict->setCount(others + 1);
    m_conflict->setVisible(others > 0);
}

QList<Note> NotesView::otherEdits() const {
    // The note may have got other edits since it was shown.
    const int row = rowOf(m_note);
    const QString conflict = row < 0 ? QString() : m_notes.at(row).conflict;
    QList<Note> others;
    if (!conflict.isEmpty()) {
        std::copy_if(m_notes.begin(), m_notes.end(), std::back_inserter(others),
                     [&](const Note &each) {
                         return each.conflict == conflict && each.UUID != m_note.UUID;
                     });
    }
    return others;
}

void NotesView::compareEdits() {
    resolveConflict([this](const Note &shown, const Note &other) {
        auto *dialog = new ConflictDialog(shown, other, this);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        connect(dialog, &QDialog::finished, this, [this, shown, other](int decision) {
            if (decision == ConflictDialog::KeepThis) {
                keepEdit(shown, other);
            } else if (decision == ConflictDialog::KeepOther) {
                keepEdit(other, shown);
            } else if (decision == ConflictDialog::KeepBoth) {
                keepBothEdits(shown, other);
            }
        });
        dialog->open();
    });
}

void NotesView::resolveConflict(const std::function<void(const Note &, const Note &)> &resolve) {
    // An edit that is typed into a copy makes it a note of its own.
    if (!leave()) {
        return;
    }
    const Note shown = m_note;
    if (const QList<Note> others = otherEdits(); !others.isEmpty()) {
        resolve(shown, others.first());
    }
}

void NotesView::keepEdit(Note kept, const Note &removed) {
    if (!presentIfFailed(m_database->resolveConflict(kept, removed))) {
        return;
    }
    rememberDeletion(removed, tr("&Undo Keep"));
    // A copy that is the only edit left shows as the note.
    const auto found = std::find_if(m_notes.begin(), m_notes.end(), [&](const Note &each) {
        return each.revision == kept.revision;
    });
    if (found != m_notes.end()) {
        select(*found);
    }
}

void NotesView::keepBothEdits(const Note &one, const Note &other) {
    Note copy = one.UUID == one.conflict ? other : one;
    presentIfFailed(m_database->saveNote(copy));
}

bool NotesView::commit() {
    const Expected<void> saved = save();
    // Notify the user once, not after each pause.
    if (!saved && !std::exchange(m_hasToldFailure, true)) {
        NSApp()->presentError(saved.error());
    }
    return saved.has_value();
}

bool NotesView::leave() {
    for (Expected<void> saved = save(); !saved; saved = save()) {
        switch (UnsavedTextDialog::ask(this, editedNote(), saved.error())) {
            case UnsavedTextDialog::Choice::TryAgain:
                break;
            case UnsavedTextDialog::Choice::Discard:
                discard();
                return true;
            case UnsavedTextDialog::Choice::KeepEditing:
                return false;
        }
    }
    return true;
}

void NotesView::discard() {
    setEdited(false);
    m_hasToldFailure = false;
    m_unsavedTexts.remove(m_note.UUID);
    setNotice({});
    showContents();
}

void NotesView::addNote() {
    if (!leave()) {
        return;
    }
    Note note;
    note.title = tr("New Note");
    note.modified = QDateTime::currentDateTime();
    if (presentIfFailed(m_database->saveNote(note))) {
        m_list->setCurrentRow(rowOf(note));
        m_title->setFocus();
        m_title->selectAll();
    }
}

void NotesView::removeNote() {
    // What was typed is kept with the deleted note.
    if (!leave() || m_note.UUID.isEmpty()) {
        return;
    }
    const Note deleted = m_note;
    if (!presentIfFailed(m_database->removeNote(deleted))) {
        return;
    }
    rememberDeletion(deleted, tr("&Undo Delete Note"));
    // Not the button: another key press would delete the next note.
    m_list->setFocus();
}

void NotesView::rememberDeletion(const Note &note, const QString &undoTitle) {
    m_deletions.append({m_database, note, undoTitle});
    updateUndoAction();
}

void NotesView::updateUndoAction() {
    m_undoAction->setEnabled(!m_deletions.isEmpty());
    m_undoAction->setText(m_deletions.isEmpty() ? tr("&Undo Delete Note")
                                                : m_deletions.last().undoTitle);
}

void NotesView::undoDeletion() {
    if (!leave()) {
        return;
    }
    Deletion last = m_deletions.last();
    if (!presentIfFailed(last.database->saveNote(last.note))) {
        return;
    }
    m_deletions.removeLast();
    updateUndoAction();
    if (last.database == m_database) {
        m_list->setCurrentRow(rowOf(last.note));
    }
}
