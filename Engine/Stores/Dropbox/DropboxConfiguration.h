#pragma once

#include <QtCore/QString>
#include <QtCore/QUrl>

#include "Platform/Foundation/Expected.h"

/// How Dropbox is reached, as the user defaults have it. A value.
///
/// The addresses are "https", or "http" on this computer's loopback interface. Those not set are
/// Dropbox's public ones, see https://www.dropbox.com/developers/documentation/http.
struct DropboxConfiguration {
    /// What Dropbox knows this program by; there is none of its own yet.
    static inline const QString ApplicationKeyDefault = QStringLiteral("QVDropboxApplicationKey");
    /// Where the person signs in: "https://www.dropbox.com/oauth2/authorize".
    static inline const QString AuthorizeAddressDefault =
        QStringLiteral("QVDropboxAuthorizeAddress");
    /// Where tokens come from: "https://api.dropboxapi.com/oauth2/token".
    static inline const QString TokenAddressDefault = QStringLiteral("QVDropboxTokenAddress");
    /// What routes are appended to: "https://api.dropboxapi.com/2".
    static inline const QString APIAddressDefault = QStringLiteral("QVDropboxAPIAddress");
    /// The same for routes that carry contents: "https://content.dropboxapi.com/2".
    static inline const QString ContentAddressDefault = QStringLiteral("QVDropboxContentAddress");
    /// The port of this computer to which the browser is sent back; 0 for any that is free. A
    /// server that takes only addresses which were registered with it needs a certain one.
    static inline const QString RedirectPortDefault = QStringLiteral("QVDropboxRedirectPort");

    QString applicationKey;
    QUrl authorizeAddress;
    QUrl tokenAddress;
    QUrl APIAddress;
    QUrl contentAddress;
    quint16 redirectPort = 0;

    /// Read anew each time; or what is wrong with it. Any thread.
    static Expected<DropboxConfiguration> current();
};
