#include "Support/ScriptedServer.h"

#include <sys/socket.h>

#include <QtNetwork/QTcpServer>
#include <utility>
#include <vector>

namespace {

/// How often a waiting server looks whether the test is over.
constexpr int LookInterval = 20;

constexpr qsizetype PieceOfBody = 1 << 20;

qsizetype contentLength(const QByteArray &headers) {
    for (const QByteArray &line : headers.split('\n')) {
        if (line.toLower().startsWith("content-length:")) {
            return line.mid(15).trimmed().toLongLong();
        }
    }
    return 0;
}

/// Hands over connections as descriptors, so that they can be served on any thread.
class DescriptorServer : public QTcpServer {
public:
    QList<qintptr> takeDescriptors() { return std::exchange(m_descriptors, {}); }

protected:
    void incomingConnection(qintptr descriptor) override { m_descriptors.append(descriptor); }

private:
    QList<qintptr> m_descriptors;
};

}  // namespace

ScriptedServer::Connection::Connection(QTcpSocket &socket, const std::atomic<bool> &isEnding)
    : m_socket(socket), m_isEnding(isEnding) {}

QByteArray ScriptedServer::Connection::readRequest() {
    while (isOpen()) {
        const qsizetype headersEnd = m_received.indexOf("\r\n\r\n") + 4;
        const qsizetype end = headersEnd + contentLength(m_received.left(headersEnd));
        if (headersEnd >= 4 && m_received.size() >= end) {
            const QByteArray request = m_received.first(end);
            m_received.remove(0, end);
            return request;
        }
        m_socket.waitForReadyRead(LookInterval);
        m_received += m_socket.readAll();
    }
    return {};
}

void ScriptedServer::Connection::send(const QByteArray &bytes) {
    m_socket.write(bytes);
    while (isOpen() && m_socket.bytesToWrite() > 0) {
        m_socket.waitForBytesWritten(LookInterval);
    }
}

void ScriptedServer::Connection::answer(const QByteArray &statusAndHeaders,
                                        const QByteArray &body) {
    send("HTTP/1.1 " + statusAndHeaders + "\r\nContent-Length: " + QByteArray::number(body.size()) +
         "\r\n\r\n");
    // So that the socket copies little of it at a time.
    for (qsizetype sent = 0; sent < body.size(); sent += PieceOfBody) {
        send(body.mid(sent, PieceOfBody));
    }
}

void ScriptedServer::Connection::waitUntilClosed() {
    while (isOpen()) {
        m_socket.waitForReadyRead(LookInterval);
        m_socket.readAll();
    }
}

void ScriptedServer::Connection::sendSlowly(const QByteArray &bytes) {
    for (qsizetype i = 0; i < bytes.size() && isOpen(); ++i) {
        send(bytes.mid(i, 1));
        m_socket.waitForReadyRead(LookInterval);
    }
}

void ScriptedServer::Connection::awaitBytes() {
    while (isOpen() && m_socket.bytesAvailable() == 0) {
        m_socket.waitForReadyRead(LookInterval);
    }
}

void ScriptedServer::Connection::ignore() {
    m_isEnding.wait(false);
}

void ScriptedServer::Connection::close() {
    m_socket.disconnectFromHost();
}

void ScriptedServer::Connection::reset() {
    const linger atOnce{1, 0};
    setsockopt(static_cast<int>(m_socket.socketDescriptor()), SOL_SOCKET, SO_LINGER, &atOnce,
               sizeof atOnce);
    m_socket.abort();
}

bool ScriptedServer::Connection::isOpen() {
    return !m_isEnding && m_socket.state() == QAbstractSocket::ConnectedState;
}

ScriptedServer::ScriptedServer(Script script, Order order)
    : m_script(std::move(script)), m_order(order) {
    std::promise<quint16> port;
    std::future<quint16> listeningPort = port.get_future();
    m_thread = std::thread(&ScriptedServer::serve, this, std::move(port));
    m_port = listeningPort.get();
}

ScriptedServer::~ScriptedServer() {
    m_isEnding = true;
    m_isEnding.notify_all();
    m_thread.join();
}

QString ScriptedServer::URLText(const QString &path) const {
    return QStringLiteral("http://ida@127.0.0.1:%1/%2").arg(m_port).arg(path);
}

void ScriptedServer::serve(std::promise<quint16> port) {
    DescriptorServer server;
    server.listen(QHostAddress::LocalHost);
    port.set_value(server.serverPort());
    std::vector<std::thread> threads;
    while (!m_isEnding) {
        server.waitForNewConnection(LookInterval);
        const QList<qintptr> descriptors = server.takeDescriptors();
        for (const qintptr descriptor : descriptors) {
            ++m_connections;
            if (m_order == Order::AllAtOnce) {
                threads.emplace_back(&ScriptedServer::serveConnection, this, descriptor);
            } else {
                serveConnection(descriptor);
            }
        }
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
}

void ScriptedServer::serveConnection(qintptr descriptor) {
    QTcpSocket socket;
    socket.setSocketDescriptor(descriptor);
    Connection connection(socket, m_isEnding);
    m_script(connection);
    socket.disconnectFromHost();
}
