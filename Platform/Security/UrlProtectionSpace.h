#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <optional>

#include "Platform/PlatformExport.h"

class Url;

/// The name of the authentication method Basic (RFC 7617).
inline const QString UrlAuthenticationMethodHttpBasic = QStringLiteral("basic");
/// The name of the authentication method Digest (RFC 7616).
inline const QString UrlAuthenticationMethodHttpDigest = QStringLiteral("digest");

/// Where a credential applies: a server and its authentication method. Spaces are equal if all
/// their texts are equal, including case. A value. A password is sent to the server of its space
/// only.
struct PLATFORM_EXPORT UrlProtectionSpace {
    /// As the URL writes it, without brackets.
    QString host = {};
    /// 0 if the URL has no port: the default port of the scheme then counts as another space than
    /// the same port in a URL.
    int port = 0;
    /// The scheme of the URL.
    QString protocol = {};
    /// An empty optional differs from an empty text.
    std::optional<QString> realm = {};
    /// One of the names above.
    QString authenticationMethod = {};

    /// Returns the space of a URL's host, port and scheme, without a realm; nothing for a nil URL.
    static std::optional<UrlProtectionSpace> ofURL(const Url &URL,
                                                   const QString &authenticationMethod);

    /// Compares all members exactly.
    bool operator==(const UrlProtectionSpace &) const = default;
};

Q_DECLARE_METATYPE(UrlProtectionSpace)
