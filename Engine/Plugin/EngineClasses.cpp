#include "Engine/Plugin/EngineClasses.h"

#include "Engine/DirectConnection/DirectConnection.h"
#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Locations/EngineLocationFormatter.h"
#include "Engine/Plugin/SyncEngine.h"
#include "Engine/Schedules/EngineDailySchedule.h"
#include "Engine/Schedules/EngineHourlySchedule.h"
#include "Engine/Schedules/EngineSchedule.h"
#include "Engine/Schedules/EngineWeeklySchedule.h"
#include "Engine/Stores/Dropbox/DropboxSessionManager.h"
#include "Host/QVDirectConnectionServer.h"

namespace {

/// A database that is only at a location, not on this computer.
class LocationDatabase : public QVDatabase {
public:
    LocationDatabase(const QString &UUID, const QString &name) : m_UUID(UUID), m_name(name) {}
    QString UUID() const override { return m_UUID; }
    QString name() const override { return m_name; }

private:
    const QString m_UUID;
    const QString m_name;
};

class SyncPluginClass : public QVSyncPlugin::Class {
public:
    explicit SyncPluginClass(SyncEngine &engine) : m_engine(engine) {}
    bool isAvailable() const override { return true; }
    QVSyncPlugin *plugin() const override { return &m_engine.plugin(); }
    std::shared_ptr<QVDatabase> databaseForUUID(const QString &UUID,
                                                bool lookingUpAllKnownDatabases) const override {
        const EngineNoteLibrary *library = m_engine.library();
        if (!library) {
            return nullptr;
        }
        if (const std::shared_ptr<NoteDatabase> database = library->databaseForUUID(UUID)) {
            return database;
        }
        return lookingUpAllKnownDatabases ? databaseAtLocations(UUID) : nullptr;
    }

private:
    std::shared_ptr<QVDatabase> databaseAtLocations(const QString &UUID) const {
        for (const auto &location : m_engine.plugin().locationsController()->syncLocations()) {
            if (const auto state = location->stateForDatabaseWithUUID(UUID)) {
                return std::make_shared<LocationDatabase>(UUID, state->databaseName());
            }
        }
        return nullptr;
    }

    SyncEngine &m_engine;
};

class DatabaseClass : public QVDatabase::Class {
public:
    explicit DatabaseClass(SyncEngine &engine) : m_engine(engine) {}
    QList<std::shared_ptr<QVDatabase>> databases() const override {
        const EngineNoteLibrary *library = m_engine.library();
        return library ? library->openDatabases() : QList<std::shared_ptr<QVDatabase>>();
    }

private:
    SyncEngine &m_engine;
};

class SyncLocationClass : public QVSyncLocation::Class {
public:
    explicit SyncLocationClass(const EngineSyncPlugin &plugin) : m_plugin(plugin) {}

private:
    std::shared_ptr<QVSyncLocation> syncLocationWithURL(const Url &URL) const override {
        return m_plugin.newLocation(URL);
    }

    const EngineSyncPlugin &m_plugin;
};

class SyncLocationFormatterClass : public QVSyncLocationFormatter::Class {
public:
    explicit SyncLocationFormatterClass(const EngineSyncPlugin &plugin) : m_plugin(plugin) {}

private:
    std::unique_ptr<QVSyncLocationFormatter> formatterForLocationWithURL(
        const Url &URL) const override {
        return std::make_unique<EngineLocationFormatter>(
            URL, m_plugin.kindForURL(URL), m_plugin.locationsController()->syncLocations());
    }

    const EngineSyncPlugin &m_plugin;
};

class SyncScheduleClass : public QVSyncSchedule::Class {
    QVSyncSchedulePtr newSchedule() const override { return std::make_shared<EngineSchedule>(); }
};

class HourlyScheduleClass : public QVHourlySchedule::Class {
    std::shared_ptr<const QVHourlySchedule> newHourlySchedule() const override {
        return initWithHourlyOffset(EngineHourlySchedule::DefaultOffset);
    }
    std::shared_ptr<const QVHourlySchedule> initWithHourlyOffset(
        quint32 hourlyOffset) const override {
        return std::make_shared<EngineHourlySchedule>(hourlyOffset);
    }
};

class DailyScheduleClass : public QVDailySchedule::Class {
    std::shared_ptr<const QVDailySchedule> initWithHourAndMinute(
        const std::optional<HourAndMinute> &hourAndMinute) const override {
        return std::make_shared<EngineDailySchedule>(hourAndMinute);
    }
};

class WeeklyScheduleClass : public QVWeeklySchedule::Class {
    std::shared_ptr<const QVWeeklySchedule> initWithHourAndMinute(
        const std::optional<HourAndMinute> &hourAndMinute, quint64 daysOfWeek) const override {
        return std::make_shared<EngineWeeklySchedule>(hourAndMinute, daysOfWeek);
    }
};

class FutureClass : public PZFuture::Class {
    std::shared_ptr<PZFuture> future() const override { return std::make_shared<EngineFuture>(); }
};

class DirectConnectionServerClass : public QVDirectConnectionServer::Class {
    QString URLScheme() const override { return DirectConnection::URLScheme; }
    quint16 defaultPort() const override { return DirectConnection::DefaultPort; }
    QString bonjourServiceType() const override { return DirectConnection::BonjourServiceType; }
    QString clientAuthorizationServiceName() const override {
        return DirectConnection::ClientAuthorizationServiceName;
    }
};

/// A class object and its registration.
template <class ClassObject>
struct Registered {
    template <class... Arguments>
    explicit Registered(Arguments &&...arguments)
        : object(std::forward<Arguments>(arguments)...), registration(&object) {}
    ClassObject object;
    HostClassRegistration registration;
};

}  // namespace

struct EngineClasses::Objects {
    explicit Objects(SyncEngine &engine)
        : plugin(engine), database(engine), location(engine.plugin()), formatter(engine.plugin()) {}

    Registered<SyncPluginClass> plugin;
    Registered<DatabaseClass> database;
    Registered<SyncLocationClass> location;
    Registered<SyncLocationFormatterClass> formatter;
    Registered<SyncScheduleClass> schedule;
    Registered<HourlyScheduleClass> hourly;
    Registered<DailyScheduleClass> daily;
    Registered<WeeklyScheduleClass> weekly;
    Registered<FutureClass> future;
    Registered<DropboxSessionManager> dropbox;
    Registered<DirectConnectionServerClass> server;
};

EngineClasses::EngineClasses(SyncEngine &engine) : m_objects(std::make_unique<Objects>(engine)) {}

EngineClasses::~EngineClasses() = default;
