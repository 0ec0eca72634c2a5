#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <optional>

#include "Platform/Foundation/Expected.h"

/// The request with which a browser reports the result of a sign-in (RFC 6749, section 4.1.2). Any
/// program and any web page can send such a request, so it is not trusted. A value.
class DropboxRedirect {
public:
    /// The path of the redirect address.
    static inline const QString Path = QStringLiteral("/dropbox");

    /// Parses an HTTP request, of which only the first line is used. Fails with notRequested() if
    /// it is not a GET request of the redirect address. Accepts any bytes.
    static Expected<DropboxRedirect> parse(const QByteArray &request);
    /// Returns the error, for the user in front of the browser, of a request that is not the result
    /// of a sign-in. Has the code AccessDenied.
    static Error notRequested();

    /// Returns the authorization code, or the error if the user refused or the response is not
    /// valid. Returns an empty optional if the request has another state than `state`, which was
    /// sent with the sign-in (RFC 6749, section 10.12). `state` must not be empty. A parameter that
    /// occurs twice counts as missing. The code is not empty, but otherwise unchecked: only the
    /// token endpoint can verify it.
    std::optional<Expected<QString>> result(const QString &state) const;

private:
    explicit DropboxRedirect(const QString &query) : m_query(query) {}

    /// Percent-encoded.
    QString m_query;
};
