#include "Application/NotesView.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QSignalBlocker>
#include <QtGui/QAction>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPushButton>
#include <algorithm>
#include <limits>

#include "Application/ApplicationError.h"
#include "Application/ConflictBar.h"
#include "Application/ConflictDialog.h"
#include "Application/NoteClipboard.h"
#include "Application/NoteTextEdit.h"
#include "Application/NotesList.h"
#include "Application/NotesModel.h"
#include "Application/PaddedDelegate.h"
#include "Application/PresentIfFailed.h"
#include "Application/Splitter.h"
#include "Application/UnsavedTextDialog.h"
#include "Platform/Interface/ContextMenu.h"
#include "Platform/Interface/PlaceholderField.h"
#include "Platform/Interface/PlainText.h"

namespace {

/// Longer titles are not editable: a line edit draws all of its text each time the cursor blinks,
/// which takes up to 0.1 ms for a character that no font has.
constexpr int LongestTitle = PlainText::LongestMessage;

void present(const QString &description) {
    NSApp()->presentError(applicationError(description));
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

/// Numbers of rows that are read at first, which fill a large window, and at once later, and the
/// milliseconds after which the others are read later. The main thread has as much time for other
/// work.
constexpr int FirstRows = 100;
constexpr int RowsAtOnce = 500;
constexpr int ReadingAtOnce = 5;
/// A change of not more rows than this is shown before others.
constexpr qsizetype RowsReadFirst = 4;

}  // namespace

NotesView::NotesView(UnsavedTexts unsavedTexts, QWidget *parent)
    : QWidget(parent),
      m_unsavedTexts(std::move(unsavedTexts)),
      m_rows(new NotesModel(this)),
      m_splitter(new Splitter),
      m_list(new NotesList),
      m_unreadNotice(PlainText::label()),
      m_tryAgainButton(new QPushButton(tr("Try A&gain"))),
      m_title(new PlaceholderField),
      m_text(new NoteTextEdit),
      m_notice(PlainText::label()),
      m_copyButton(new QPushButton(tr("Cop&y Text"))),
      m_conflict(new ConflictBar),
      m_addButton(new QPushButton(tr("New &Note"))),
      m_removeButton(new QPushButton(tr("De&lete Note"))),
      m_addAction(new QAction(m_addButton->text(), this)),
      m_removeAction(new QAction(m_removeButton->text(), this)),
      m_undoAction(new QAction(this)) {
    m_list->setModel(m_rows);
    m_list->setAccessibleName(tr("Notes"));
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setItemDelegate(new PaddedDelegate(m_list));
    // Measuring each of many rows would take long.
    m_list->setUniformItemSizes(true);
    m_unreadNotice->setObjectName(QStringLiteral("unreadNotes"));
    m_tryAgainButton->setObjectName(QStringLiteral("tryAgain"));
    m_unreadNotice->hide();
    m_tryAgainButton->hide();
    m_title->setAccessibleName(tr("Title"));
    m_title->setPlaceholderText(tr("Title"));
    m_title->setMaxLength(LongestTitle);
    // A text that is moved here would be cut to that length.
    m_title->setAcceptDrops(false);
    m_text->setAccessibleName(tr("Text"));
    m_notice->setObjectName(QStringLiteral("notice"));
    m_notice->hide();
    m_copyButton->setObjectName(QStringLiteral("copyText"));
    m_copyButton->hide();
    m_conflict->hide();
    m_undoAction->setShortcut(QKeySequence::Undo);
    updateUndoAction();
    m_pause.setSingleShot(true);
    m_pause.setInterval(PauseInMilliseconds);
    m_keeping.setSingleShot(true);
    m_keeping.setInterval(PauseInMilliseconds);
    m_reading.setSingleShot(true);
    m_reading.setInterval(ReadingAtOnce);
    makeWidgets();
    makeMenu();
    connectWidgets();
    showNothing();
}

void NotesView::makeMenu() {
    // Elsewhere the key deletes text. One that is held down deletes one note.
    m_removeAction->setShortcut(QKeySequence::Delete);
    m_removeAction->setShortcutContext(Qt::WidgetShortcut);
    m_removeAction->setAutoRepeat(false);
    m_list->addAction(m_removeAction);
    auto *menu = new QMenu(m_list);
    menu->setObjectName(QStringLiteral("noteMenu"));
    menu->addAction(m_addAction);
    menu->addSeparator();
    menu->addSeparator();
    menu->addAction(m_removeAction);
    ContextMenu::setMenu(m_list, menu);
}

void NotesView::addNoteActions(const QList<QAction *> &actions) {
    QMenu *menu = ContextMenu::menu(m_list);
    menu->insertActions(menu->actions().at(2), actions);
}

void NotesView::connectWidgets() {
    connect(&m_pause, &QTimer::timeout, this, &NotesView::commit);
    connect(&m_keeping, &QTimer::timeout, this, &NotesView::keepEdits);
    connect(&m_reading, &QTimer::timeout, this, &NotesView::readRows);
    connect(m_tryAgainButton, &QPushButton::clicked, this, &NotesView::readRows);
    connect(m_list, &NotesList::currentRowChanged, this, &NotesView::selectNote);
    connect(m_title, &QLineEdit::textEdited, this, &NotesView::removeHalfCharacter);
    connect(m_title, &QLineEdit::textEdited, this, &NotesView::noteEdited);
    connect(m_title, &QLineEdit::inputRejected, this, &presentTitleCut);
    connect(m_text, &NoteTextEdit::insertionRefused, this, &presentTextRefused);
    connect(m_text, &QPlainTextEdit::textChanged, this, &NotesView::noteEdited);
    connect(m_copyButton, &QPushButton::clicked, this, [this] { NoteClipboard::copy(m_note); });
    connect(m_addButton, &QPushButton::clicked, this, &NotesView::addNote);
    connect(m_removeButton, &QPushButton::clicked, this, &NotesView::removeNote);
    connect(m_addAction, &QAction::triggered, this, &NotesView::addNote);
    connect(m_removeAction, &QAction::triggered, this, &NotesView::removeNote);
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
    listLayout->addWidget(m_unreadNotice);
    listLayout->addWidget(m_tryAgainButton);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_addButton);
    buttons->addWidget(m_removeButton);
    listLayout->addLayout(buttons);

