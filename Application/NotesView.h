#pragma once

#include <QtCore/QHash>
#include <QtCore/QTimer>
#include <QtWidgets/QWidget>
#include <functional>
#include <memory>
#include <optional>

#include "Application/UnsavedTexts.h"

class ConflictBar;
class NoteTextEdit;
class NotesList;
class NotesModel;
class QAction;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class Splitter;

/// Shows and edits the notes of one database. Typed text is saved when the user pauses (500 ms) or
/// leaves the note. Until then it is kept in `UnsavedTexts`, where it is written every 500 ms. Text
/// that cannot be saved remains there, and in the editor, until it is saved or the user discards
/// it. Must be used on the main thread.
class NotesView : public QWidget {
    Q_OBJECT
public:
    /// Shows no database.
    explicit NotesView(UnsavedTexts unsavedTexts, QWidget *parent = nullptr);
    /// Saves typed text if possible, without asking the user. Text that cannot be saved stays in
    /// `UnsavedTexts` for the next start. Emits no signals.
    ~NotesView() override;

    /// Shows `database`, sharing its ownership. Null, or a database that is not open, shows
    /// nothing. Has no effect and returns false if the user does not leave a text that cannot be
    /// saved, see leave(). It does not notice when the database is closed; the caller must set it
    /// again. If notes cannot be read, the error is presented, and the list says that it is not
    /// complete.
    bool setDatabase(const std::shared_ptr<NoteDatabase> &database);
    /// Returns the database that is shown; null if there is none.
    std::shared_ptr<NoteDatabase> database() const { return m_database; }
    /// Sets the widths of the list and of the text, in pixels.
    void divide(int list, int text);
    /// Saves typed text. Returns whether nothing is left to save. Otherwise the error is presented,
    /// once until a save succeeds. Blocks for the time of a disk write.
    bool commit();
    /// Saves typed text. If that fails, asks the user what to do with it, running a nested event
    /// loop, until it is saved, discarded, or to be edited further. Returns whether the text was
    /// saved or discarded; only then may another note be shown.
    bool leave();
    /// Returns the action that restores the last note that was deleted, or was removed in favour of
    /// a conflicting edit, in its database. Owned by this view; disabled while there is no such
    /// note.
    QAction *undoAction() const { return m_undoAction; }
    /// Adds commands for the shown note, which are not owned, to the menu of the list, which the
    /// menu key or a secondary click opens. Must be called once.
    void addNoteActions(const QList<QAction *> &actions);
    /// Lets the action undo nothing in `database`, which was deleted.
    void forgetDeletions(const std::shared_ptr<NoteDatabase> &database);
    /// Returns the note that is shown, without unsaved edits; no UUID while there is none.
    const Note &note() const { return m_note; }
    /// Selects the note with the UUID of `note`, unless the user does not leave the shown one. Has
    /// no effect if the database that is shown has no such note.
    void select(const Note &note);
    /// Selects the note as soon as its row is read, unless the user selects or edits another note,
    /// or setDatabase() shows another database, before. Has no effect if there is no such note.
    void selectWhenRead(const QString &UUID);

Q_SIGNALS:
    /// Emitted after another note, or none, is shown, and also after the shown one was read again.
    void noteChanged();
    /// Emitted after the user has begun to edit the saved note, with true, and after the edits are
    /// on disk or discarded, with false. Can be emitted repeatedly with the same value.
    void editedChanged(bool isEdited);

private:
    /// A note that was deleted, or removed in favour of another edit, and can be restored.
    struct Deletion {
        std::shared_ptr<NoteDatabase> database;
        Note note;
        /// The title of the action that restores it.
        QString undoTitle;
    };

