#pragma once

#include <QtCore/QString>
#include <QtCore/QUrl>

#include "Platform/Foundation/Expected.h"

/// The addresses and the application key used for Dropbox, as set in the user defaults.
///
/// Addresses must use https (http is allowed for loopback only). Those not set are Dropbox's public
/// ones, see https://www.dropbox.com/developers/documentation/http.
struct DropboxConfiguration {
    /// The key that identifies this program to Dropbox. There is no built-in key yet.
    static inline const QString ApplicationKeyDefault = QStringLiteral("QVDropboxApplicationKey");
    /// The page on which the user signs in; by default "https://www.dropbox.com/oauth2/authorize".
    static inline const QString AuthorizeAddressDefault =
        QStringLiteral("QVDropboxAuthorizeAddress");
    /// The token endpoint; by default "https://api.dropboxapi.com/oauth2/token".
    static inline const QString TokenAddressDefault = QStringLiteral("QVDropboxTokenAddress");
    /// The prefix of routes; by default "https://api.dropboxapi.com/2".
    static inline const QString APIAddressDefault = QStringLiteral("QVDropboxAPIAddress");
    /// The prefix of routes that transfer contents; by default "https://content.dropboxapi.com/2".
    static inline const QString ContentAddressDefault = QStringLiteral("QVDropboxContentAddress");
    /// The local port to which the browser is redirected; 0 selects a free one. A server that
    /// accepts only registered addresses needs a fixed port.
    static inline const QString RedirectPortDefault = QStringLiteral("QVDropboxRedirectPort");

    QString applicationKey;
    QUrl authorizeAddress;
    QUrl tokenAddress;
    QUrl APIAddress;
    QUrl contentAddress;
    quint16 redirectPort = 0;

    /// Reads the configuration from the user defaults, each time. Fails with the code
    /// StoreUnreachable if the user defaults cannot be read, there is no application key, the port
    /// is not a number from 0 to 65535, or an address is not secure: neither https nor http to
    /// "localhost" or a loopback address, without a host, or with user information. Slashes at the
    /// end of addresses are removed. Thread-safe.
    static Expected<DropboxConfiguration> current();
};