    auto *noteSide = new QWidget;
    auto *noteLayout = new QVBoxLayout(noteSide);
    noteLayout->setContentsMargins(0, 0, 0, 0);
    noteLayout->addWidget(m_conflict);
    noteLayout->addWidget(m_title);
    auto *notice = new QHBoxLayout;
    notice->addWidget(m_notice, 1);
    notice->addWidget(m_copyButton);
    noteLayout->addLayout(notice);
    noteLayout->addWidget(m_text);

    m_splitter->setChildrenCollapsible(false);
    m_splitter->addWidget(listSide);
    m_splitter->addWidget(noteSide);
    m_splitter->setStretchFactor(1, 2);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_splitter);
}

void NotesView::divide(int list, int text) {
    m_splitter->setSizes({list, text});
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
        connect(m_database.get(), &NoteDatabase::notesChanged, this, &NotesView::showChanges);
    }
    showNothing();
    if (m_database) {
        m_unread = std::numeric_limits<qint64>::min();
        readRows();
    }
    return true;
}

void NotesView::showNothing() {
    m_awaited.clear();
    m_unread.reset();
    m_changed.clear();
    m_reading.stop();
    showUnread({});
    {
        const QSignalBlocker blocker(m_list);
        m_rows->clear();
    }
    setAddingEnabled(false);
    showNote(-1);
}

void NotesView::showChanges(const QSet<qint64> &positions) {
    m_changed.unite(positions);
    if (positions.size() > RowsReadFirst) {
        m_reading.start();
        return;
    }
    // What the user has done is shown at once, even if many other rows remain to be read. What
    // fails is tried again by readRows(), which reports it.
    for (const qint64 position : positions) {
        static_cast<void>(readAgain(position));
    }
    readRows();
}

void NotesView::readRows() {
    QElapsedTimer elapsed;
    elapsed.start();
    Expected<void> read = m_unread ? readMore(*m_unread) : Expected<void>();
    while (read && !m_changed.isEmpty() && !elapsed.hasExpired(ReadingAtOnce)) {
        const qint64 position = *m_changed.cbegin();
        read = readAgain(position);
    }
    showUnread(read);
    if (!read) {
        NSApp()->presentError(read.error());
        return;
    }
    setAddingEnabled(true);
    if (m_unread || !m_changed.isEmpty()) {
        m_reading.start();
    }
    showCurrent();
    selectAwaited();
}

void NotesView::selectWhenRead(const QString &UUID) {
    m_awaited = UUID;
    selectAwaited();
}

void NotesView::selectAwaited() {
    if (!m_awaited.isEmpty() && m_rows->rowOf({.UUID = m_awaited}) >= 0) {
        select({.UUID = std::exchange(m_awaited, {})});
    }
}

void NotesView::showUnread(const Expected<void> &read) {
    m_unreadNotice->setText(read ? QString()
                                 : tr("Not all notes are shown, because some cannot be read. %1")
                                       .arg(read.error().localizedDescription));
    m_unreadNotice->setVisible(!read);
    m_tryAgainButton->setVisible(!read);
}

