#pragma once

#include <QtCore/QTimer>
#include <QtWidgets/QWidget>
#include <memory>

#include "Application/UnsavedTexts.h"

class NoteTextEdit;
class QAction;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

/// Shows and edits the notes of one database. Typed text is saved when the user pauses or leaves
/// the note. Text that cannot be saved is kept in `UnsavedTexts` and stays in the editor until it
/// is saved or the user discards it. Main thread only.
class NotesView : public QWidget {
    Q_OBJECT
public:
    explicit NotesView(UnsavedTexts unsavedTexts, QWidget *parent = nullptr);
    /// Saves typed text if possible, without asking the user.
    ~NotesView() override;

    /// Shows `database`; nullptr, or a database that is not open, shows nothing. Has no effect and
    /// returns false if the user does not leave a text that cannot be saved, see leave().
    bool setDatabase(const std::shared_ptr<NoteDatabase> &database);
    /// Returns the database that is shown, or nullptr.
    std::shared_ptr<NoteDatabase> database() const { return m_database; }
    /// Saves typed text. Returns whether nothing is left to save; otherwise the user is told why.
    bool commit();
    /// Saves typed text. If that fails, asks the user what to do with the text and blocks for the
    /// answer. Returns whether the text was saved or discarded.
    bool leave();
    /// Restores the note that was deleted last, in its database. Owned by this view; disabled while
    /// there is no such note.
    QAction *undoDeletionAction() const { return m_undoAction; }

private:
    struct Deletion {
        std::shared_ptr<NoteDatabase> database;
        Note note;
    };

    void makeWidgets();
    void showNotes();
    void selectNote(int row);
    void showNote(int row);
    void showContents();
    void addNote();
    void removeNote();
    void undoDeletion();
    void noteEdited();
    Expected<void> save();
    void discard();
    void saveFailed(const Error &error);
    void setNotice(const QString &text);
    /// Returns the shown note with the user's edits.
    Note editedNote() const;
    /// Returns the row of the note with the UUID of `note`; -1 if there is none.
    int rowOf(const Note &note) const;

    const UnsavedTexts m_unsavedTexts;
    std::shared_ptr<NoteDatabase> m_database;
    QList<Note> m_notes;
    /// The shown note as it was when it was shown; without UUID while there is none.
    Note m_note;
    int m_row = -1;
    /// Whether the editor differs from `m_note`.
    bool m_isEdited = false;
    bool m_hasToldFailure = false;
    QTimer m_pause;
    QList<Deletion> m_deletions;
    QListWidget *m_list;
    QLineEdit *m_title;
    NoteTextEdit *m_text;
    QLabel *m_notice;
    QPushButton *m_addButton;
    QPushButton *m_removeButton;
    QAction *m_undoAction;
};
