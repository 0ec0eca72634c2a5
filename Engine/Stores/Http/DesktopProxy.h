#pragma once

#include <QtCore/QByteArray>

class QUrl;

/// The proxy through which the settings of the desktop, or the environment (such as "http_proxy"),
/// have programs reach a server. A value.
struct DesktopProxy {
    /// Scheme, host and port, as libcurl takes them; empty if the server is reached directly.
    QByteArray address = {};
    /// Empty if the settings have none.
    QByteArray user = {};
    QByteArray password = {};

    /// Reads the settings for the server of `URL`; a server on this computer has no proxy. Blocks:
    /// they may name a script that is loaded from the network. Thread-safe.
    static DesktopProxy forURL(const QUrl &URL);
};