Expected<void> NotesView::readMore(qint64 from) {
    const int count = m_list->count() == 0 ? FirstRows : RowsAtOnce;
    return m_database->rows(from, count).map([&](const QList<NoteRow> &rows) {
        const QSignalBlocker blocker(m_list);
        m_rows->append(rows);
        m_unread = rows.size() < count ? std::nullopt : std::optional(rows.last().position + 1);
    });
}

Expected<void> NotesView::readAgain(qint64 position) {
    const int count = m_list->count();
    const qint64 end =
        count == 0 ? std::numeric_limits<qint64>::min() : m_rows->position(count - 1) + 1;
    if (position >= m_unread.value_or(end)) {
        // New rows are read together.
        const Expected<void> read = m_unread ? Expected<void>() : readMore(end);
        return read.map([&] { m_changed.removeIf([&](qint64 each) { return each >= end; }); });
    }
    return m_database->rowsAt(position).map([&](const QList<NoteRow> &rows) {
        const QSignalBlocker blocker(m_list);
        m_rows->replace(position, rows);
        // A damaged edit may have been repaired.
        m_isTextOutdated =
            m_isTextOutdated || std::any_of(rows.begin(), rows.end(), [this](const NoteRow &row) {
                return row.note.revision == m_note.revision;
            });
        m_changed.remove(position);
    });
}

void NotesView::readUntil(const Note &note) {
    while (m_unread && m_rows->rowOf(note) < 0) {
        if (const Expected<void> read = readMore(*m_unread); !read) {
            showUnread(read);
            NSApp()->presentError(read.error());
            return;
        }
    }
}

void NotesView::showCurrent() {
    const int row = m_rows->rowOf(m_note);
    const int nearest = qBound(m_list->count() == 0 ? -1 : 0, m_row, m_list->count() - 1);
    const int current = row >= 0 || m_isEdited ? row : nearest;
    if (row < 0 && current >= 0 && m_changed.contains(m_rows->position(current))) {
        // It may be gone, too. Another note is shown once its row was read again.
        return;
    }
    if (current != m_list->currentRow()) {
        const QSignalBlocker blocker(m_list);
        m_list->setCurrentRow(current);
    }
    // While the user edits, the base revision stays the one that was shown, even if another
    // arrives.
    if (m_isEdited) {
        showConflict();
    } else {
        showNote(current);
    }
}

void NotesView::selectNote(int row) {
    m_awaited.clear();
    const Note wanted = row >= 0 ? m_rows->note(row) : Note();
    if (row >= 0 && m_changed.contains(m_rows->position(row))) {
        presentIfFailed(readAgain(m_rows->position(row)));
    }
    if (leave()) {
        // Saving may have moved the rows.
        showNote(m_rows->rowOf(wanted));
    } else {
        const QSignalBlocker blocker(m_list);
        m_list->setCurrentRow(m_rows->rowOf(m_note));
    }
}

void NotesView::showNote(int row) {
    if (row < 0) {
        m_note = {};
    } else if (const Note note = m_rows->note(row);
               m_isTextOutdated || note.revision != m_note.revision || note.UUID != m_note.UUID) {
        const Expected<Note> complete = m_database->completeNote(note);
        if (!complete) {
            NSApp()->presentError(complete.error());
        }
        m_note = complete.value_or(Note());
    } else {
        m_note.conflict = note.conflict;
    }
    m_isTextOutdated = false;
    row = m_note.UUID.isEmpty() ? -1 : row;
    m_row = row;
    if (m_list->currentRow() != row) {
        const QSignalBlocker blocker(m_list);
        m_list->setCurrentRow(row);
    }
    showContents();
    showConflict();
    m_title->setEnabled(row >= 0);
    m_text->setEnabled(row >= 0);
    m_removeButton->setEnabled(row >= 0);
    m_removeAction->setEnabled(row >= 0);
    Q_EMIT noteChanged();
}

