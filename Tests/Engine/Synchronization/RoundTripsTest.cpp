#include <atomic>
#include <condition_variable>
#include <mutex>

#include "Engine/Locations/EngineSyncState.h"
#include "Host/QVSyncPlugin.h"
#include "Host/UnencryptedPasswords.h"
#include "Platform/Security/UrlCredentialStorage.h"
#include "Support/EventTimeout.h"
#include "Support/ScriptedServer.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "Support/WebDAVServer.h"

namespace {

/// Forwards requests to a server on this computer in rounds: in each, no response is sent before
/// the expected number of requests has arrived. So requests of which one needs the response to
/// another never get one.
class Rounds {
public:
    explicit Rounds(quint16 server)
        : m_server(server),
          m_proxy([this](ScriptedServer::Connection &connection) { serve(connection); },
                  ScriptedServer::Order::AllAtOnce) {}

    quint16 port() const { return m_proxy.port(); }
    int connections() const { return m_proxy.connections(); }
    int openConnections() const { return m_openConnections; }

    /// Begins with `sizes`, the numbers of requests of each round. Without, requests are forwarded
    /// at once.
    void begin(const QList<int> &sizes) {
        const std::lock_guard lock(m_mutex);
        m_sizes = sizes;
        m_requests.clear();
    }
    QByteArrayList requests() const {
        const std::lock_guard lock(m_mutex);
        return m_requests;
    }

private:
    void serve(ScriptedServer::Connection &connection) {
        ++m_openConnections;
        QByteArray request;
        while (!(request = connection.readRequest()).isEmpty()) {
            const QByteArray response = isComplete(request) ? forwarded(request) : QByteArray();
            if (response.isEmpty()) {
                connection.close();
            } else {
                connection.send(response);
            }
        }
        --m_openConnections;
    }

    /// Blocks until the round of the request is complete. Returns false if it never is.
    bool isComplete(const QByteArray &request) {
        std::unique_lock lock(m_mutex);
        m_requests.append(request);
        qsizetype end = 0;
        for (qsizetype i = 0; i < m_sizes.size() && end < m_requests.size(); ++i) {
            end += m_sizes[i];
        }
        m_changed.notify_all();
        return m_sizes.isEmpty() ||
               m_changed.wait_for(lock, std::chrono::milliseconds(EventTimeout / 4),
                                  [&] { return m_requests.size() >= end; });
    }

    QByteArray forwarded(QByteArray request) const {
        QTcpSocket server;
        server.connectToHost(QHostAddress(QHostAddress::LocalHost), m_server);
        server.write(request.insert(request.indexOf("\r\n"), "\r\nConnection: close"));
        QByteArray response;
        while (server.waitForReadyRead(EventTimeout)) {
            response += server.readAll();
        }
        response += server.readAll();
        return response.replace("\r\nConnection: close", "");
    }

    const quint16 m_server;
    std::atomic<int> m_openConnections = 0;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    // Guarded by `m_mutex`.
    QList<int> m_sizes;
    QByteArrayList m_requests;
    /// Must be the last member: its threads use the others.
    ScriptedServer m_proxy;
};

}  // namespace

/// How often a synchronization with a server waits for it.
class RoundTripsTest : public QObject {
    Q_OBJECT
private:
    using Authentication = WebDAVServer::Authentication;

    /// The number of records of transactions in the store.
    static constexpr int Records = 3;
    /// Opening, the database's record, the listing, and each record is verified.
    static constexpr int IdleRequests = 3 + Records;

    std::unique_ptr<WebDAVServer> m_server;
    std::unique_ptr<Rounds> m_rounds;
    std::unique_ptr<TestHost> m_host;
    std::shared_ptr<QVSyncState> m_state;

    static int authorized(const QByteArrayList &requests) {
        return static_cast<int>(std::count_if(
            requests.begin(), requests.end(),
            [](const QByteArray &request) { return request.contains("\r\nAuthorization: "); }));
    }

    void addLocation(quint16 port) {
        const auto location =
            m_host->addLocation(m_server->URLText(QStringLiteral("a.qvSyncStore"))
                                    .replace(QStringLiteral(":%1").arg(m_server->port()),
                                             QStringLiteral(":%1").arg(port)));
        m_state = m_host->addState(location, m_host->inbox());
        m_state->setEnabled(true);
        m_host->save();
    }

    /// Returns the error; empty if there is none.
    QString synchronize() {
        bool isDone = false;
        QVSyncPlugin::plugin()->dispatcher()->performSynchronizationsWithSynchronizationStates(
            {m_state}, [&] { isDone = true; });
        if (!QTest::qWaitFor([&] { return isDone; }, EventTimeout)) {
            return QStringLiteral("not ended");
        }
        const auto &result = std::dynamic_pointer_cast<EngineSyncState>(m_state)->lastResult();
        return result && result->error ? result->error->localizedDescription : QString();
    }

    void start(Authentication authentication) {
        m_server =
            std::make_unique<WebDAVServer>(WebDAVServer::Options{.authentication = authentication});
        m_rounds = std::make_unique<Rounds>(m_server->port());
        storePassword(WebDAVServer::Password);
        m_host = std::make_unique<TestHost>();
        addLocation(m_rounds->port());
        for (int i = 0; i < Records; ++i) {
            Note note{{}, QString::number(i), QString::number(i), {}};
            QVERIFY(m_host->inbox()->saveNote(note));
            QCOMPARE(synchronize(), QString());
        }
    }

