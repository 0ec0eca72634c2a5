#include "Application/RunningInstance.h"

#include <unistd.h>

#include <QtCore/QCryptographicHash>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtNetwork/QLocalSocket>
#include <algorithm>
#include <chrono>

#include "Application/ApplicationError.h"

namespace {

constexpr int Timeout = 1000;
constexpr char Confirmation = '!';
constexpr char RaiseRequest[] = "raise\n";
constexpr qint64 LongestRequest = 65536;
constexpr std::chrono::seconds RequestTimeout(5);

/// Returns whether only the user can use the folder.
bool isPrivate(const QString &folder) {
    const QFileInfo info(folder);
    return info.isDir() && info.ownerId() == ::geteuid() &&
           (info.permissions() & (QFile::WriteGroup | QFile::WriteOther)) == 0;
}

/// The paths that the socket may have, the preferred one first. QStandardPaths would warn each time
/// that there is no runtime folder, and use a folder that another user may have made.
QStringList socketPaths(const QString &profile) {
    const QString folder = QFileInfo(profile).canonicalFilePath();
    const QByteArray digest = QCryptographicHash::hash(folder.toUtf8(), QCryptographicHash::Sha256);
    const QString runtimeFolder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    QStringList paths{folder + QStringLiteral("/running")};
    if (isPrivate(runtimeFolder)) {
        paths.prepend(QStringLiteral("%1/velmora-%2")
                          .arg(runtimeFolder, QLatin1StringView(digest.first(8).toHex())));
    }
    return paths;
}

/// Connects to the process that shows the windows of the profile. Returns whether there is one.
bool connectTo(QLocalSocket &socket, const QString &profile) {
    const QStringList paths = socketPaths(profile);
    return std::any_of(paths.begin(), paths.end(), [&](const QString &path) {
        socket.connectToServer(path);
        return socket.waitForConnected(Timeout);
    });
}

}  // namespace

RunningInstance::RunningInstance(const QString &profile, QObject *parent)
    : QObject(parent), m_paths(socketPaths(profile)) {
    connect(&m_server, &QLocalServer::newConnection, this, &RunningInstance::accept);
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
}

Expected<void> RunningInstance::listen() {
    for (const QString &path : m_paths) {
        // The profile is locked, so this socket can only be that of a process that was killed.
        QLocalServer::removeServer(path);
        if (m_server.listen(path)) {
            return {};
        }
    }
    return failure(applicationError(
        tr("A second start of Velmora will not find these windows: %1 cannot be used (%2). Check "
           "the permissions and the space of its folder, then start Velmora again.")
            .arg(m_paths.last(), m_server.errorString())));
}

void RunningInstance::accept() {
    while (QLocalSocket *socket = m_server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { read(socket); });
        QTimer::singleShot(RequestTimeout, socket, [socket] {
            // Nothing is left to be read of a request that was complete.
            if (!socket->isTransactionStarted()) {
                socket->abort();
            }
        });
        read(socket);
    }
}

void RunningInstance::read(QLocalSocket *socket) {
    if (socket->isTransactionStarted()) {
        return;
    }
    if (!socket->canReadLine()) {
        if (socket->bytesAvailable() > LongestRequest) {
            socket->abort();
        }
        return;
    }
    const QByteArray line = socket->readLine(LongestRequest);
    socket->startTransaction();
    if (line == RaiseRequest) {
        socket->write(&Confirmation, 1);
        socket->disconnectFromServer();
        Q_EMIT raiseRequested();
        return;
    }
    const std::optional<ShellCommand> command = ShellCommand::fromLine(line);
    if (!command) {
        socket->write(ShellResult::failed(otherVersion()).toLine());
        socket->disconnectFromServer();
        return;
    }
    Q_EMIT commandRequested(*command, [asking = QPointer(socket)](const ShellResult &result) {
        if (asking) {
            asking->write(result.toLine());
            asking->disconnectFromServer();
        }
    });
}

QString RunningInstance::otherVersion() {
    return tr("Velmora, which is running, has another version. Quit it, then try again.");
}

bool RunningInstance::raise(const QString &profile) {
    QLocalSocket socket;
    if (!connectTo(socket, profile)) {
        return false;
    }
    socket.write(RaiseRequest);
    return socket.waitForReadyRead(Timeout) && socket.read(1) == QByteArray(1, Confirmation);
}

std::optional<ShellResult> RunningInstance::ask(const QString &profile, const ShellCommand &command,
                                                const QDeadlineTimer &deadline) {
    QLocalSocket socket;
    if (!connectTo(socket, profile)) {
        return {};
    }
    socket.write(command.toLine());
    QByteArray line;
    while (!line.endsWith('\n') &&
           socket.waitForReadyRead(static_cast<int>(deadline.remainingTime()))) {
        line += socket.readAll();
    }
    line += socket.readAll();
    if (!line.endsWith('\n') && socket.state() == QLocalSocket::ConnectedState) {
        return ShellResult::timedOut(tr(
            "Velmora, which is running, takes too long and continues with the command. Try again "
            "later, or state a longer time with --timeout."));
    }
    return ShellResult::fromLine(line).value_or(ShellResult::failed(
        line.endsWith('\n')
            ? otherVersion()
            : tr("Velmora has ended before the command was completed. Try again.")));
}
