#include "Support/ScriptedHost.h"

#include "Engine/DirectConnection/DirectConnection.h"
#include "Host/QVSyncLocation.h"
#include "Host/QVSyncStore.h"
#include "Platform/KeyValue/KeyValue.h"
#include "Platform/Network/NetService.h"

void ScriptedConnectionServer::setPort(quint16 port) {
    calls.append(QStringLiteral("port %1").arg(port));
    m_port = port;
}

void ScriptedConnectionServer::startServing() {
    calls.append(QStringLiteral("start"));
    setServing(!cannotServe);
}

void ScriptedConnectionServer::stopServing() {
    calls.append(QStringLiteral("stop"));
    setServing(false);
}

void ScriptedConnectionServer::setServing(bool isServing) {
    m_isServing = isServing;
    KeyValue::announce<&ScriptedConnectionServer::servingChanged>(this);
}

void RecordingFuture::cascadeCancellationToFuture(const std::shared_ptr<PZFuture> &future) {
    cascades.append(future);
    EngineFuture::cascadeCancellationToFuture(future);
}

void RecordingFuture::passControlToFuture(const std::shared_ptr<PZFuture> &future) {
    passes.append(future);
    // Which is how the engine does it; not through the record above.
    EngineFuture::cascadeCancellationToFuture(future);
}

namespace {

class ScriptedDispatcher : public QVSyncDispatcher {
public:
    explicit ScriptedDispatcher(ScriptedHost *host) : m_host(host) {}
    void cleanRemoteStoreWithSynchronizationState(const std::shared_ptr<QVSyncState> & /*state*/,
                                                  std::function<void()> /*handler*/) override {}
    void performSynchronizationsWithSynchronizationStates(const QVSyncStates &states) override {
        QStringList call{QStringLiteral("synchronize")};
        for (const auto &state : states) {
            call.append(state->databaseUUID());
        }
        m_host->calls.append(call.join(u' '));
    }
    void performSynchronizationsWithSynchronizationStates(
        const QVSyncStates & /*states*/, std::function<void()> /*handler*/) override {}
    QString activity() const override { return {}; }

private:
    ScriptedHost *const m_host;
};

class ScriptedLocations : public QVSyncLocationsController {
public:
    explicit ScriptedLocations(ScriptedHost *host) : m_host(host) {}
    QList<std::shared_ptr<QVSyncLocation>> syncLocations() const override {
        return m_host->locations;
    }
    qsizetype countOfSyncLocations() const override { return m_host->locations.size(); }
    void insertObjectInSyncLocationsAtIndex(const std::shared_ptr<QVSyncLocation> &location,
                                            qsizetype index) override {
        m_host->locations.insert(index, location);
    }
    qsizetype indexOfObjectInSyncLocations(
        const std::shared_ptr<QVSyncLocation> &location) const override {
        return m_host->locations.indexOf(location);
    }
    void removeObjectFromSyncLocationsAtIndex(qsizetype index) override {
        m_host->locations.removeAt(index);
    }
    bool save(std::optional<Error> *error) override {
        m_host->calls.append(error ? QStringLiteral("save with error") : QStringLiteral("save"));
        return m_host->saves;
    }

private:
    ScriptedHost *const m_host;
};

class ScriptedPlugin : public QVSyncPlugin {
public:
    explicit ScriptedPlugin(ScriptedHost *host)
        : m_host(host), m_locations(host), m_dispatcher(host) {}
    QVSyncLocationsController *locationsController() const override { return &m_locations; }
    QVSyncDispatcher *dispatcher() const override { return &m_dispatcher; }
    QVDirectConnectionServer *server() const override { return &m_host->server; }
    std::shared_ptr<QVSyncStore> localStore() const override { return nullptr; }
    bool usesSandboxedAccess() const override { return true; }
    void bookmarkURL(const Url &URL) override {
        m_host->calls.append(QStringLiteral("bookmark ") + URL.absoluteString());
    }
    void removeBookmarkForURL(const Url &URL) override {
        m_host->calls.append(QStringLiteral("remove ") + URL.absoluteString());
    }
    QStringList bookmarkDictionaryKeys() const override { return m_host->bookmarks; }
    bool isVolumeMountedAtPath(const QString & /*path*/) const override { return true; }

private:
    ScriptedHost *const m_host;
    mutable ScriptedLocations m_locations;
    mutable ScriptedDispatcher m_dispatcher;
};

class ScriptedPluginClass : public QVSyncPlugin::Class {
public:
    ScriptedPluginClass(ScriptedHost *host, QVSyncPlugin *plugin)
        : m_host(host), m_plugin(plugin) {}
    bool isAvailable() const override { return true; }
    QVSyncPlugin *plugin() const override { return m_plugin; }
    std::shared_ptr<QVDatabase> databaseForUUID(const QString &UUID,
                                                bool lookingUpAllKnownDatabases) const override {
        m_host->calls.append(QStringLiteral("database %1 %2")
                                 .arg(UUID, lookingUpAllKnownDatabases ? QStringLiteral("YES")
                                                                       : QStringLiteral("NO")));
        return nullptr;
    }

private:
    ScriptedHost *const m_host;
    QVSyncPlugin *const m_plugin;
};

class ScriptedConnectionServerClass : public QVDirectConnectionServer::Class {
public:
    QString URLScheme() const override { return DirectConnection::URLScheme; }
    quint16 defaultPort() const override { return DirectConnection::DefaultPort; }
    QString bonjourServiceType() const override { return DirectConnection::BonjourServiceType; }
    QString clientAuthorizationServiceName() const override {
        return DirectConnection::ClientAuthorizationServiceName;
    }
};

class ScriptedFutureClass : public PZFuture::Class {
public:
    explicit ScriptedFutureClass(ScriptedHost *host) : m_host(host) {}
    std::shared_ptr<PZFuture> future() const override {
        m_host->futures.append(std::make_shared<RecordingFuture>());
        return m_host->futures.last();
    }

private:
    ScriptedHost *const m_host;
};

}  // namespace

struct ScriptedHost::Objects {
    explicit Objects(ScriptedHost *host)
        : plugin(host), pluginClass(host, &plugin), futureClass(host) {}

    ScriptedPlugin plugin;
    ScriptedPluginClass pluginClass;
    ScriptedConnectionServerClass serverClass;
    ScriptedFutureClass futureClass;
    HostClassRegistration pluginRegistration{&pluginClass};
    HostClassRegistration serverRegistration{&serverClass};
    HostClassRegistration futureRegistration{&futureClass};
};

ScriptedHost::ScriptedHost() : m_objects(std::make_unique<Objects>(this)) {}

ScriptedHost::~ScriptedHost() = default;