    void storePassword(const QString &password) {
        m_server->storePassword(password);
        UrlCredentialStorage::shared().setCredentialForProtectionSpace(
            {WebDAVServer::User, password, UrlCredential::Persistence::ForSession},
            UrlProtectionSpace{QStringLiteral("localhost"),
                               m_rounds->port(),
                               QStringLiteral("http"),
                               {},
                               UrlAuthenticationMethodHttpBasic});
        QVERIFY(UnencryptedPasswords::accept(
            Url::fromString(QStringLiteral("http://ida@localhost:%1/").arg(m_rounds->port()))));
    }

private Q_SLOTS:
    void cleanup() {
        m_state.reset();
        m_host.reset();
        m_rounds.reset();
        m_server.reset();
    }

    void anIdleSynchronizationWaitsForTheServerOnce_data() {
        QTest::addColumn<Authentication>("authentication");
        QTest::newRow("none") << Authentication::None;
        QTest::newRow("Basic") << Authentication::Basic;
        QTest::newRow("Digest") << Authentication::Digest;
    }

    void anIdleSynchronizationWaitsForTheServerOnce() {
        QFETCH(Authentication, authentication);
        start(authentication);
        const bool asks = authentication != Authentication::None;
        // The first one opens the connections that the others need.
        m_rounds->begin({IdleRequests});
        QCOMPARE(synchronize(), QString());
        const int connections = m_rounds->connections();
        for (int i = 0; i < 2; ++i) {
            m_rounds->begin({IdleRequests});
            QCOMPARE(synchronize(), QString());
            QCOMPARE(m_rounds->requests().size(), IdleRequests);
            QCOMPARE(authorized(m_rounds->requests()), asks ? IdleRequests : 0);
            QCOMPARE(m_rounds->connections(), connections);
        }
    }

    void theFirstSynchronizationOfARunLogsInOnce_data() {
        QTest::addColumn<Authentication>("authentication");
        QTest::newRow("Basic") << Authentication::Basic;
        QTest::newRow("Digest") << Authentication::Digest;
    }

    void theFirstSynchronizationOfARunLogsInOnce() {
        QFETCH(Authentication, authentication);
        start(authentication);
        m_host->restart();
        m_state = m_host->locations().syncLocations().last()->synchronizationStates().first();
        // The server asks for the password, accepts it, and answers the others.
        m_rounds->begin({IdleRequests, 1, IdleRequests - 1});
        QCOMPARE(synchronize(), QString());
        QCOMPARE(m_rounds->requests().size(), 2 * IdleRequests);
        QCOMPARE(authorized(m_rounds->requests()), IdleRequests);
    }

    void aWrongPasswordIsTriedOnce() {
        start(Authentication::Basic);
        storePassword(QStringLiteral("wrong"));
        m_host->restart();
        m_state = m_host->locations().syncLocations().last()->synchronizationStates().first();
        m_rounds->begin({IdleRequests, 1});
        QVERIFY(synchronize().contains(QStringLiteral("does not accept this user name")));
        QCOMPARE(authorized(m_rounds->requests()), 1);
    }

    void aPasswordOrCertificateThatChangesBetweenSynchronizationsTakesEffect() {
        start(Authentication::Digest);
        m_rounds->begin({});
        storePassword(QStringLiteral("wrong"));
        QVERIFY(synchronize().contains(QStringLiteral("does not accept this user name")));
        storePassword(WebDAVServer::Password);
        QCOMPARE(synchronize(), QString());
        m_server->stop();
        QVERIFY(synchronize() != QString());
        m_server->start();
        QCOMPARE(synchronize(), QString());
    }

    void aServerThatWasRestartedIsReachedAgain() {
        start(Authentication::Basic);
        addLocation(m_server->port());
        QCOMPARE(synchronize(), QString());
        m_server->stop();
        m_server->start();
        QCOMPARE(synchronize(), QString());
    }

    void aLocationThatWasRemovedOrEditedLeavesNoConnection() {
        start(Authentication::None);
        const auto location = m_state->destination();
        QCOMPARE(synchronize(), QString());
        const int connections = m_rounds->connections();
        location->setURL(Url::fromString(m_server->URLText(QStringLiteral("b.qvSyncStore"))));
        m_host->save();
        QCOMPARE(synchronize(), QString());
        location->setURL(Url::fromString(
            QStringLiteral("http://ida@localhost:%1/dav/a.qvSyncStore").arg(m_rounds->port())));
        m_host->save();
        QCOMPARE(synchronize(), QString());
        QVERIFY(m_rounds->connections() > connections);
        QVERIFY(m_rounds->openConnections() > 0);
        m_host->locations().removeObjectFromSyncLocationsAtIndex(
            m_host->locations().syncLocations().size() - 1);
        QTRY_COMPARE(m_rounds->openConnections(), 0);
    }
};

VELMORA_TEST(RoundTripsTest)
#include "RoundTripsTest.moc"
