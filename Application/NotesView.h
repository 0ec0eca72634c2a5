#pragma once

#include <QtCore/QTimer>
#include <QtWidgets/QWidget>
#include <memory>

#include "Application/Interface/NoteDatabase.h"

class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

/// Shows and edits the notes of one database. What is typed is saved when the person pauses, goes
/// on to something else, or leaves.
class NotesView : public QWidget {
    Q_OBJECT
public:
    explicit NotesView(QWidget *parent = nullptr);
    ~NotesView() override;

    /// nullptr, or a database that is not open, shows nothing.
    void setDatabase(const std::shared_ptr<NoteDatabase> &database);
    /// Saves what is typed but not saved yet.
    void commit();

private:
    void showNotes();
    void showNote(int row);
    void addNote();
    void removeNote();
    void noteEdited();
    /// Its row in the list; -1 where it is not there.
    int rowOf(const Note &note) const;

    std::shared_ptr<NoteDatabase> m_database;
    QList<Note> m_notes;
    /// The one that is shown, as it was when it was; without UUID while there is none.
    Note m_note;
    int m_row = -1;
    /// Whether what is shown differs from it, and is to be saved after the pause.
    bool m_isEdited = false;
    QTimer m_pause;
    QListWidget *m_list;
    QLineEdit *m_title;
    QPlainTextEdit *m_text;
    QPushButton *m_addButton;
    QPushButton *m_removeButton;
};
