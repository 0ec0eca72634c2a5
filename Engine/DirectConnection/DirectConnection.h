#pragma once

#include <QtCore/QString>
#include <chrono>

/// The names and numbers that identify direct connections, and their limits.
namespace DirectConnection {

/// The scheme of URLs of direct-connection locations.
inline const QString URLScheme = QStringLiteral("velmora");
/// TCP port of servers unless the user chooses another. Also that of URLs without a port.
inline constexpr quint16 DefaultPort = 8442;
/// Service type for DNS-SD (RFC 6763, section 7).
inline const QString BonjourServiceType = QStringLiteral("_velmora._tcp");
/// Service name of the keychain items of authorized clients.
inline const QString ClientAuthorizationServiceName =
    QStringLiteral("Velmora Direct Connection Clients");

/// Resource limits of a direct-connection server, which no client must exhaust for the others. They
/// apply to all clients together unless stated otherwise; the times must be positive.
struct Limits {
    /// Maximum number of connections. Beyond it, the oldest connection that is not authorized is
    /// closed; if there is none, the oldest of a client that has more than its share; if there is
    /// none, the new one. At least 1.
    qsizetype connections = 32;
    /// The number of connections that each authorized client keeps in any case.
    qsizetype connectionsOfClient = 8;
    /// Timeout from the connection to a greeting or a pairing request.
    std::chrono::milliseconds greetingTime = std::chrono::seconds(10);
    /// Timeout for the user's answer.
    std::chrono::milliseconds askingTime = std::chrono::minutes(2);
    /// Timeout between two messages of an authorized client, during which it must also have read
    /// the response to the first one.
    std::chrono::milliseconds idleTime = std::chrono::minutes(5);
    /// Timeout of one message of an authorized client, however steadily it sends.
    std::chrono::milliseconds messageTime = std::chrono::minutes(10);
    /// Time in which the user is not asked again about a client at the same address after refusing
    /// it, or after it did not wait for the answer. Each further time it is twice as long, up to
    /// `longestPause`.
    std::chrono::milliseconds pauseAfterRefusal = std::chrono::seconds(10);
    std::chrono::milliseconds longestPause = std::chrono::hours(1);
    /// Maximum number of such questions in an hour, about all clients together.
    qsizetype refusalsInAnHour = 20;
    /// Maximum size in bytes of the messages that are being received from authorized clients and
    /// sent to them. At that size, no other message is begun, so that all together take less than
    /// this and the largest message.
    qsizetype memory = qsizetype(32) << 20;
    /// Time for which a client waits for that memory. Then the connection that takes most of it is
    /// closed.
    std::chrono::milliseconds memoryTime = std::chrono::minutes(1);
};

}  // namespace DirectConnection
