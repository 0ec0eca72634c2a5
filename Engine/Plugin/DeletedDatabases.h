#pragma once

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QSet>
#include <QtCore/QStringList>
#include <chrono>
#include <memory>

#include "Application/Interface/ProfileConstants.h"
#include "Engine/Foundation/WorkerThreads.h"
#include "Engine/Profile/LogMover.h"
#include "Platform/Foundation/Expected.h"

class EngineDispatcher;
class EngineLocationsController;
class EngineNoteLibrary;
class EngineSyncLocation;
class EngineSyncState;
class ProfileDatabase;
class ServedDatabases;

/// Ends the synchronization of databases that were deleted, and later forgets them: their notes,
/// states and schedules, and their copies in the store that this computer serves. From then on,
/// clients get nothing of such a database and cannot write it again. Sync locations are left alone.
///
/// The notes are erased in short steps, between which the main thread does other things; they are
/// no longer shown. A database that was deleted in a former run, whose end may have come at any
/// moment, is forgotten after the start; what fails is logged and tried again at the next one. Must
/// be used on the main thread.
class DeletedDatabases : public QObject {
    Q_OBJECT
public:
    /// The arguments are not owned and must outlive this object.
    DeletedDatabases(const ProfileDatabase &profile, EngineNoteLibrary &library,
                     EngineLocationsController &locations, EngineDispatcher &dispatcher);

    /// Replaces RemovalUndoTime for later deletions.
    void setUndoTime(std::chrono::milliseconds undoTime) { m_undoTime = undoTime; }
    /// Disables the states of the databases that were deleted in former runs, which are not saved.
    /// `served` must not be null. Must be called once, after the locations were loaded.
    Expected<void> load(std::shared_ptr<ServedDatabases> served);
    /// Forgets the databases that were deleted in former runs. Must be called once, after load().
    void start();
    /// Returns whether databases are being erased.
    bool isErasing() const { return m_isErasing || m_servedDeletions > 0; }

Q_SIGNALS:
    /// Emitted when the database can no longer be restored, before any of it is erased.
    void databaseForgotten(const QString &UUID);

private:
    /// What is undone with the deletion.
    struct Deletion {
        QList<std::shared_ptr<EngineSyncState>> enabledStates;
        bool wasServed = false;
        /// Distinguishes several deletions of one database.
        quint64 number = 0;
    };

    void didDelete(const QString &UUID);
    void didRestore(const QString &UUID);
    /// Removes the states of databases that were deleted while the location was not listed, so that
    /// it does not bring them back.
    void didInsert(EngineSyncLocation &location) const;
    void forget(const QString &UUID);
    /// Erases a part of the first database that is to be erased, and goes on later.
    void eraseSome();
    /// Moves the profile's log, which the erased rows have filled, on another thread, then goes on.
    void moveLog();
    /// Deletes the database from the store that this computer serves, where paired computers may
    /// have written very many files, on another thread. Then erases it.
    void deleteServed(const QString &UUID);
    /// Deletes it from the store with the path `store`. Thread-safe.
    static Expected<void> deleteServed(const QString &UUID, const QString &store);
    /// Begins to erase the database, which can no longer be restored.
    void erase(const QString &UUID);

    const ProfileDatabase &m_profile;
    EngineNoteLibrary &m_library;
    EngineLocationsController &m_locations;
    EngineDispatcher &m_dispatcher;
    /// Null before load().
    std::shared_ptr<ServedDatabases> m_served;
    std::chrono::milliseconds m_undoTime = RemovalUndoTime;
    QHash<QString, Deletion> m_deletions;
    quint64 m_lastNumber = 0;
    /// Those that were deleted in this run and not restored.
    QSet<QString> m_deleted;
    /// Those that can no longer be restored and are not erased yet.
    QStringList m_erased;
    bool m_isErasing = false;
    /// How many databases are being deleted from the store that this computer serves.
    int m_servedDeletions = 0;
    WorkerThreads m_threads;
    LogMover m_logMover;
};
