#include <QtNetwork/QLocalServer>
#include <QtNetwork/QLocalSocket>

#include "Platform/Network/LocalHostName.h"
#include "Platform/Network/NetServiceBrowser.h"
#include "Support/AwaitOnThread.h"
#include "Support/PrivateBus.h"
#include "Support/StallMeter.h"
#include "Support/TestMain.h"

namespace {

/// A system bus that accepts connections, answers as many lines of the authentication as it is
/// told, and then says nothing.
class SilentBus {
public:
    explicit SilentBus(int answers) : m_answers(answers) {
        m_server.listen(m_folder.filePath(QStringLiteral("bus")));
        QObject::connect(&m_server, &QLocalServer::newConnection, &m_server, [this] {
            while (QLocalSocket *connection = m_server.nextPendingConnection()) {
                serve(connection);
            }
        });
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=" + m_server.fullServerName().toUtf8());
    }
    SilentBus(const SilentBus &) = delete;
    SilentBus &operator=(const SilentBus &) = delete;

    /// How many connections were made, and the bytes of the last one.
    int connections = 0;
    QByteArray received;

    /// Ends all connections, so that who still waits goes on.
    void close() {
        m_server.close();
        for (QLocalSocket *connection : m_server.findChildren<QLocalSocket *>()) {
            connection->abort();
        }
    }

private:
    void serve(QLocalSocket *connection) {
        ++connections;
        received.clear();
        const auto left = std::make_shared<int>(m_answers);
        QObject::connect(connection, &QLocalSocket::readyRead, &m_server, [this, connection, left] {
            received += connection->readAll();
            if (*left > 0 && received.endsWith("\r\n")) {
                --*left;
                connection->write("OK 0123456789abcdef0123456789abcdef\r\n");
            }
        });
    }

    const QTemporaryDir m_folder;
    const int m_answers;
    QLocalServer m_server;
};

}  // namespace

/// A system bus that does not respond delays nothing.
class HangingBusTest : public QObject {
    Q_OBJECT

    /// Milliseconds. Connecting to such a bus would take 25 s.
    static constexpr qint64 LongestStall = 10000;

    static void search(NetServiceBrowser &browser) {
        browser.searchForServicesOfTypeInDomain(QStringLiteral("_velmora-test._tcp"), QString());
    }

private Q_SLOTS:
    void aSilentBusDoesNotBlockTheMainThread_data() {
        QTest::addColumn<int>("answers");
        QTest::addColumn<QByteArray>("lastBytes");
        QTest::newRow("no answer") << 0 << QByteArray("\r\n");
        QTest::newRow("no answer after the authentication") << 1 << QByteArray("Hello\0\0\0", 8);
    }
    void aSilentBusDoesNotBlockTheMainThread() {
        QFETCH(const int, answers);
        QFETCH(const QByteArray, lastBytes);
        SilentBus bus(answers);
        StallMeter meter;
        {
            NetServiceBrowser browser;
            search(browser);
            QTRY_VERIFY(bus.received.endsWith(lastBytes));
        }
        // It was ended while it waited for the bus, and another one begins.
        NetServiceBrowser browser;
        search(browser);
        QTRY_VERIFY(bus.connections == 2 && bus.received.endsWith(lastBytes));
        // Nor does it hold the thread that serves the connections to other buses.
        const PrivateBus other;
        QVERIFY(QDBusConnection(other.address()).isConnected());
        QCOMPARE_LT(meter.longest(), LongestStall);
        bus.close();
    }

    void aHostNameIsGivenUpIfTheBusIsSilent() {
        SilentBus bus(1);
        QElapsedTimer time;
        time.start();
        const auto address = awaitOnThread([] {
            return LocalHostName::address(QStringLiteral("host.local"),
                                          std::chrono::milliseconds(300));
        });
        QVERIFY(!address);
        QCOMPARE(address.error().code, static_cast<int>(LocalHostName::ErrorCode::NoService));
        QCOMPARE_LT(time.elapsed(), LongestStall);
        QCOMPARE(bus.connections, 1);
        bus.close();
    }

    void aHostNameIsGivenUpIfTheBusDoesNotRun() {
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nowhere/bus");
        const auto address =
            LocalHostName::address(QStringLiteral("host.local"), std::chrono::minutes(2));
        QVERIFY(!address);
        QCOMPARE(address.error().code, static_cast<int>(LocalHostName::ErrorCode::NoService));
    }
};

VELMORA_TEST(HangingBusTest)
#include "HangingBusTest.moc"