void NotesView::select(const Note &note) {
    readUntil(note);
    if (const int row = m_rows->rowOf(note); row >= 0) {
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
    m_copyButton->setVisible(!isExact);
    setNotice(isExact
                  ? QString()
                  : tr("This note cannot be edited here: it contains something that the editor "
                       "would change, or too many or too long lines. To go on with it, copy its "
                       "text and paste it into a new note."));
}

void NotesView::setAddingEnabled(bool isEnabled) {
    m_addButton->setEnabled(isEnabled);
    m_addAction->setEnabled(isEnabled);
}

void NotesView::removeHalfCharacter() {
    const int before = m_title->cursorPosition() - 1;
    QString text = m_title->text();
    if (before >= 0 && text[before].isHighSurrogate() && !text.mid(before, 2).isValidUtf16()) {
        text.remove(before, 1);
        // Setting the text would forget what the user can undo.
        m_title->undo();
        m_title->selectAll();
        m_title->insert(text);
        m_title->setCursorPosition(before);
    }
}

void NotesView::noteEdited() {
    if (m_note.UUID.isEmpty()) {
        return;
    }
    m_awaited.clear();
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
        // A saved copy may have become a note of its own.
        removeKept(m_note);
        m_hasReportedFailure = false;
        setNotice({});
        showSaved(note);
    } else {
        saveFailed(saved.error());
    }
    return saved;
}

void NotesView::showSaved(const Note &note) {
    m_note = note;
    m_isTextOutdated = false;
    // The list may show another edit as the note, or may not have been read again.
    if (const int row = m_rows->rowOf(note);
        row >= 0 && m_rows->note(row).revision == note.revision) {
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
    const QList<Note> others = otherEdits();
    m_conflict->setVisible(!others.isEmpty());
    if (others.isEmpty()) {
        return;
    }
    const qsizetype count = others.size() + 1;
    const Expected<bool> hasMore = m_database->hasMoreEdits(others.first().conflict, count);
    if (!hasMore) {
        NSApp()->presentError(hasMore.error());
    }
    m_conflict->setCount(count, hasMore.value_or(false));
}

QList<Note> NotesView::otherEdits() const {
    // The note may have got other edits since it was shown.
    const int row = m_rows->rowOf(m_note);
    const QString conflict = row < 0 ? QString() : m_rows->note(row).conflict;
    QList<Note> others;
    if (conflict.isEmpty()) {
        return others;
    }
    const qint64 position = m_rows->position(row);
    for (int i = m_rows->firstRow(position); i < m_list->count() && m_rows->position(i) == position;
         ++i) {
        const Note each = m_rows->note(i);
        if (each.conflict == conflict && each.UUID != m_note.UUID) {
            others.append(each);
        }
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
    const QList<Note> others = otherEdits();
    if (others.isEmpty()) {
        return;
    }
    const Expected<Note> other = m_database->completeNote(others.first());
    if (presentIfFailed(other.map([](const Note &) {}))) {
        resolve(shown, *other);
    }
}

void NotesView::keepEdit(Note kept, const Note &removed) {
    if (!presentIfFailed(m_database->resolveConflict(kept, removed))) {
        return;
    }
    rememberDeletion(removed, tr("&Undo Keep"));
    // A copy that is the only edit left shows as the note.
    if (const int row = m_rows->rowOf(kept);
        row >= 0 && m_rows->note(row).revision == kept.revision) {
        select(kept);
    }
}

void NotesView::keepBothEdits(const Note &one, const Note &other) {
    Note copy = one.UUID == one.conflict ? other : one;
    presentIfFailed(m_database->saveNote(copy));
}

bool NotesView::commit() {
    const Expected<void> saved = save();
    // Notify the user once, not after each pause.
    if (!saved && !std::exchange(m_hasReportedFailure, true)) {
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
    m_hasReportedFailure = false;
    removeKept(m_note);
    setNotice({});
    showContents();
}

void NotesView::removeKept(const Note &note) {
    const Expected<void> removed = m_unsavedTexts.remove(note.UUID);
    // Notify the user once, not after each pause.
    if (!removed && !m_hasReportedRemaining) {
        NSApp()->presentError(removed.error());
    }
    m_hasReportedRemaining = !removed;
}

void NotesView::addNote() {
    if (!leave()) {
        return;
    }
    Note note;
    note.title = tr("New Note");
    note.modified = QDateTime::currentDateTime();
    if (presentIfFailed(m_database->saveNote(note))) {
        select(note);
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
    const Expected<bool> isDeleted = m_database->removeNote(deleted);
    if (!isDeleted) {
        NSApp()->presentError(isDeleted.error());
        return;
    }
    if (*isDeleted) {
        rememberDeletion(deleted, tr("&Undo Delete Note"));
    }
    // Not the button: another key press would delete the next note.
    m_list->setFocus();
}

void NotesView::rememberDeletion(const Note &note, const QString &undoTitle) {
    m_deletions.append({m_database, note, undoTitle});
    updateUndoAction();
}

void NotesView::forgetDeletions(const std::shared_ptr<NoteDatabase> &database) {
    m_deletions.removeIf([&](const Deletion &deletion) { return deletion.database == database; });
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
        select(last.note);
    }
}
