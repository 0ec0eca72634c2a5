#include "Engine/Engine.h"

#include <QtCore/QFileInfo>

#include "Engine/EngineDispatcher.h"
#include "Engine/EngineFuture.h"
#include "Engine/EngineLocationFormatter.h"
#include "Engine/EngineLocationsController.h"
#include "Engine/EngineNoteLibrary.h"
#include "Engine/EngineSchedules.h"
#include "Engine/EngineServerClass.h"
#include "Engine/FirstProfile.h"
#include "Engine/LocalStore.h"
#include "Engine/MountedVolumes.h"
#include "Engine/ProfileDatabase.h"
#include "Host/QVApplication.h"

namespace {

class PluginClass : public QVSyncPlugin::Class {
public:
    explicit PluginClass(Engine *engine) : m_engine(engine) {}
    bool isAvailable() const override { return true; }
    QVSyncPlugin *plugin() const override { return m_engine; }
    std::shared_ptr<QVDatabase> databaseForUUID(const QString &UUID,
                                                bool lookingUpAllKnownDatabases) const override {
        const auto database = m_engine->library()->databaseForUUID(UUID);
        return database && (database->isOpen() || lookingUpAllKnownDatabases) ? database : nullptr;
    }

private:
    Engine *const m_engine;
};

class DatabaseClass : public QVDatabase::Class {
public:
    explicit DatabaseClass(Engine *engine) : m_engine(engine) {}
    QList<std::shared_ptr<QVDatabase>> databases() const override {
        return m_engine->library()->openDatabases();
    }

private:
    Engine *const m_engine;
};

/// A class object together with its registration.
template <class ClassObject>
struct Registered {
    template <class... Arguments>
    explicit Registered(const char *name, Arguments... arguments)
        : classObject(arguments...), registration(QLatin1StringView(name), &classObject) {}

    ClassObject classObject;
    HostClassRegistration registration;
};

}  // namespace

class Engine::Classes {
public:
    explicit Classes(Engine *engine)
        : m_plugin("QVSyncPlugin", engine), m_database("QVDatabase", engine) {}

private:
    Registered<PluginClass> m_plugin;
    Registered<DatabaseClass> m_database;
    Registered<EngineSyncLocation::Class> m_location{"QVSyncLocation"};
    Registered<EngineLocationFormatter::Class> m_formatter{"QVSyncLocationFormatter"};
    Registered<EngineFuture::Class> m_future{"PZFuture"};
    Registered<EngineServerClass> m_server{"QVDirectConnectionServer"};
    Registered<EngineSchedules::BaseClass> m_schedule{"QVSyncSchedule"};
    Registered<EngineSchedules::HourlyClass> m_hourly{"QVHourlySchedule"};
    Registered<EngineSchedules::DailyClass> m_daily{"QVDailySchedule"};
    Registered<EngineSchedules::WeeklyClass> m_weekly{"QVWeeklySchedule"};
};

std::unique_ptr<Engine> Engine::open(const QString &folder, FreshProfile fresh,
                                     std::optional<Error> *error) {
    auto profile = ProfileDatabase::open(folder, error);
    if (!profile) {
        return nullptr;
    }
    std::unique_ptr<Engine> engine(new Engine(std::move(profile)));
    *error = engine->load(fresh);
    return *error ? nullptr : std::move(engine);
}

Engine::Engine(std::unique_ptr<ProfileDatabase> profile)
    : m_profile(std::move(profile)),
      m_library(std::make_unique<EngineNoteLibrary>(m_profile.get())),
      m_locationsController(std::make_unique<EngineLocationsController>(m_profile.get())),
      m_dispatcher(std::make_unique<EngineDispatcher>()) {
    const auto localLocation =
        EngineSyncLocation::Class().syncLocationWithURL(Url::fileURL(m_profile->folder()));
    m_localStore = std::make_shared<LocalStore>(localLocation, [this] {
        QList<LocalStore::Entry> entries;
        for (const auto &database : m_library->knownDatabases()) {
            entries.append({database->isInbox() ? QStringLiteral("@inbox") : database->UUID(),
                            database->name()});
        }
        return entries;
    });
    m_classes = std::make_unique<Classes>(this);
}

Engine::~Engine() = default;

std::optional<Error> Engine::load(FreshProfile fresh) {
    std::optional<Error> error;
    if (m_profile->isFresh()) {
        error = fresh == FreshProfile::WithExamples ? fillFirstProfile(*m_profile)
                                                    : fillEmptyProfile(*m_profile);
    }
    if (!error) {
        error = m_library->load();
    }
    return error ? error : m_locationsController->load();
}

QVSyncLocationsController *Engine::locationsController() const {
    return m_locationsController.get();
}

QVSyncDispatcher *Engine::dispatcher() const {
    return m_dispatcher.get();
}

bool Engine::usesSandboxedAccess() const {
    bool usesIt = false;
    m_profile->select(
        QStringLiteral("SELECT value FROM settings WHERE key = 'usesSandboxedAccess'"), {},
        [&](const QSqlQuery &row) { usesIt = row.value(0).toBool(); });
    return usesIt;
}

void Engine::bookmarkURL(const Url &URL) {
    if (!URL.isFileURL()) {
        return;
    }
    const auto error = m_profile->transaction([&] {
        return m_profile->execute(
            QStringLiteral(
                "INSERT OR IGNORE INTO bookmarks VALUES (?, (SELECT coalesce(max(position), 0) + 1 "
                "FROM bookmarks))"),
            {URL.path()});
    });
    if (error) {
        NSApp()->presentError(*error);
    }
}

void Engine::removeBookmarkForURL(const Url &URL) {
    const auto error = m_profile->transaction([&] {
        return m_profile->execute(QStringLiteral("DELETE FROM bookmarks WHERE path = ?"),
                                  {URL.path()});
    });
    if (error) {
        NSApp()->presentError(*error);
    }
}

QStringList Engine::bookmarkDictionaryKeys() const {
    QStringList paths;
    m_profile->select(QStringLiteral("SELECT path FROM bookmarks ORDER BY position"), {},
                      [&](const QSqlQuery &row) { paths.append(row.value(0).toString()); });
    return paths;
}

bool Engine::isVolumeMountedAtPath(const QString &path) const {
    return isVolumeMounted(path);
}
