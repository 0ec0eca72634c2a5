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

/// A paired computer that sends a valid message one byte at a time.
class DribblingPeer {
public:
    explicit DribblingPeer(const DirectConnectionIdentity &identity) {
        std::promise<quint16> promise;
        std::future<quint16> listeningPort = promise.get_future();
        m_thread.reset(QThread::create([identity, &promise] { serve(identity, promise); }));
        m_thread->start();
        port = listeningPort.get();
    }
    ~DribblingPeer() { m_thread->wait(); }
    DribblingPeer(const DribblingPeer &) = delete;
    DribblingPeer &operator=(const DribblingPeer &) = delete;

    quint16 port = 0;

private:
    static void serve(const DirectConnectionIdentity &identity, std::promise<quint16> &promise) {
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
        QCborMap message = DirectConnectionMessage::ofType(DirectConnectionMessage::Done);
        message[DirectConnectionMessage::Contents] = QByteArray(10000, 'x');
        const QByteArray bytes = DirectConnectionMessage::encode(message);
        for (qsizetype i = 0; i < bytes.size() && socket.isEncrypted(); ++i) {
            socket.write(bytes.mid(i, 1));
            socket.flush();
            constexpr int interval = 20;
            socket.waitForReadyRead(interval);
            socket.readAll();
        }
    }

    std::unique_ptr<QThread> m_thread;
};

}  // namespace

class DirectConnectionLinkTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aPeerThatSendsSlowlyIsGivenUp() {
        const QTemporaryDir folder;
        const auto identity = DirectConnectionIdentity::load(folder.path());
        QCOMPARE(description(identity), QString());
        const DribblingPeer peer(*identity);
        DirectConnectionLink link;
        const EngineFuture future;
        QCOMPARE(description(link.connect(QStringLiteral("127.0.0.1"), peer.port, future)),
                 QString());
        using namespace std::chrono_literals;
        QElapsedTimer time;
        time.start();
        const auto answer =
            link.exchange(DirectConnectionMessage::ofType(DirectConnectionMessage::List),
                          {.idle = 10s, .total = 500ms}, future);
        QCOMPARE(code(answer), EngineErrorCode::StoreUnreachable);
        QVERIFY(time.elapsed() >= 500);
        QVERIFY(time.elapsed() < 5000);
        QVERIFY(!link.isConnected());
    }
};

VELMORA_TEST(DirectConnectionLinkTest)
#include "DirectConnectionLinkTest.moc"
