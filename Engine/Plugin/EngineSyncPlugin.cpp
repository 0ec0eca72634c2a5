#include "Engine/Plugin/EngineSyncPlugin.h"

#include "Engine/DirectConnection/DirectConnectionServer.h"
#include "Engine/DirectConnection/ServedDatabases.h"
#include "Engine/Notes/EngineNoteLibrary.h"
#include "Engine/Plugin/BuiltInLocationKinds.h"
#include "Engine/Plugin/ServedStoreSynchronizer.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Stores/Folder/FolderGrants.h"
#include "Engine/Stores/Folder/LocalStore.h"
#include "Engine/Stores/Folder/MountedVolumes.h"
#include "Engine/Stores/Http/HttpSessions.h"
#include "Host/QVApplication.h"
#include "Host/QVJobLog.h"

namespace {

void presentIfFailed(const Expected<void> &result) {
    if (!result) {
        NSApp()->presentError(result.error());
    }
}

}  // namespace

EngineSyncPlugin::EngineSyncPlugin(const ProfileDatabase &profile, EngineNoteLibrary &library)
    : m_profile(profile),
      m_library(library),
      m_context(profile),
      m_kinds(std::make_shared<EngineLocationKinds>(m_context.storeOperations,
                                                    builtInLocationKinds(m_context))),
      m_locationsController(std::make_unique<EngineLocationsController>(profile, m_kinds)),
      m_dispatcher(std::make_unique<EngineDispatcher>(profile, library, *m_locationsController)),
      m_removedLocations(
          std::make_unique<RemovedLocations>(profile, *m_locationsController, *m_kinds)),
      m_deletedDatabases(std::make_unique<DeletedDatabases>(profile, library,
                                                            *m_locationsController, *m_dispatcher)),
      m_server(std::make_unique<DirectConnectionServer>(profile)) {
    connect(m_locationsController.get(), &EngineLocationsController::locationRemoved, this,
            [this](const QString &identifier) { m_context.httpSessions->forget(identifier); });
    connect(m_locationsController.get(), &EngineLocationsController::locationRemoved,
            m_dispatcher.get(), &EngineDispatcher::cancelJobsOfLocation);
    connect(m_locationsController.get(), &EngineLocationsController::locationRemoved,
            m_removedLocations.get(), &RemovedLocations::didRemoveLocation);
    connect(m_locationsController.get(), &EngineLocationsController::addressReplaced,
            m_removedLocations.get(), &RemovedLocations::didRemoveLocation);
}

EngineSyncPlugin::~EngineSyncPlugin() = default;

Expected<void> EngineSyncPlugin::load() {
    m_localStore = std::make_shared<LocalStore>(newLocation(Url::fileURL(m_profile.directory())),
                                                m_context.storeOperations, m_profile.path());
    const auto servedDatabases = std::make_shared<ServedDatabases>(m_profile);
    if (Expected<void> loaded =
            m_context.load()
                .and_then([this] { return m_locationsController->load(); })
                .and_then([&] { return servedDatabases->load(); })
                .and_then([&] { return m_deletedDatabases->load(servedDatabases); });
        !loaded) {
        return loaded;
    }
    const QString servedPath = DirectConnectionPackage::pathInProfile(m_profile.directory());
    const auto served = newLocation(Url::fileURL(servedPath));
    m_servedStoreSynchronizer = std::make_unique<ServedStoreSynchronizer>(*m_dispatcher, m_library,
                                                                          served, servedDatabases);
    m_server->load(DirectConnectionPackage(servedPath, served->createBlobStore(), servedDatabases),
                   *m_servedStoreSynchronizer);
    m_server->offerChoice(m_library, servedDatabases);
    return {};
}

void EngineSyncPlugin::startServer() {
    m_server->startIfEnabled();
}

std::shared_ptr<EngineSyncLocation> EngineSyncPlugin::newLocation(const Url &URL) const {
    return std::make_shared<EngineSyncLocation>(URL, m_kinds);
}

Expected<void> EngineSyncPlugin::setUsesSandboxedAccess(bool usesSandboxedAccess) {
    return m_context.folderGrants->setNeeded(usesSandboxedAccess);
}

QVSyncLocationsController *EngineSyncPlugin::locationsController() const {
    return m_locationsController.get();
}

QVSyncDispatcher *EngineSyncPlugin::dispatcher() const {
    return m_dispatcher.get();
}

QVDirectConnectionServer *EngineSyncPlugin::server() const {
    return m_server.get();
}

std::shared_ptr<QVSyncStore> EngineSyncPlugin::localStore() const {
    return m_localStore;
}

bool EngineSyncPlugin::usesSandboxedAccess() const {
    return m_context.folderGrants->areNeeded();
}

void EngineSyncPlugin::bookmarkURL(const Url &URL) {
    if (URL.isFileURL()) {
        presentIfFailed(m_context.folderGrants->add(URL.path()));
    }
}

void EngineSyncPlugin::removeBookmarkForURL(const Url &URL) {
    if (URL.isFileURL()) {
        presentIfFailed(m_context.folderGrants->remove(URL.path()));
    }
}

QStringList EngineSyncPlugin::bookmarkDictionaryKeys() const {
    return m_context.folderGrants->paths();
}

bool EngineSyncPlugin::isVolumeMountedAtPath(const QString &path) const {
    const Expected<bool> isMounted = MountedVolumes::contain(path, MountedVolumes::mountPoints);
    if (!isMounted) {
        QVJobLog::logMessage(isMounted.error().localizedDescription);
    }
    return isMounted.value_or(true);
}
