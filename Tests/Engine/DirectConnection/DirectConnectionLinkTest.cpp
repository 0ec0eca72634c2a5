#include "Engine/DirectConnection/DirectConnectionLink.h"

#include <fcntl.h>
#include <openssl/err.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <future>

#include "Engine/DirectConnection/DirectConnectionIdentity.h"
#include "Engine/DirectConnection/DirectConnectionMessage.h"
#include "Support/DirectConnectionPeer.h"
#include "Support/FailingSystemCall.h"
#include "Support/Failure.h"
#include "Support/FreePort.h"
#include "Support/TestMain.h"
#include "Support/TlsServer.h"

namespace {

/// The number of bytes that a peer sends at a time.
constexpr qsizetype OneByte = 1;
constexpr qsizetype Quick = 1 << 20;

QByteArray contentsMessage() {
    QCborMap message = DirectConnectionMessage::ofType(DirectConnectionMessage::Done);
    message[DirectConnectionMessage::Contents] = QByteArray(10000, 'x');
    return DirectConnectionMessage::encode(message);
}

QByteArray listRequest() {
    return DirectConnectionMessage::encode(
        DirectConnectionMessage::ofType(DirectConnectionMessage::List));
}

/// Reads memory of this process, which may have been freed. Returns less if it was unmapped.
QByteArray memoryAt(quintptr address, qsizetype size) {
    QByteArray bytes(size, '\0');
    const int file = open("/proc/self/mem", O_RDONLY | O_CLOEXEC);
    const ssize_t count =
        pread(file, bytes.data(), static_cast<size_t>(size), static_cast<off_t>(address));
    close(file);
    return bytes.first(std::max<qsizetype>(count, 0));
}

}  // namespace

class DirectConnectionLinkTest : public QObject {
    Q_OBJECT

    const QTemporaryDir m_folder;
    std::unique_ptr<DirectConnectionPeer> m_peer;
    EngineFuture m_future;

    void connectTo(qsizetype step, DirectConnectionLink &link) {
        const auto identity = DirectConnectionIdentity::load(m_folder.path());
        QCOMPARE(description(identity), QString());
        m_peer = std::make_unique<DirectConnectionPeer>(*identity,
                                                        QByteArrayList{contentsMessage()}, step);
        QCOMPARE(description(link.connect(QStringLiteral("127.0.0.1"), m_peer->port(), m_future)),
                 QString());
    }

private Q_SLOTS:
    void aLocalNameThatCannotBeLookedUpIsReported() {
        // The service is found on the system bus.
        const QByteArray bus = qgetenv("DBUS_SYSTEM_BUS_ADDRESS");
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nowhere");
        DirectConnectionLink link;
        const Expected<void> connected =
            link.connect(QStringLiteral("velmora-absent.local"), 1, m_future);
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", bus);
        QCOMPARE(code(connected), EngineErrorCode::StoreUnreachable);
        QVERIFY2(description(connected).contains(QStringLiteral("Avahi")),
                 qPrintable(description(connected)));
    }

    void theReasonOfAFailedConnectionIsInItsDetails() {
        DirectConnectionLink link;
        const auto refused = link.connect(QStringLiteral("127.0.0.1"), freePort(), m_future);
        QCOMPARE(code(refused), EngineErrorCode::StoreUnreachable);
        QCOMPARE(refused.error().details, qt_error_string(ECONNREFUSED));
    }

    void anOldErrorOfTheThreadDoesNotPreventAConnection() {
        ERR_raise(ERR_LIB_USER, 1);
        DirectConnectionLink link;
        connectTo(Quick, link);
        QVERIFY(link.isConnected());
        link.disconnect();
        ERR_clear_error();
    }

    void aCertificateThatCannotBeReadIsAnError() {
        const auto created = DirectConnectionIdentity::load(m_folder.path());
        QVERIFY(created);
        const QSslCertificate before = created->certificate;
        runWithFailingSystemCall(SYS_read, EIO, [&] {
            const auto identity = DirectConnectionIdentity::load(m_folder.path());
            QCOMPARE(code(identity), EngineErrorCode::ServerUnusable);
            QVERIFY2(description(identity).contains(QStringLiteral("cannot be read")),
                     qPrintable(description(identity)));
        });
        // One that cannot be reached is not replaced by another, which no paired computer knows.
        runWithFailingSystemCall(SYS_newfstatat, EIO, [&] {
            const auto identity = DirectConnectionIdentity::load(m_folder.path());
            QCOMPARE(code(identity), EngineErrorCode::ServerUnusable);
            QVERIFY2(description(identity).contains(QStringLiteral("cannot be read")),
                     qPrintable(description(identity)));
        });
        QCOMPARE(DirectConnectionIdentity::load(m_folder.path())->certificate, before);
        QVERIFY(DirectConnectionIdentity::load(m_folder.path()));
    }

    void aResponseIsNotLongerThanAllowed() {
        {
            DirectConnectionLink link;
            connectTo(Quick, link);
            const auto result =
                link.exchange(listRequest(), DirectConnectionMessage::LimitBeforeAuthorization,
                              {std::chrono::seconds(10)}, m_future);
            QVERIFY(!result);
            const QString tooLarge = DirectConnectionMessage::tooLarge().localizedDescription;
            QCOMPARE(result.error(), link.notUnderstood(tooLarge));
            QCOMPARE(result.error().details, tooLarge);
            QVERIFY(!link.isConnected());
        }
        DirectConnectionLink link;
        connectTo(Quick, link);
        const auto answer = link.exchange(listRequest(), DirectConnectionMessage::Limit,
                                          {std::chrono::seconds(10)}, m_future);
        QCOMPARE(description(answer), QString());
        QCOMPARE(answer->contents, QByteArray(10000, 'x'));
        QCOMPARE(answer->values, DirectConnectionMessage::ofType(DirectConnectionMessage::Done));
        link.disconnect();
    }

