#pragma once

#include <QtCore/QDateTime>
#include <optional>

#include "Host/QVDatabase.h"
#include "Platform/Foundation/Error.h"

/// One note. A value.
struct Note {
    QString UUID;
    QString title;
    QString text;
    QDateTime modified;
    /// Which edit of the note this is; empty for a note that was never saved.
    QString revision = {};
    bool operator==(const Note &) const = default;
};

/// A database with its notes, as the application edits it. Main thread. Whatever answers an error
/// has changed nothing; whatever answers none is on disk.
class HOST_EXPORT NoteDatabase : public QVDatabase {
    Q_OBJECT
    Q_PROPERTY(bool open READ isOpen NOTIFY openChanged)
public:
    ~NoteDatabase() override;

    virtual bool isInbox() const = 0;
    virtual bool isOpen() const = 0;
    /// In the order in which they were added. Where a note was edited in two places at once, it is
    /// there once for each edit; all but one of these have UUIDs of their own and say so in their
    /// titles.
    virtual QList<Note> notes() const = 0;
    /// Adds `note` or replaces the edit that its revision names, then sets what it is called from
    /// now on. An empty UUID gets a new one. An empty revision stands for what the UUID now shows;
    /// where someone else has replaced the edit of the revision meanwhile, both are kept.
    virtual std::optional<Error> saveNote(Note &note) = 0;
    /// Harmless where there is no such note.
    virtual std::optional<Error> removeNote(const QString &noteUUID) = 0;

Q_SIGNALS:
    void openChanged();
    void notesChanged();
};
