#include "Platform/Network/SystemBusProbe.h"

#include <unistd.h>

#include <QtCore/QDeadlineTimer>
#include <QtCore/QStringList>
#include <optional>
#include <utility>

namespace {

/// Maximum size of a line of the authentication, in bytes.
constexpr qsizetype LongestLine = 1024;

/// The message that a bus expects first, as D-Bus encodes it: its size and type, and in fields the
/// path, destination, interface and name of the method that is called.
constexpr char Hello[] =
    "l\1\0\1\0\0\0\0\1\0\0\0n\0\0\0"
    "\1\1o\0\25\0\0\0/org/freedesktop/DBus\0\0\0"
    "\6\1s\0\24\0\0\0org.freedesktop.DBus\0\0\0\0"
    "\2\1s\0\24\0\0\0org.freedesktop.DBus\0\0\0\0"
    "\3\1s\0\5\0\0\0Hello\0\0\0";
constexpr qint64 HelloSize = sizeof Hello - 1;

/// Returns the path of the socket of the system bus; empty if its address is not that of one such
/// socket.
QString socketPath() {
    const QString address = qEnvironmentVariable(
        "DBUS_SYSTEM_BUS_ADDRESS", QStringLiteral("unix:path=/var/run/dbus/system_bus_socket"));
    const QString transport = QStringLiteral("unix:");
    const QString key = QStringLiteral("path=");
    if (!address.startsWith(transport) || address.contains(u';')) {
        return {};
    }
    for (const QString &part : address.mid(transport.size()).split(u',')) {
        if (part.startsWith(key)) {
            return QString::fromUtf8(
                QByteArray::fromPercentEncoding(part.mid(key.size()).toUtf8()));
        }
    }
    return {};
}

}  // namespace

SystemBusProbe::SystemBusProbe(QObject *parent) : QObject(parent) {
    connect(&m_socket, &QLocalSocket::connected, this, &SystemBusProbe::authenticate);
    connect(&m_socket, &QLocalSocket::readyRead, this, &SystemBusProbe::readReply);
    connect(&m_socket, &QLocalSocket::disconnected, this, [this] { end(false); });
    connect(&m_socket, &QLocalSocket::errorOccurred, this, [this] { end(false); });
}

SystemBusProbe::~SystemBusProbe() {
    m_isAsking = false;
    m_socket.abort();
}

void SystemBusProbe::start() {
    m_received.clear();
    m_isAuthenticated = false;
    m_isAsking = true;
    const QString path = socketPath();
    if (path.isEmpty()) {
        end(true);
    } else {
        m_socket.connectToServer(path);
    }
}

bool SystemBusProbe::responds(std::chrono::milliseconds timeout) {
    const QDeadlineTimer deadline(timeout);
    SystemBusProbe probe;
    std::optional<bool> result;
    connect(&probe, &SystemBusProbe::ended, &probe,
            [&](bool isResponding) { result = isResponding; });
    probe.start();
    const auto left = [&] { return static_cast<int>(deadline.remainingTime()); };
    if (!result && probe.m_socket.waitForConnected(left())) {
        while (!result && probe.m_socket.waitForReadyRead(left())) {
        }
    }
    return result.value_or(false);
}

void SystemBusProbe::authenticate() {
    m_socket.write(QByteArray(1, '\0') + "AUTH EXTERNAL " + QByteArray::number(geteuid()).toHex() +
                   "\r\n");
}

void SystemBusProbe::readReply() {
    m_received += m_socket.read(LongestLine);
    if (m_isAuthenticated) {
        end(true);
    } else if (m_received.contains("\r\n")) {
        m_isAuthenticated = m_received.startsWith("OK ");
        if (m_isAuthenticated) {
            m_received.clear();
            m_socket.write("BEGIN\r\n");
            m_socket.write(Hello, HelloSize);
        } else {
            // It refuses others in the same way, without delay.
            end(true);
        }
    } else if (m_received.size() >= LongestLine) {
        end(false);
    }
}

void SystemBusProbe::end(bool isResponding) {
    if (std::exchange(m_isAsking, false)) {
        m_socket.abort();
        Q_EMIT ended(isResponding);
    }
}
