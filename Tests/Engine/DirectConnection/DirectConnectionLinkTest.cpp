#include "Engine/DirectConnection/DirectConnectionLink.h"

#include "Engine/DirectConnection/DirectConnectionIdentity.h"
#include "Engine/DirectConnection/DirectConnectionMessage.h"
#include "Support/DirectConnectionPeer.h"
#include "Support/Failure.h"
#include "Support/TestMain.h"

namespace {

/// The number of bytes that a peer sends at a time.
constexpr qsizetype OneByte = 1;
constexpr qsizetype Quick = 1 << 20;

QByteArray contentsMessage() {
    QCborMap message = DirectConnectionMessage::ofType(DirectConnectionMessage::Done);
    message[DirectConnectionMessage::Contents] = QByteArray(10000, 'x');
    return DirectConnectionMessage::encode(message);
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
    void aResponseIsNotLongerThanAllowed() {
        const QCborMap request = DirectConnectionMessage::ofType(DirectConnectionMessage::List);
        {
            DirectConnectionLink link;
            connectTo(Quick, link);
            QCOMPARE(code(link.exchange(request, DirectConnectionMessage::LimitBeforeAuthorization,
                                        {std::chrono::seconds(10)}, m_future)),
                     EngineErrorCode::StoreUnreachable);
            QVERIFY(!link.isConnected());
        }
        DirectConnectionLink link;
        connectTo(Quick, link);
        const auto answer = link.exchange(request, DirectConnectionMessage::Limit,
                                          {std::chrono::seconds(10)}, m_future);
        QCOMPARE(description(answer), QString());
        QCOMPARE(answer->contents, QByteArray(10000, 'x'));
        QCOMPARE(answer->values, DirectConnectionMessage::ofType(DirectConnectionMessage::Done));
        link.disconnect();
    }

    void aPeerThatSendsSlowlyIsGivenUp() {
        DirectConnectionLink link;
        connectTo(OneByte, link);
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
