#include "Application/RunningInstance.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QFileInfo>
#include <QtCore/QStandardPaths>
#include <QtNetwork/QLocalSocket>

namespace {

constexpr int Timeout = 1000;
constexpr char Confirmation = '!';

/// The path of the socket; empty if there is no runtime folder.
QString socketPath(const QString &profile) {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    const QByteArray digest = QCryptographicHash::hash(
        QFileInfo(profile).canonicalFilePath().toUtf8(), QCryptographicHash::Sha256);
    return folder.isEmpty() ? QString()
                            : QStringLiteral("%1/velmora-%2")
                                  .arg(folder, QLatin1StringView(digest.first(8).toHex()));
}

}  // namespace

RunningInstance::RunningInstance(const QString &profile, QObject *parent)
    : QObject(parent), m_path(socketPath(profile)) {
    connect(&m_server, &QLocalServer::newConnection, this, &RunningInstance::answer);
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
}

Expected<void> RunningInstance::listen() {
    if (m_path.isEmpty()) {
        return {};
    }
    // The profile is locked, so this socket can only be that of a process that was killed.
    QLocalServer::removeServer(m_path);
    if (m_server.listen(m_path)) {
        return {};
    }
    return failure(
        {.domain = QStringLiteral("Velmora"),
         .localizedDescription =
             tr("A second start of Velmora will not find these windows: %1 cannot be used (%2).")
                 .arg(m_path, m_server.errorString())});
}

void RunningInstance::answer() {
    while (QLocalSocket *socket = m_server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        socket->write(&Confirmation, 1);
        socket->disconnectFromServer();
        Q_EMIT raiseRequested();
    }
}

bool RunningInstance::raise(const QString &profile) {
    QLocalSocket socket;
    socket.connectToServer(socketPath(profile));
    return socket.waitForConnected(Timeout) && socket.waitForReadyRead(Timeout) &&
           socket.read(1) == QByteArray(1, Confirmation);
}
