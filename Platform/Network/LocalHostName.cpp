#include "Platform/Network/LocalHostName.h"

#include <arpa/inet.h>

#include <QtCore/QDeadlineTimer>
#include <QtCore/QUuid>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <array>

#include "Platform/Foundation/Localization.h"
#include "Platform/Network/AvahiBus.h"
#include "Platform/Network/SystemBusProbe.h"

namespace {

constexpr qsizetype AddressArgument = 4;
const QString NoReplyError = QStringLiteral("org.freedesktop.DBus.Error.NoReply");
const QString NoServerError = QStringLiteral("org.freedesktop.DBus.Error.NoServer");

/// A connection to the system bus for one thread.
class Daemon {
public:
    Daemon() = default;
    ~Daemon() { QDBusConnection::disconnectFromBus(m_name); }
    Daemon(const Daemon &) = delete;
    Daemon &operator=(const Daemon &) = delete;

    /// Returns the reply or error. Blocks for at most `timeout`.
    QDBusMessage call(const QString &method, const QVariantList &arguments,
                      std::chrono::milliseconds timeout) const {
        QDBusMessage request = QDBusMessage::createMethodCall(
            AvahiBus::Service, AvahiBus::ServerPath, AvahiBus::ServerInterface, method);
        request.setArguments(arguments);
        return m_bus.call(request, QDBus::Block, static_cast<int>(timeout.count()));
    }

private:
    const QString m_name = QUuid::createUuid().toString(QUuid::WithoutBraces);
    const QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SystemBus, m_name);
};

tl::unexpected<Error> noService(const QString &hostName, const QString &errorName) {
    return failure(
        {.domain = QStringLiteral("LocalHostName"),
         .code = static_cast<int>(LocalHostName::ErrorCode::NoService),
         .localizedDescription =
             localizedString(PlatformTable,
                             "The name “%1” cannot be looked up in the local network, because the "
                             "service Avahi does not respond (%2). Start it and try again.")
                 .arg(hostName, errorName)});
}

tl::unexpected<Error> notFound(const QString &hostName) {
    return failure({.domain = QStringLiteral("LocalHostName"),
                    .code = static_cast<int>(LocalHostName::ErrorCode::NotFound),
                    .localizedDescription =
                        localizedString(PlatformTable,
                                        "No computer of the local network has responded to the "
                                        "name “%1”. Check that the computer is on and in the same "
                                        "network.")
                            .arg(hostName)});
}

/// Returns the address in the daemon's reply, which is not trusted; empty if there is none.
QString addressIn(const QDBusMessage &reply) {
    if (reply.signature() != QStringLiteral("iisisu")) {
        return {};
    }
    const QString text = reply.arguments().at(AddressArgument).toString();
    std::array<unsigned char, sizeof(in6_addr)> bytes{};
    const bool isIPv6 = inet_pton(AF_INET6, text.toUtf8().constData(), bytes.data()) == 1;
    if (!isIPv6 && inet_pton(AF_INET, text.toUtf8().constData(), bytes.data()) != 1) {
        return {};
    }
    const bool isLinkLocal = isIPv6 && text.startsWith(QStringLiteral("fe80:"));
    return isLinkLocal ? text + u'%' + QString::number(reply.arguments().at(0).toInt()) : text;
}

/// Returns whether the daemon has looked for the computer in vain.
bool isAbsence(const QDBusMessage &reply) {
    const QStringList absences{AvahiBus::TimeoutError, AvahiBus::NotFoundError, NoReplyError};
    return reply.type() == QDBusMessage::ReplyMessage || absences.contains(reply.errorName());
}

}  // namespace

bool LocalHostName::isLocal(const QString &hostName) {
    return hostName.endsWith(QStringLiteral(".local"), Qt::CaseInsensitive) ||
           hostName.endsWith(QStringLiteral(".local."), Qt::CaseInsensitive);
}

Expected<QString> LocalHostName::address(const QString &hostName,
                                         std::chrono::milliseconds timeout) {
    const QDeadlineTimer deadline(timeout);
    const auto left = [&] {
        return std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline.remainingTimeAsDuration());
    };
    if (!SystemBusProbe::responds(timeout)) {
        return noService(hostName, NoServerError);
    }
    const Daemon daemon;
    // So that a daemon that does not respond is told apart from a computer that does not.
    const QDBusMessage version = daemon.call(QStringLiteral("GetAPIVersion"), {}, left());
    if (version.type() != QDBusMessage::ReplyMessage) {
        return noService(hostName, version.errorName());
    }
    // Half of the time for each family: a host without an address of one does not reply to it.
    const auto half = left() / 2;
    for (const int protocol : {AvahiBus::IPv4, AvahiBus::IPv6}) {
        const QDBusMessage reply = daemon.call(
            QStringLiteral("ResolveHostName"),
            {AvahiBus::Any, AvahiBus::Any, hostName, protocol, AvahiBus::NoFlags}, half);
        if (!isAbsence(reply)) {
            return noService(hostName, reply.errorName());
        }
        if (const QString address = addressIn(reply); !address.isEmpty()) {
            return address;
        }
    }
    return notFound(hostName);
}
