#include "Support/DirectConnectionPeer.h"

#include <unistd.h>

#include <QtNetwork/QSslConfiguration>
#include <QtNetwork/QSslSocket>
#include <QtNetwork/QTcpServer>
#include <memory>

#include "Engine/DirectConnection/DirectConnectionIdentity.h"

namespace {

constexpr int Timeout = 10000;
constexpr int Pause = 20;

}  // namespace

DirectConnectionPeer::DirectConnectionPeer(const DirectConnectionIdentity &identity,
                                           const QByteArray &response, qsizetype step) {
    std::promise<quint16> port;
    std::future<quint16> listeningPort = port.get_future();
    m_thread = std::thread(&serve, identity, response, step, std::move(port));
    m_port = listeningPort.get();
}

DirectConnectionPeer::~DirectConnectionPeer() {
    m_thread.join();
}

void DirectConnectionPeer::serve(const DirectConnectionIdentity &identity,
                                 const QByteArray &response, qsizetype step,
                                 std::promise<quint16> port) {
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    port.set_value(server.serverPort());
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
    while (socket.bytesAvailable() == 0 && socket.waitForReadyRead(Timeout)) {
    }
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
    if (socket.state() != QAbstractSocket::UnconnectedState) {
        socket.waitForDisconnected(Timeout);
    }
}
