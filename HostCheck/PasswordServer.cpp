#include "HostCheck/PasswordServer.h"

#include <QtNetwork/QTcpSocket>
#include <memory>

#include "Host/SyncStoreLayout.h"
#include "HostCheck/Checking.h"

namespace {

constexpr char EndOfHead[] = "\r\n\r\n";
/// The most that is read of one client.
constexpr qsizetype MostRead = 65536;

}  // namespace

PasswordServer::PasswordServer() : m_user(Checking::newUUID()) {
    QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
        while (QTcpSocket *client = m_server.nextPendingConnection()) {
            serve(*client);
        }
    });
    Checking::require(m_server.listen(QHostAddress::LocalHost),
                      "the check could not listen on this computer");
}

Url PasswordServer::URL() const {
    return Url::fromString(QStringLiteral("http://%1@127.0.0.1:%2/Checked.%3")
                               .arg(m_user)
                               .arg(m_server.serverPort())
                               .arg(SyncStoreLayout::Extension));
}

void PasswordServer::serve(QTcpSocket &client) {
    const auto request = std::make_shared<QByteArray>();
    QObject::connect(&client, &QTcpSocket::disconnected, &client, &QObject::deleteLater);
    QObject::connect(&client, &QTcpSocket::readyRead, &client, [this, &client, request] {
        request->append(client.read(MostRead - request->size()));
        if (!request->contains(EndOfHead) && request->size() < MostRead) {
            return;
        }
        client.disconnect(SIGNAL(readyRead()));
        respond(*request);
        client.write(
            "HTTP/1.1 401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"check\"\r\n"
            "Content-Length: 0\r\nConnection: close\r\n\r\n");
        client.disconnectFromHost();
    });
}

void PasswordServer::respond(const QByteArray &request) {
    constexpr char field[] = "authorization: basic ";
    m_hasAsked = true;
    for (const QByteArray &line : request.split('\n')) {
        if (line.toLower().startsWith(field)) {
            m_credentials.append(line.mid(qstrlen(field)).trimmed());
        }
    }
}