    void makeWidgets();
    void makeMenu();
    void connectWidgets();
    /// Shows no note and discards edits, before the notes of another database are read.
    void showNothing();
    /// Reads the rows again whose `positions` have changed, keeping the selected note and any
    /// edits. Presents an error if they cannot be read. Rows that take longer follow soon.
    void showChanges(const QSet<qint64> &positions);
    /// Reads some of the rows that were not read yet or have changed, and the others later.
    void readRows();
    /// Shows below the list that rows are missing or outdated if they could not be read, and lets
    /// the user try again.
    void showUnread(const Expected<void> &read);
    /// Reads some rows that were not read yet, beginning with the position `from`.
    Expected<void> readMore(qint64 from);
    /// Reads the rows of a position that has changed, or else new rows if it is beyond those read.
    Expected<void> readAgain(qint64 position);
    /// Reads rows until the one of `note` is there.
    void readUntil(const Note &note);
    /// Selects the awaited note if its row was read.
    void selectAwaited();
    /// Selects the shown note or, if it is gone, the nearest one.
    void showCurrent();
    /// Shows the note in `row`, or keeps the former one if the user does not leave it.
    void selectNote(int row);
    /// Shows the note in `row`, discarding edits; -1 shows none.
    void showNote(int row);
    /// Shows the text of the note, read-only if the editor cannot represent it exactly.
    void showContents();
    void setAddingEnabled(bool isEnabled);
    /// Saves a new note with a default title, and selects the title.
    void addNote();
    /// Deletes the shown note, after saving what was typed, so that it can be restored completely.
    void removeNote();
    /// Lets the user undo that the note, which the database that is shown contained, was removed.
    void rememberDeletion(const Note &note, const QString &undoTitle);
    /// Saves the note deleted last in its database, which may be another one than is shown.
    void undoDeletion();
    /// Lets the action undo the last deletion.
    void updateUndoAction();
    /// Removes the first half of a character at the cursor of the title, which a text that was cut
    /// leaves.
    void removeHalfCharacter();
    /// Marks the note as edited and restarts the timer.
    void noteEdited();
    void setEdited(bool isEdited);
    /// Keeps edits in `UnsavedTexts`, or saves them if that fails.
    void keepEdits();
    /// Saves edits. If that fails, keeps them in `UnsavedTexts` and shows a notice.
    Expected<void> save();
    /// Reverts the note to its saved text.
    void discard();
    void saveFailed(const Error &error);
    /// Removes what `UnsavedTexts` keeps of the note. Presents a failure, once until it succeeds.
    void removeKept(const Note &note);
    /// Continues with `note` as it was saved, and not with an edit that has come from elsewhere.
    void showSaved(const Note &note);
    void setNotice(const QString &text);
    /// Shows the bar if the note has conflicting edits.
    void showConflict();
    /// Returns the conflicting edits of the note without their texts, except the shown one.
    QList<Note> otherEdits() const;
    /// Shows the note and the first of its other edits side by side.
    void compareEdits();
    /// Saves what was typed, and calls `resolve` with the shown edit and the first of the others,
    /// if there is one.
    void resolveConflict(const std::function<void(const Note &, const Note &)> &resolve);
    /// Resolves the conflict of the two edits and shows `kept`.
    void keepEdit(Note kept, const Note &removed);
    /// Makes the copy of the two edits a note of its own.
    void keepBothEdits(const Note &one, const Note &other);
    /// Returns the shown note with the user's edits and the current time.
    Note editedNote() const;

    const UnsavedTexts m_unsavedTexts;
    std::shared_ptr<NoteDatabase> m_database;
    /// The first position that was not read; none if all were.
    std::optional<qint64> m_unread;
    /// The positions of rows to read again.
    QSet<qint64> m_changed;
    /// Continues reading after a pause.
    QTimer m_reading;
    /// The shown note as it was when it was shown; its UUID is empty while there is none.
    Note m_note;
    int m_row = -1;
    /// See selectWhenRead(); empty if it is selected or not wanted any more.
    QString m_awaited;
    /// Whether the row of the note was read again since the note was shown.
    bool m_isTextOutdated = false;
    /// Whether the editor differs from `m_note`.
    bool m_isEdited = false;
    /// Whether the user was notified of the current failure.
    bool m_hasReportedFailure = false;
    /// Whether the user was notified of a kept text that cannot be removed.
    bool m_hasReportedRemaining = false;
    /// Saves when the user stops typing.
    QTimer m_pause;
    /// Keeps edits while the user types without a pause.
    QTimer m_keeping;
    /// The deleted notes, last deletion last.
    QList<Deletion> m_deletions;
    /// The rows that were read.
    NotesModel *m_rows;
    Splitter *m_splitter;
    NotesList *m_list;
    QLabel *m_unreadNotice;
    QPushButton *m_tryAgainButton;
    QLineEdit *m_title;
    NoteTextEdit *m_text;
    QLabel *m_notice;
    QPushButton *m_copyButton;
    ConflictBar *m_conflict;
    QPushButton *m_addButton;
    QPushButton *m_removeButton;
    QAction *m_addAction;
    QAction *m_removeAction;
    QAction *m_undoAction;
};
