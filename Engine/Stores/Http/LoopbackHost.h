#pragma once

#include <QtNetwork/QHostAddress>

/// Returns whether `host`, as a URL names it, is this computer itself, by a name or an address that
/// never leads to another one. Looks nothing up. Thread-safe.
inline bool isLoopbackHost(const QString &host) {
    return host == QStringLiteral("localhost") || QHostAddress(host).isLoopback();
}