    void aResponseThatIsNoMessageIsNotReportedAsALostConnection() {
        const auto identity = DirectConnectionIdentity::load(m_folder.path());
        m_peer = std::make_unique<DirectConnectionPeer>(
            *identity, QByteArrayList{QByteArray("\0\0\0\4text", 8)}, Quick);
        DirectConnectionLink link;
        QCOMPARE(description(link.connect(QStringLiteral("127.0.0.1"), m_peer->port(), m_future)),
                 QString());
        const auto result = link.exchange(listRequest(), DirectConnectionMessage::Limit,
                                          {std::chrono::minutes(1)}, m_future);
        QCOMPARE(description(result),
                 QStringLiteral("“127.0.0.1” sent an invalid response. Use the same version of "
                                "Velmora on both computers."));
        QCOMPARE(result.error().details, DirectConnectionMessage::notValid().localizedDescription);
        QVERIFY(!link.isConnected());
    }

    void anOldErrorOfTheThreadDoesNotEndTheConnection() {
        DirectConnectionLink link;
        connectTo(Quick, link);
        ERR_raise(ERR_LIB_USER, 1);
        QVERIFY(link.isConnected());
        ERR_raise(ERR_LIB_USER, 1);
        const auto answer = link.exchange(listRequest(), DirectConnectionMessage::Limit,
                                          {std::chrono::minutes(1)}, m_future);
        QCOMPARE(description(answer), QString());
        ERR_clear_error();
    }

    void aRequestIsWipedBeforeItsResponseArrives() {
        const auto identity = DirectConnectionIdentity::load(m_folder.path());
        m_peer = std::make_unique<DirectConnectionPeer>(*identity, QByteArrayList(), Quick);
        DirectConnectionLink link;
        QCOMPARE(description(link.connect(QStringLiteral("127.0.0.1"), m_peer->port(), m_future)),
                 QString());
        const QByteArray secret("a secret of thirty-two characters");
        QCborMap message = DirectConnectionMessage::ofType(DirectConnectionMessage::Hello);
        message[DirectConnectionMessage::Secret] = secret;
        QByteArray request = DirectConnectionMessage::encode(message);
        const qsizetype size = request.size();
        const auto address = reinterpret_cast<quintptr>(request.constData());
        QVERIFY(memoryAt(address, size).contains(secret));
        EngineFuture future;
        auto answer = std::async(std::launch::async, [&, sent = std::move(request)]() mutable {
            return code(link.exchange(std::move(sent),
                                      DirectConnectionMessage::LimitBeforeAuthorization,
                                      {std::chrono::minutes(2)}, future));
        });
        QTRY_VERIFY(!memoryAt(address, size).contains(secret));
        QVERIFY(answer.wait_for(std::chrono::seconds(0)) == std::future_status::timeout);
        future.cancel();
        QCOMPARE(answer.get(), EngineErrorCode::StoreUnreachable);
    }

    void aPeerThatSendsSlowlyIsGivenUp() {
        DirectConnectionLink link;
        connectTo(OneByte, link);
        using namespace std::chrono_literals;
        QElapsedTimer time;
        time.start();
        const auto answer = link.exchange(listRequest(), DirectConnectionMessage::Limit,
                                          {.idle = 10s, .total = 500ms}, m_future);
        QCOMPARE(code(answer), EngineErrorCode::StoreUnreachable);
        QVERIFY(time.elapsed() >= 500);
        QVERIFY(time.elapsed() < 5000);
        QVERIFY(!link.isConnected());
    }

    void aPeerThatSendsMessagesWithoutDataIsGivenUp() {
        const auto identity = DirectConnectionIdentity::load(m_folder.path());
        TlsServer server(*identity, TLS1_3_VERSION, &TlsServer::updateKeys);
        DirectConnectionLink link;
        QCOMPARE(description(link.connect(QStringLiteral("127.0.0.1"), server.port(), m_future)),
                 QString());
        using namespace std::chrono_literals;
        QElapsedTimer time;
        time.start();
        const auto answer =
            link.exchange(listRequest(), DirectConnectionMessage::Limit, {.idle = 300ms}, m_future);
        QCOMPARE(code(answer), EngineErrorCode::StoreUnreachable);
        QCOMPARE_LT(time.elapsed(), 5000);
        QVERIFY(!link.isConnected());
    }

    void onlyTheNewestVersionOfTlsIsSpoken_data() {
        QTest::addColumn<int>("version");
        QTest::addColumn<bool>("isSpoken");
        QTest::newRow("1.2") << TLS1_2_VERSION << false;
        QTest::newRow("1.3") << TLS1_3_VERSION << true;
    }
    void onlyTheNewestVersionOfTlsIsSpoken() {
        QFETCH(const int, version);
        QFETCH(const bool, isSpoken);
        const auto identity = DirectConnectionIdentity::load(m_folder.path());
        TlsServer server(*identity, version);
        DirectConnectionLink link;
        const auto connected = link.connect(QStringLiteral("127.0.0.1"), server.port(), m_future);
        QCOMPARE(connected.has_value(), isSpoken);
        QVERIFY(connected || !connected.error().details.isEmpty());
        QCOMPARE(server.isEncrypted(), isSpoken);
    }
};

VELMORA_TEST(DirectConnectionLinkTest)
#include "DirectConnectionLinkTest.moc"
