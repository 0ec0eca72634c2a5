#pragma once

#include "Engine/Locations/EngineLocationsController.h"
#include "Engine/Plugin/EngineContext.h"
#include "Engine/Synchronization/EngineDispatcher.h"
#include "Host/QVSyncPlugin.h"

class DirectConnectionServer;
class EngineNoteLibrary;
class LocalStore;
class ServedStoreSynchronizer;

/// Folder grants are a plain list kept in the profile, at once. Where the profile's setting
/// "usesSandboxedAccess" is on, folder stores outside every granted folder fail; nothing else is
/// sandboxed.
class EngineSyncPlugin : public QVSyncPlugin {
    Q_OBJECT
public:
    /// `profile` and `library` must outlive this.
    EngineSyncPlugin(const ProfileDatabase &profile, EngineNoteLibrary &library);
    ~EngineSyncPlugin() override;

    /// Takes over what the profile holds; called once, when it was opened.
    Expected<void> load();
    /// Starts the direct-connection server if the user has enabled it.
    void startServer();
    /// Returns a new location that is in no list yet.
    std::shared_ptr<EngineSyncLocation> newLocation(const Url &URL) const;
    /// Returns the kind of locations with `URL`, valid as long as this object.
    const EngineLocationKind &kindForURL(const Url &URL) const { return m_kinds->kindForURL(URL); }
    const EngineContext &context() const { return m_context; }
    /// Changes the profile's setting.
    Expected<void> setUsesSandboxedAccess(bool usesSandboxedAccess);

    QVSyncLocationsController *locationsController() const override;
    QVSyncDispatcher *dispatcher() const override;
    QVDirectConnectionServer *server() const override;
    /// There once a profile is open.
    std::shared_ptr<QVSyncStore> localStore() const override;
    bool usesSandboxedAccess() const override;
    void bookmarkURL(const Url &URL) override;
    void removeBookmarkForURL(const Url &URL) override;
    QStringList bookmarkDictionaryKeys() const override;
    bool isVolumeMountedAtPath(const QString &path) const override;

private:
    const ProfileDatabase &m_profile;
    EngineNoteLibrary &m_library;
    /// Before everything that has worker threads.
    EngineContext m_context;
    const std::shared_ptr<const EngineLocationKinds> m_kinds;
    const std::unique_ptr<EngineLocationsController> m_locationsController;
    const std::unique_ptr<EngineDispatcher> m_dispatcher;
    std::shared_ptr<LocalStore> m_localStore;
    std::unique_ptr<ServedStoreSynchronizer> m_servedStoreSynchronizer;
    const std::unique_ptr<DirectConnectionServer> m_server;
};
