#pragma once

#include <QtCore/QString>

/// The names and numbers that identify direct connections.
namespace DirectConnection {

/// The scheme of URLs of direct-connection locations.
inline const QString URLScheme = QStringLiteral("velmora");
/// TCP port of servers unless the user chooses another.
inline constexpr quint16 DefaultPort = 8442;
/// Service type for DNS-SD (RFC 6763, section 7).
inline const QString BonjourServiceType = QStringLiteral("_velmora._tcp");
/// Service name of the keychain items of authorized clients.
inline const QString ClientAuthorizationServiceName =
    QStringLiteral("Velmora Direct Connection Clients");

}  // namespace DirectConnection
