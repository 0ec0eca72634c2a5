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
    /// In the order in which they were added.
    virtual QList<Note> notes() const = 0;
    /// Adds `note` or replaces the one of its UUID; an empty UUID gets a new one.
    virtual std::optional<Error> saveNote(Note &note) = 0;
    virtual std::optional<Error> removeNote(const QString &noteUUID) = 0;

Q_SIGNALS:
    void openChanged();
    void notesChanged();
};
