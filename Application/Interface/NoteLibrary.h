#pragma once

#include <QtCore/QObject>
#include <memory>

#include "Application/Interface/NoteDatabase.h"

/// How long a profile keeps replaced and deleted notes. Beyond the limits, the oldest are removed.
struct HistoryLimits {
    int days = 30;
    /// For all databases together, in units of 1,048,576 bytes.
    int megabytes = 256;
    bool operator==(const HistoryLimits &) const = default;
};

/// All databases of a profile, open or closed, as the application manages them. Must be used on the
/// main thread. A call that returns an error has no effect; otherwise the change is durable when
/// the call returns. Every database that is passed in must come from this library.
class INTERFACE_EXPORT NoteLibrary : public QObject {
    Q_OBJECT
public:
    ~NoteLibrary() override;

    /// Returns all databases: the inbox first, then the others by age, oldest first. Ownership is
    /// shared.
    virtual QList<std::shared_ptr<NoteDatabase>> knownDatabases() const = 0;
    /// Returns the inbox; never null.
    virtual std::shared_ptr<NoteDatabase> inbox() const = 0;
    /// Creates a database and opens it. Fails if `name` is empty, blank or too long.
    virtual Expected<void> createDatabase(const QString &name) = 0;
    /// Renames `database`. Fails if `name` is empty, blank or too long.
    virtual Expected<void> renameDatabase(const std::shared_ptr<NoteDatabase> &database,
                                          const QString &name) = 0;
    /// Opens `database`, which must not be null; does nothing if it is open.
    virtual Expected<void> openDatabase(const std::shared_ptr<NoteDatabase> &database) = 0;
    /// Closes `database`, which must not be null and should not be the inbox; does nothing if it is
    /// closed.
    virtual Expected<void> closeDatabase(const std::shared_ptr<NoteDatabase> &database) = 0;

    /// Deletes `database`, which must not be null nor the inbox: it is no longer known, it is not
    /// synchronized any more, and its states are disabled. Sync locations keep it. It can be
    /// restored within RemovalUndoTime, as long as the profile is open; after that, or at the next
    /// start, the profile forgets its notes with their versions, its states and its schedules.
    virtual Expected<void> deleteDatabase(const std::shared_ptr<NoteDatabase> &database) = 0;
    /// Returns the databases that can be restored; the one deleted last comes last.
    virtual QList<std::shared_ptr<NoteDatabase>> deletedDatabases() const = 0;
    /// Restores a database of `deletedDatabases()`, with its notes, states and schedules; it is
    /// open if it was. Fails if it can no longer be restored.
    virtual Expected<void> restoreDatabase(const std::shared_ptr<NoteDatabase> &database) = 0;

    /// Returns the limits for replaced and deleted notes, or the defaults if none were set.
    virtual Expected<HistoryLimits> historyLimits() const = 0;
    /// Returns how many versions setHistoryLimits() would remove now. Changes nothing.
    virtual Expected<qint64> countOfVersionsBeyond(const HistoryLimits &limits) const = 0;
    /// Changes the limits, which must not be negative, and removes what exceeds them: some of it at
    /// once, the rest soon, in short steps.
    virtual Expected<void> setHistoryLimits(const HistoryLimits &limits) = 0;

Q_SIGNALS:
    /// Emitted after a database was created or arrived by a synchronization, or was deleted or
    /// restored.
    void knownDatabasesChanged();
    /// Emitted after `deletedDatabases()` has changed.
    void deletedDatabasesChanged();
};
