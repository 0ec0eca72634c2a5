#include "HostCheck/ServicePromises.h"

#include <QtCore/QRegularExpression>
#include <QtNetwork/QTcpServer>
#include <QtNetwork/QTcpSocket>

#include "Host/QVDirectConnectionServer.h"
#include "Host/QVDropboxSessionManager.h"
#include "Host/QVServedDatabase.h"
#include "HostCheck/ApplicationWatch.h"
#include "HostCheck/Checking.h"
#include "HostCheck/Handler.h"
#include "Platform/Network/NetService.h"

using namespace Checking;

namespace ServicePromises {
namespace {

constexpr char Server[] = "Host/QVDirectConnectionServer.h";

QVDirectConnectionServer &server() {
    classObject<QVDirectConnectionServer::Class>();
    auto *found = QVSyncPlugin::plugin()->server();
    requireOffer(found != nullptr);
    return *found;
}

void schemeIsInLowerCase() {
    server();
    const QString scheme = QVDirectConnectionServer::URLScheme();
    require(!scheme.isEmpty() && scheme == scheme.toLower(), "it is empty or not in lower case");
}

void serviceTypeIsOfTCP() {
    server();
    static const QRegularExpression type(
        QStringLiteral("^_(?=.{1,15}\\._)[A-Za-z0-9]+(-[A-Za-z0-9]+)*\\._tcp$"));
    require(type.match(QVDirectConnectionServer::bonjourServiceType()).hasMatch(),
            "it is no service type of TCP");
}

void unknownClientsHaveOneText() {
    require(server().lastConnectionText(newUUID()) == server().lastConnectionText(newUUID()),
            "two clients that have never connected have different texts");
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

/// Returns a port on which nothing listens now.
quint16 freePort() {
    QTcpServer listener;
    require(listener.listen(), "the check could not listen on this computer");
    return listener.serverPort();
}

/// Starts and stops the server on a free port, which it leaves with this object.
class Serving {
public:
    Serving() { requireOffer(!checked.isServing()); }
    ~Serving() {
        checked.stopServing();
        checked.setPort(m_former);
    }
    Serving(const Serving &) = delete;
    Serving &operator=(const Serving &) = delete;

    /// Throws NotOffered if the server cannot serve.
    void start() const {
        for (int i = 0; i < MostPorts && !checked.isServing(); ++i) {
            checked.setPort(freePort());
            checked.startServing();
        }
        requireOffer(checked.isServing());
    }
    /// Starts the server and changes its port while it is serving.
    void move() const {
        bool isMoved = false;
        for (int i = 0; i < MostPorts && !isMoved; ++i) {
            start();
            checked.setPort(freePort());
            isMoved = checked.isServing();
        }
        require(isMoved, "the server stops when its port is changed");
    }

    QVDirectConnectionServer &checked = server();

private:
    /// Another program may be faster to use a port.
    static constexpr int MostPorts = 5;

    const quint16 m_former = checked.port();
};

/// A client of a server on this computer.
class Client {
public:
    explicit Client(quint16 port) {
        m_socket.connectToHost(QHostAddress::LocalHost, port);
        wait([this] {
            return isConnected() || m_socket.state() == QAbstractSocket::UnconnectedState;
        });
    }
    bool isConnected() const { return m_socket.state() == QAbstractSocket::ConnectedState; }

private:
    QTcpSocket m_socket;
};

void serverMovesToAnotherPort() {
    const Serving serving;
    serving.start();
    const quint16 former = serving.checked.port();
    const Client client(former);
    require(client.isConnected(), "a server that is serving does not listen on its port");
    serving.move();
    require(Client(serving.checked.port()).isConnected(),
            "the server does not listen on the port to which it was changed");
    require(!Client(former).isConnected(), "the server still listens on its former port");
    require(wait([&] { return !client.isConnected(); }),
            "a connection to the former port stays open");
}

/// A port on which another program listens.
struct OccupiedPort {
    OccupiedPort() { require(listener.listen(), "the check could not listen on this computer"); }
    QTcpServer listener;
};

/// Throws Broken unless the server has stopped and says so, and the user has seen one error.
void requireFailure(const ApplicationWatch &watch, int announcements) {
    require(!server().isServing(), "the server serves on a port that another program uses");
    require(announcements > 0, "the server does not announce that it could not be started");
    require(watch.errors() == 0, "the error is presented within the call");
    require(wait([&] { return watch.errors() > 0; }), "no error is presented");
}

void occupiedPortIsReported() {
    const Serving serving;
    const OccupiedPort occupied;
    const ApplicationWatch watch;
    int count = 0;
    QObject receiver;
    QObject::connect(&serving.checked, &QVDirectConnectionServer::servingChanged, &receiver,
                     [&] { ++count; });
    serving.checked.setPort(occupied.listener.serverPort());
    serving.checked.startServing();
    requireFailure(watch, count);
}

void occupiedNewPortIsReported() {
    const Serving serving;
    serving.start();
    const OccupiedPort occupied;
    const ApplicationWatch watch;
    int count = 0;
    QObject receiver;
    QObject::connect(&serving.checked, &QVDirectConnectionServer::servingChanged, &receiver,
                     [&] { ++count; });
    serving.checked.setPort(occupied.listener.serverPort());
    requireFailure(watch, count);
}

void servingServerIsAnnounced() {
    const Serving serving;
    serving.start();
    const auto service = serving.checked.bonjourService();
    require(service != nullptr, "a server that is serving is not announced");
    require(service->type() == QVDirectConnectionServer::bonjourServiceType(),
            "it is announced as a service of another type");
    require(service->port() == serving.checked.port(), "it is announced with another port");
}

void servingIsAnnounced() {
    const Serving serving;
    int count = 0;
    QObject receiver;
    QObject::connect(&serving.checked, &QVDirectConnectionServer::servingChanged, &receiver,
                     [&] { ++count; });
    serving.start();
    require(count > 0, "the server was started without an announcement");
    count = 0;
    serving.checked.startServing();
    require(count == 0, "starting a server that is serving has an effect");
    serving.checked.stopServing();
    require(count == 1 && !serving.checked.isServing(),
            "stopping the server does not announce it once");
}

void addressIsAnnounced() {
    const Serving serving;
    QString announced = serving.checked.addressText();
    QObject receiver;
    QObject::connect(&serving.checked, &QVDirectConnectionServer::addressTextChanged, &receiver,
                     [&] { announced = serving.checked.addressText(); });
    serving.start();
    require(announced == serving.checked.addressText(),
            "the start changes it without an announcement");
    serving.checked.stopServing();
    require(announced == serving.checked.addressText(),
            "the end changes it without an announcement");
}

void servedDatabaseIsAnnounced() {
    const QVariantList databases = server().databases();
    requireOffer(!databases.isEmpty());
    for (const QVariant &each : databases) {
        const auto database = each.value<std::shared_ptr<QVServedDatabase>>();
        require(database != nullptr, "an entry is no QVServedDatabase");
        int count = 0;
        QObject receiver;
        QObject::connect(database.get(), &QVServedDatabase::servedChanged, &receiver,
                         [&] { ++count; });
        const bool wasServed = database->isServed();
        for (const bool isServed : {wasServed, !wasServed, wasServed}) {
            count = 0;
            database->setServed(isServed);
            require(count == 1, "choosing does not announce it once");
            require(database->isServed() == isServed, "the choice is not the one that was made");
        }
    }
}

void cancelledSignInEndsOnce() {
    auto &manager = classObject<QVDropboxSessionManager>();
    const auto session = manager.sessionWithURL(Url());
    requireOffer(session != nullptr);
    // Before, so that nothing is opened in which the user could sign in.
    const auto future = newFuture();
    future->cancel();
    Handler<std::shared_ptr<PZDropboxAccountInfo>, std::optional<Error>> ended;
    ended.willCall();
    session->authorizeWithFuture(future, ended.function());
    ended.requireOneCall();
    require(ended.wasCalledOnMainThread(), "the handler is called on another thread");
    require(!ended.wasCalledWithinCall(), "the handler is called from within the function");
    const auto &[account, error] = ended.values();
    require(!account && error, "a sign-in that was cancelled succeeds");
}

void sessionsAreNotNull() {
    auto &manager = classObject<QVDropboxSessionManager>();
    for (const char *text : {"", "dropbox://person@localhost"}) {
        require(manager.sessionWithURL(Url::fromString(QString::fromUtf8(text))) != nullptr,
                "it is null");
    }
}

constexpr HostPromise Promises[] = {
    {"QVDirectConnectionServer.URLScheme", Server,
     "Returns the URL scheme of direct-connection locations, in lower case;", &schemeIsInLowerCase},
    {"QVDirectConnectionServer.bonjourServiceType", Server,
     "Returns the service type (RFC 6763, section 7) under which servers are announced on the "
     "local network, such as \"_http._tcp\";",
     &serviceTypeIsOfTCP},
    {"QVDirectConnectionServer.lastConnectionText", Server,
     "The same for all clients that have never connected.", &unknownClientsHaveOneText},
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
    {"QVDirectConnectionServer.servingChanged", Server,
     "Emitted after the server was started or stopped, or could not be started.",
     &servingIsAnnounced},
    {"QVDirectConnectionServer.setPort (serving)", Server,
     "If the server is serving and the port differs, the server is restarted, which closes its "
     "connections;",
     &serverMovesToAnotherPort},
    {"QVDirectConnectionServer.setPort (occupied)", Server,
     "if it cannot listen on the new port, it is stopped and the error presented as by "
     "startServing().",
     &occupiedNewPortIsReported},
    {"QVDirectConnectionServer.startServing (occupied)", Server,
     "If it failed, for example because another program uses the port, the host presents the error "
     "to the user later, from the event loop. Emits servingChanged() in both cases.",
     &occupiedPortIsReported},
    {"QVDirectConnectionServer.bonjourService (serving)", Server,
     "Returns the announcement of this server on the local network, or nullptr unless the server "
     "is serving.",
     &servingServerIsAnnounced},
    {"QVDirectConnectionServer.addressTextChanged", Server,
     "Emitted after addressText() has changed.", &addressIsAnnounced},
    {"QVServedDatabase.setServed", "Host/QVServedDatabase.h",
     "Emits servedChanged() in both cases.", &servedDatabaseIsAnnounced},
    {"QVDropboxSession.authorizeWithFuture", "Host/QVDropboxSessionManager.h",
     "is called exactly once, on the main thread and after this function has returned: also when "
     "the sign-in fails, times out, or is cancelled through `future`, which must not be null.",
     &cancelledSignInEndsOnce},
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
