#pragma once

#include "Engine/Locations/EngineLocationsController.h"
#include "Engine/Plugin/DeletedDatabases.h"
#include "Engine/Plugin/EngineContext.h"
#include "Engine/Plugin/RemovedLocations.h"
#include "Engine/Synchronization/EngineDispatcher.h"
#include "Host/QVSyncPlugin.h"

class DirectConnectionServer;
class EngineNoteLibrary;
class LocalStore;
class ServedStoreSynchronizer;

/// The engine as the host's sync plug-in. It owns the locations, the dispatcher and the server, and
/// connects them: removing a location cancels its jobs, and later forgets what was kept for it
/// (RemovedLocations). Must be used on the main thread.
///
/// Folder grants are stored in the profile immediately. If the profile's setting
/// "usesSandboxedAccess" is on, folder stores outside of all granted folders fail; nothing else is
/// restricted.
class EngineSyncPlugin : public QVSyncPlugin {
    Q_OBJECT
public:
    /// Neither argument is owned; both must outlive this object. The profile need not be open yet.
    EngineSyncPlugin(const ProfileDatabase &profile, EngineNoteLibrary &library);
    /// Stops the server, and cancels running jobs and waits for them, see ~EngineDispatcher().
    /// Operations of stores that others hold must be ended before, see StoreOperations::end().
    ~EngineSyncPlugin() override;

    /// Reads the stored data from the profile. Must be called once, after the profile was opened
    /// and the library was loaded. If it fails, this object must not be used. Blocks for the disk;
    /// accesses no location.
    Expected<void> load();
    /// Starts the direct-connection server if the user has enabled it. Must be called after load().
    /// Errors are presented to the user from the event loop, see
    /// QVDirectConnectionServer::startServing().
    void startServer();
    /// Forgets what was kept for databases that were deleted, and locations that were removed, in
    /// former runs. Must be called after load(). Failures are logged and do not concern the user
    /// otherwise: it is tried again in the next run.
    void forgetRemovals() {
        m_deletedDatabases->start();
        m_removedLocations->start();
    }
    /// Owned by this object.
    DeletedDatabases &deletedDatabases() { return *m_deletedDatabases; }
    /// Owned by this object.
    RemovedLocations &removedLocations() { return *m_removedLocations; }
    /// Returns a new location that is in no list. Never null. `URL` may be nil. It is not saved
    /// unless it is inserted into the list of locationsController().
    std::shared_ptr<EngineSyncLocation> newLocation(const Url &URL) const;
    /// Returns the kind of locations with `URL`. Valid as long as this object.
    const EngineLocationKind &kindForURL(const Url &URL) const { return m_kinds->kindForURL(URL); }
    /// Returns what the stores share. Valid as long as this object.
    const EngineContext &context() const { return m_context; }
    /// Stores the setting in the profile. Takes effect at once, except for files that are open. If
    /// it cannot be written, the setting is unchanged; if it cannot be read again, the profile
    /// counts as sandboxed without grants. Blocks for a disk write.
    Expected<void> setUsesSandboxedAccess(bool usesSandboxedAccess);

    /// These are owned by this object, and never null.
    QVSyncLocationsController *locationsController() const override;
    QVSyncDispatcher *dispatcher() const override;
    QVDirectConnectionServer *server() const override;
    /// Returns the store of this computer's databases; null before load().
    std::shared_ptr<QVSyncStore> localStore() const override;
    /// Returns the setting as it was last read from or written to the profile.
    bool usesSandboxedAccess() const override;
    /// Grants access to the folder, or withdraws it, and saves that. URLs other than file URLs are
    /// ignored. A failure is presented to the user, and the grants are unchanged if they cannot be
    /// written. Blocks for a disk write.
    void bookmarkURL(const Url &URL) override;
    void removeBookmarkForURL(const Url &URL) override;
    /// Returns the granted paths in the order in which they were granted.
    QStringList bookmarkDictionaryKeys() const override;
    /// See MountedVolumes::contain(). If the list of volumes cannot be read, returns true and
    /// writes the reason to the log of the application: an access then fails with a better error.
    bool isVolumeMountedAtPath(const QString &path) const override;

private:
    const ProfileDatabase &m_profile;
    EngineNoteLibrary &m_library;
    /// Declared first, so that it is destroyed after all objects with worker threads.
    EngineContext m_context;
    const std::shared_ptr<const EngineLocationKinds> m_kinds;
    const std::unique_ptr<EngineLocationsController> m_locationsController;
    const std::unique_ptr<EngineDispatcher> m_dispatcher;
    const std::unique_ptr<RemovedLocations> m_removedLocations;
    const std::unique_ptr<DeletedDatabases> m_deletedDatabases;
    /// Null before load(), as is the synchronizer.
    std::shared_ptr<LocalStore> m_localStore;
    std::unique_ptr<ServedStoreSynchronizer> m_servedStoreSynchronizer;
    const std::unique_ptr<DirectConnectionServer> m_server;
};
