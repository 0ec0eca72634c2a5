#include "HostCheck/StoreServer.h"

#include <QtCore/QRegularExpression>
#include <QtNetwork/QTcpSocket>
#include <memory>
#include <utility>

#include "Host/SyncStoreLayout.h"
#include "HostCheck/Checking.h"

namespace {

const QString StorePath = QStringLiteral("/Checked.") + SyncStoreLayout::Extension;
/// The most that is read of one client.
constexpr qsizetype LargestRequest = 65536;

/// Returns whether `bytes` are a request with its whole body.
bool isWhole(const QByteArray &bytes) {
    static const QRegularExpression length(QStringLiteral("\r\ncontent-length: *(\\d+)"),
                                           QRegularExpression::CaseInsensitiveOption);
    const qsizetype end = bytes.indexOf("\r\n\r\n");
    const auto found = length.match(QString::fromLatin1(bytes.left(end)));
    return end >= 0 && bytes.size() - end - 4 >= found.captured(1).toLongLong();
}

/// Returns the folders at `path`, a path without a slash at the end, and in it. Empty if there are
/// none.
QStringList foldersAt(const QString &path) {
    const QStringList all = SyncStoreLayout::foldersOfStore(StorePath);
    if (path == all.first()) {
        return all;
    }
    return all.contains(path) ? QStringList{path} : QStringList();
}

QByteArray message(const char *status, const QByteArray &body = {}) {
    return QByteArray("HTTP/1.1 ") + status +
           "\r\nContent-Type: application/xml\r\nConnection: close\r\nContent-Length: " +
           QByteArray::number(body.size()) + "\r\n\r\n" + body;
}

}  // namespace

StoreServer::StoreServer() {
    QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
        while (QTcpSocket *client = m_server.nextPendingConnection()) {
            serve(*client);
        }
    });
    Checking::require(m_server.listen(QHostAddress::LocalHost),
                      "the check could not listen on this computer");
}

Url StoreServer::URL() const {
    return Url::fromString(
        QStringLiteral("http://127.0.0.1:%1%2").arg(m_server.serverPort()).arg(StorePath));
}

void StoreServer::respond() {
    respondToOthers();
    for (const Request &request : std::exchange(m_held, {})) {
        respondTo(request);
    }
}

void StoreServer::respondTo(const Request &request) {
    request.client->write(responseTo(request));
    request.client->disconnectFromHost();
}

void StoreServer::serve(QTcpSocket &client) {
    const auto bytes = std::make_shared<QByteArray>();
    QObject::connect(&client, &QTcpSocket::disconnected, &m_server, [this, &client] {
        m_held.removeIf([&](const Request &request) { return request.client == &client; });
        client.deleteLater();
    });
    QObject::connect(&client, &QTcpSocket::readyRead, &client, [this, &client, bytes] {
        bytes->append(client.read(LargestRequest - bytes->size()));
        if (isWhole(*bytes)) {
            take(client, std::exchange(*bytes, {}));
        }
    });
}

void StoreServer::take(QTcpSocket &client, const QByteArray &bytes) {
    const QByteArrayList words = bytes.left(bytes.indexOf('\r')).split(' ');
    const Request request{.method = words.value(0), .path = words.value(1), .client = &client};
    if (m_isHolding) {
        m_held.append(request);
    } else {
        respondTo(request);
    }
}

QByteArray StoreServer::responseTo(const Request &request) {
    const QString path = QString::fromLatin1(request.path);
    const QStringList folders = foldersAt(path.endsWith(u'/') ? path.chopped(1) : path);
    if (folders.isEmpty()) {
        return message("404 Not Found");
    }
    if (request.method != "PROPFIND") {
        return message("405 Method Not Allowed");
    }
    QByteArray body = "<?xml version=\"1.0\" encoding=\"utf-8\"?><multistatus xmlns=\"DAV:\">";
    for (const QString &folder : folders) {
        body += "<response><href>" + folder.toLatin1() +
                "/</href><propstat><prop><resourcetype><collection/></resourcetype></prop>"
                "<status>HTTP/1.1 200 OK</status></propstat></response>";
    }
    return message("207 Multi-Status", body + "</multistatus>");
}
