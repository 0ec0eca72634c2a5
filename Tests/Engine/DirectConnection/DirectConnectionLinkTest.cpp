#include "Engine/DirectConnection/DirectConnectionLink.h"

#include <QtNetwork/QSslConfiguration>
#include <QtNetwork/QSslSocket>
#include <QtNetwork/QTcpServer>
#include <future>

#include "Engine/DirectConnection/DirectConnectionIdentity.h"
#include "Engine/DirectConnection/DirectConnectionMessage.h"
#include "Support/Failure.h"
#include "Support/TestMain.h"

namespace {

/// A computer that sends a valid message of 10,000 bytes.
class Peer {
public:
    /// The number of bytes that are sent at a time.
    enum class Pace : qsizetype { Dribbling = 1, Quick = 1 << 20 };

    Peer(const DirectConnectionIdentity &identity, Pace pace) {
        std::promise<quint16> promise;
        std::future<quint16> listeningPort = promise.get_future();
        m_thread.reset(
            QThread::create([identity, pace, &promise] { serve(identity, pace, promise); }));
        m_thread->start();
        port = listeningPort.get();
    }
    ~Peer() { m_thread->wait(); }
    Peer(const Peer &) = delete;
    Peer &operator=(const Peer &) = delete;

    quint16 port = 0;

private:
    static void serve(const DirectConnectionIdentity &identity, Pace pace,
                      std::promise<quint16> &promise) {
        QTcpServer server;
        server.listen(QHostAddress::LocalHost);
        promise.set_value(server.serverPort());
        server.waitForNewConnection(-1);
        const std::unique_ptr<QTcpSocket> accepted(server.nextPendingConnection());
        QSslSocket socket;
        QSslConfiguration configuration;
        configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
        configuration.setLocalCertificate(identity.certificate);
        configuration.setPrivateKey(identity.privateKey);
        socket.setSocketDescriptor(dup(static_cast<int>(accepted->socketDescriptor())));
        socket.setSslConfiguration(configuration);
        socket.startServerEncryption();
        socket.waitForEncrypted();
        constexpr int timeout = 10000;
        while (socket.bytesAvailable() == 0 && socket.waitForReadyRead(timeout)) {
        }
        QCborMap message = DirectConnectionMessage::ofType(DirectConnectionMessage::Done);
        message[DirectConnectionMessage::Contents] = QByteArray(10000, 'x');
        const QByteArray bytes = DirectConnectionMessage::encode(message);
        const auto step = static_cast<qsizetype>(pace);
        for (qsizetype i = 0; i < bytes.size() && socket.isEncrypted(); i += step) {
            socket.write(bytes.mid(i, step));
            socket.flush();
            constexpr int interval = 20;
            socket.waitForReadyRead(interval);
            socket.readAll();
        }
        if (socket.state() != QAbstractSocket::UnconnectedState) {
            socket.waitForDisconnected(timeout);
        }
    }

    std::unique_ptr<QThread> m_thread;
};

}  // namespace

class DirectConnectionLinkTest : public QObject {
    Q_OBJECT

    const QTemporaryDir m_folder;
    std::unique_ptr<Peer> m_peer;
    EngineFuture m_future;

    void connectTo(Peer::Pace pace, DirectConnectionLink &link) {
        const auto identity = DirectConnectionIdentity::load(m_folder.path());
        QCOMPARE(description(identity), QString());
        m_peer = std::make_unique<Peer>(*identity, pace);
        QCOMPARE(description(link.connect(QStringLiteral("127.0.0.1"), m_peer->port, m_future)),
                 QString());
    }

private Q_SLOTS:
    void aResponseIsNotLongerThanAllowed() {
        const QCborMap request = DirectConnectionMessage::ofType(DirectConnectionMessage::List);
        {
            DirectConnectionLink link;
            connectTo(Peer::Pace::Quick, link);
            QCOMPARE(code(link.exchange(request, DirectConnectionMessage::LimitBeforeAuthorization,
                                        {std::chrono::seconds(10)}, m_future)),
                     EngineErrorCode::StoreUnreachable);
            QVERIFY(!link.isConnected());
        }
        DirectConnectionLink link;
        connectTo(Peer::Pace::Quick, link);
        const auto answer = link.exchange(request, DirectConnectionMessage::Limit,
                                          {std::chrono::seconds(10)}, m_future);
        QCOMPARE(description(answer), QString());
        QCOMPARE(answer->contents, QByteArray(10000, 'x'));
        QCOMPARE(answer->values, DirectConnectionMessage::ofType(DirectConnectionMessage::Done));
        link.disconnect();
    }

    void aPeerThatSendsSlowlyIsGivenUp() {
        DirectConnectionLink link;
        connectTo(Peer::Pace::Dribbling, link);
        using namespace std::chrono_literals;
        QElapsedTimer time;
        time.start();
        const auto answer =
            link.exchange(DirectConnectionMessage::ofType(DirectConnectionMessage::List),
                          DirectConnectionMessage::Limit, {.idle = 10s, .total = 500ms}, m_future);
        QCOMPARE(code(answer), EngineErrorCode::StoreUnreachable);
        QVERIFY(time.elapsed() >= 500);
        QVERIFY(time.elapsed() < 5000);
        QVERIFY(!link.isConnected());
    }
};

VELMORA_TEST(DirectConnectionLinkTest)
#include "DirectConnectionLinkTest.moc"
