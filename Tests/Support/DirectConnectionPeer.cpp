#include "Support/DirectConnectionPeer.h"

#include <unistd.h>

#include <QtNetwork/QSslConfiguration>
#include <QtNetwork/QSslSocket>
#include <QtNetwork/QTcpServer>

#include "Engine/DirectConnection/DirectConnectionIdentity.h"
#include "Engine/DirectConnection/DirectConnectionMessage.h"
#include "Support/EventTimeout.h"

namespace {

constexpr int Timeout = 10000;
constexpr int Pause = 20;

void send(QSslSocket &socket, const QByteArray &response, qsizetype step) {
    for (qsizetype i = 0; i < response.size() && socket.isEncrypted(); i += step) {
        socket.write(response.mid(i, step));
        while (socket.isEncrypted() && socket.encryptedBytesToWrite() + socket.bytesToWrite() > 0 &&
               socket.waitForBytesWritten(Timeout)) {
        }
        if (step == 1) {
            socket.waitForReadyRead(Pause);
            socket.readAll();
        }
    }
}

}  // namespace

DirectConnectionPeer::DirectConnectionPeer(const DirectConnectionIdentity &identity,
                                           const QByteArrayList &responses, qsizetype step,
                                           quint16 port) {
    std::promise<quint16> promise;
    std::future<quint16> listeningPort = promise.get_future();
    m_thread = std::thread(&serve, identity, responses, step, port, std::move(promise));
    m_port = listeningPort.get();
}

std::unique_ptr<DirectConnectionPeer> DirectConnectionPeer::dripping(
    const DirectConnectionIdentity &identity) {
    // As many bytes as take a minute.
    QCborMap answer = DirectConnectionMessage::ofType(DirectConnectionMessage::Pair);
    answer[DirectConnectionMessage::Nonce] = QByteArray(3000, 'x');
    return std::make_unique<DirectConnectionPeer>(
        identity, QByteArrayList{DirectConnectionMessage::encode(answer)}, 1);
}

DirectConnectionPeer::~DirectConnectionPeer() {
    m_thread.join();
}

void DirectConnectionPeer::serve(const DirectConnectionIdentity &identity,
                                 const QByteArrayList &responses, qsizetype step, quint16 port,
                                 std::promise<quint16> promise) {
    QTcpServer server;
    server.listen(QHostAddress::LocalHost, port);
    promise.set_value(server.serverPort());
    if (!server.waitForNewConnection(EventTimeout)) {
        return;
    }
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
    for (const QByteArray &response : responses) {
        while (socket.bytesAvailable() == 0 && socket.waitForReadyRead(Timeout)) {
        }
        socket.readAll();
        send(socket, response, step);
    }
    if (socket.state() != QAbstractSocket::UnconnectedState) {
        socket.waitForDisconnected(Timeout);
    }
}
