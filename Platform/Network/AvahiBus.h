#pragma once

#include <QtCore/QString>

/// Names and values of the D-Bus interface of the Avahi daemon, on the system bus.
namespace AvahiBus {

/// The name of the daemon's service, and the object that creates the others.
inline const QString Service = QStringLiteral("org.freedesktop.Avahi");
inline const QString ServerPath = QStringLiteral("/");
/// The interfaces of that object, of a search, and of an announcement.
inline const QString ServerInterface = QStringLiteral("org.freedesktop.Avahi.Server");
inline const QString BrowserInterface = QStringLiteral("org.freedesktop.Avahi.ServiceBrowser");
inline const QString GroupInterface = QStringLiteral("org.freedesktop.Avahi.EntryGroup");

/// Names of errors: the name of a service is in use; a host name has no address.
inline const QString CollisionError = QStringLiteral("org.freedesktop.Avahi.CollisionError");
inline const QString TimeoutError = QStringLiteral("org.freedesktop.Avahi.TimeoutError");
inline const QString NotFoundError = QStringLiteral("org.freedesktop.Avahi.NotFoundError");

/// All network interfaces, or all protocols.
constexpr int Any = -1;

/// Protocols.
constexpr int IPv4 = 0;
constexpr int IPv6 = 1;

constexpr quint32 NoFlags = 0;
/// Look up no text record of the service.
constexpr quint32 WithoutText = 4;

/// A state of the daemon: its host name is registered.
constexpr int ServerRunning = 2;

/// States of an entry group: its services are announced; a name is used by another computer.
constexpr int GroupEstablished = 2;
constexpr int GroupCollision = 3;

}  // namespace AvahiBus
