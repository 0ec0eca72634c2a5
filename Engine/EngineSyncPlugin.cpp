#include "Engine/EngineSyncPlugin.h"

#include "Engine/DirectConnectionPairings.h"
#include "Engine/DirectConnectionServer.h"
#include "Engine/DirectConnectionSynchronizer.h"
#include "Engine/LocalStore.h"
#include "Engine/MountedVolumes.h"
#include "Engine/ProfileDatabase.h"
#include "Platform/Foundation/Log.h"

namespace {

const QString SandboxSetting = QStringLiteral("usesSandboxedAccess");

void logIfFailed(const std::optional<Error> &error) {
    if (error) {
        Log::message(error->localizedDescription);
    }
}

}  // namespace

EngineSyncPlugin::EngineSyncPlugin(const ProfileDatabase &profile, EngineNoteLibrary &library)
    : m_profile(profile),
      m_library(library),
      m_locationsController(std::make_unique<EngineLocationsController>(profile)),
      m_dispatcher(std::make_unique<EngineDispatcher>(profile, library)),
      m_pairings(std::make_unique<DirectConnectionPairings>(profile)),
      m_server(std::make_unique<DirectConnectionServer>(profile)) {}

EngineSyncPlugin::~EngineSyncPlugin() = default;

std::optional<Error> EngineSyncPlugin::load() {
    const auto location = std::make_shared<EngineSyncLocation>(Url::fileURL(m_profile.directory()));
    m_localStore = std::make_shared<LocalStore>(location, m_profile.path());
    if (std::optional<Error> error = m_locationsController->load()) {
        return error;
    }
    m_pairings->load();
    const DirectConnectionPackage package(m_profile.directory());
    m_serverHook =
        std::make_unique<DirectConnectionSynchronizer>(*m_dispatcher, m_library, package.path());
    m_server->load(package, *m_serverHook);
    return {};
}

std::optional<Error> EngineSyncPlugin::setUsesSandboxedAccess(bool usesSandboxedAccess) {
    return m_profile.run(QStringLiteral("INSERT INTO settings (key, value) VALUES (?, ?)"
                                        " ON CONFLICT (key) DO UPDATE SET value = excluded.value"),
                         {SandboxSetting, usesSandboxedAccess});
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
    return m_profile
        .value(QStringLiteral("SELECT value FROM settings WHERE key = ?"), {SandboxSetting})
        .toBool();
}

void EngineSyncPlugin::bookmarkURL(const Url &URL) {
    if (URL.isFileURL()) {
        logIfFailed(m_profile.run(QStringLiteral("INSERT OR IGNORE INTO grants (path) VALUES (?)"),
                                  {ProfileDatabase::text(URL.path())}));
    }
}

void EngineSyncPlugin::removeBookmarkForURL(const Url &URL) {
    if (URL.isFileURL()) {
        logIfFailed(m_profile.run(QStringLiteral("DELETE FROM grants WHERE path = ?"),
                                  {ProfileDatabase::text(URL.path())}));
    }
}

QStringList EngineSyncPlugin::bookmarkDictionaryKeys() const {
    QSqlQuery rows = m_profile.prepare(QStringLiteral("SELECT path FROM grants ORDER BY id"));
    rows.exec();
    QStringList paths;
    while (rows.next()) {
        paths.append(rows.value(0).toString());
    }
    return paths;
}

bool EngineSyncPlugin::isVolumeMountedAtPath(const QString &path) const {
    return MountedVolumes::contain(path, MountedVolumes::mountPoints);
}
