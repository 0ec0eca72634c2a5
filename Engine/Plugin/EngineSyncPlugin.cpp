#include "Engine/Plugin/EngineSyncPlugin.h"

#include "Engine/DirectConnection/DirectConnectionPairings.h"
#include "Engine/DirectConnection/DirectConnectionServer.h"
#include "Engine/Plugin/EngineLocationKinds.h"
#include "Engine/Plugin/ServedStoreSynchronizer.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Stores/Folder/FolderGrants.h"
#include "Engine/Stores/Folder/LocalStore.h"
#include "Engine/Stores/Folder/MountedVolumes.h"
#include "Platform/Foundation/Log.h"

namespace {

void logIfFailed(const Expected<void> &result) {
    if (!result) {
        Log::message(result.error().localizedDescription);
    }
}

}  // namespace

EngineSyncPlugin::EngineSyncPlugin(const ProfileDatabase &profile, EngineNoteLibrary &library)
    : m_profile(profile),
      m_library(library),
      m_kinds(std::make_shared<LocationKinds>(engineLocationKinds())),
      m_locationsController(std::make_unique<EngineLocationsController>(profile, m_kinds)),
      m_dispatcher(std::make_unique<EngineDispatcher>(profile, library)),
      m_grants(std::make_unique<FolderGrants>(profile)),
      m_pairings(std::make_unique<DirectConnectionPairings>(profile)),
      m_server(std::make_unique<DirectConnectionServer>(profile)) {}

EngineSyncPlugin::~EngineSyncPlugin() = default;

Expected<void> EngineSyncPlugin::load() {
    m_localStore = std::make_shared<LocalStore>(newLocation(Url::fileURL(m_profile.directory())),
                                                m_profile.path());
    if (Expected<void> loaded = m_locationsController->load()
                                    .and_then([this] { return m_grants->load(); })
                                    .and_then([this] { return m_pairings->load(); });
        !loaded) {
        return loaded;
    }
    const QString servedPath = DirectConnectionPackage::pathInProfile(m_profile.directory());
    const auto served = newLocation(Url::fileURL(servedPath));
    m_servedStoreSynchronizer =
        std::make_unique<ServedStoreSynchronizer>(*m_dispatcher, m_library, served);
    m_server->load(DirectConnectionPackage(servedPath, served->createBlobStore()),
                   *m_servedStoreSynchronizer);
    return {};
}

void EngineSyncPlugin::startServer() {
    m_server->startIfEnabled();
}

std::shared_ptr<EngineSyncLocation> EngineSyncPlugin::newLocation(const Url &URL) const {
    return std::make_shared<EngineSyncLocation>(URL, m_kinds);
}

Expected<void> EngineSyncPlugin::setUsesSandboxedAccess(bool usesSandboxedAccess) {
    return m_grants->setNeeded(usesSandboxedAccess);
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
    return m_grants->areNeeded();
}

void EngineSyncPlugin::bookmarkURL(const Url &URL) {
    if (URL.isFileURL()) {
        logIfFailed(m_grants->add(URL.path()));
    }
}

void EngineSyncPlugin::removeBookmarkForURL(const Url &URL) {
    if (URL.isFileURL()) {
        logIfFailed(m_grants->remove(URL.path()));
    }
}

QStringList EngineSyncPlugin::bookmarkDictionaryKeys() const {
    return m_grants->paths();
}

bool EngineSyncPlugin::isVolumeMountedAtPath(const QString &path) const {
    return MountedVolumes::contain(path, MountedVolumes::mountPoints);
}
