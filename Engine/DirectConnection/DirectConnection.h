#pragma once

#include <QtCore/QString>

/// The names by which direct connections go.
namespace DirectConnection {

inline const QString URLScheme = QStringLiteral("velmora");
inline constexpr quint16 DefaultPort = 8442;
/// As DNS-SD has it (RFC 6763, section 7).
inline const QString BonjourServiceType = QStringLiteral("_velmora._tcp");
inline const QString ClientAuthorizationServiceName =
    QStringLiteral("Velmora Direct Connection Clients");

}  // namespace DirectConnection
