#include "HostCheck/ServicePromises.h"

#include "Host/QVDirectConnectionServer.h"
#include "Host/QVDropboxSessionManager.h"
#include "HostCheck/Checking.h"

using namespace Checking;

namespace ServicePromises {
namespace {

constexpr char Server[] = "Host/QVDirectConnectionServer.h";

QVDirectConnectionServer &server() {
    classObject<QVDirectConnectionServer::Class>("QVDirectConnectionServer");
    auto *found = QVSyncPlugin::plugin()->server();
    requireOffer(found != nullptr);
    return *found;
}

void schemeIsInLowerCase() {
    server();
    const QString scheme = QVDirectConnectionServer::URLScheme();
    require(!scheme.isEmpty() && scheme == scheme.toLower(), "it is empty or not in lower case");
}

void portsAreNotNull() {
    require(server().port() != 0, "the port is 0");
    require(QVDirectConnectionServer::defaultPort() != 0, "the default port is 0");
}

void portIsAnnounced() {
    QVDirectConnectionServer &checked = server();
    const quint16 former = checked.port();
    requireOffer(!checked.isServing());
    int count = 0;
    QObject receiver;
    QObject::connect(&checked, &QVDirectConnectionServer::portChanged, &receiver, [&] { ++count; });
    for (const quint16 port : {quint16(40000), quint16(40000), former, quint16(0)}) {
        count = 0;
        checked.setPort(port);
        require(count == 1, "setting the port does not announce it once");
        require(checked.port() == (port ? port : QVDirectConnectionServer::defaultPort()),
                "the port is not the one that was set");
    }
    checked.setPort(former);
}

void stoppedServerIsNotStopped() {
    requireOffer(!server().isServing());
    int count = 0;
    QObject receiver;
    QObject::connect(&server(), &QVDirectConnectionServer::servingChanged, &receiver,
                     [&] { ++count; });
    server().stopServing();
    require(count == 0 && !server().isServing(), "stopping a server that is stopped has an effect");
}

void stoppedServerIsNotAnnounced() {
    requireOffer(!server().isServing());
    require(!server().bonjourService(), "a server that is stopped is announced");
    require(server().addressText().isEmpty(), "a server that is stopped has an address");
}

void sessionsAreNotNull() {
    auto &manager = classObject<QVDropboxSessionManager>("QVDropboxSessionManager");
    for (const char *text : {"", "dropbox://person@localhost"}) {
        require(manager.sessionWithURL(Url::fromString(QString::fromUtf8(text))) != nullptr,
                "it is null");
    }
}

constexpr HostPromise Promises[] = {
    {"QVDirectConnectionServer.URLScheme", Server,
     "Returns the URL scheme of direct-connection locations, in lower case;", &schemeIsInLowerCase},
    {"QVDirectConnectionServer.port", Server, "Never 0.", &portsAreNotNull},
    {"QVDirectConnectionServer.setPort", Server,
     "Sets the port and emits portChanged(), also if the port stays the same. 0 selects "
     "defaultPort().",
     &portIsAnnounced},
    {"QVDirectConnectionServer.stopServing", Server, "Has no effect unless the server is serving.",
     &stoppedServerIsNotStopped},
    {"QVDirectConnectionServer.bonjourService", Server,
     "Returns the announcement of this server on the local network, or nullptr unless the server "
     "is serving.",
     &stoppedServerIsNotAnnounced},
    {"QVDropboxSessionManager.sessionWithURL", "Host/QVDropboxSessionManager.h",
     "Returns a new session for the location with this URL; a nil URL stands for a location that "
     "is not configured yet. Never null.",
     &sessionsAreNotNull},
};

}  // namespace

QList<HostPromise> all() {
    return {std::begin(Promises), std::end(Promises)};
}

}  // namespace ServicePromises
