#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <optional>

#include "Platform/PlatformExport.h"

class Url;

/// Names of authentication methods, see RFC 7617 (Basic) and RFC 7616 (Digest).
inline const QString UrlAuthenticationMethodHttpBasic = QStringLiteral("basic");
inline const QString UrlAuthenticationMethodHttpDigest = QStringLiteral("digest");

/// Where a credential applies: a server and its authentication method. Spaces are equal if all
/// their texts are equal, including case.
struct PLATFORM_EXPORT UrlProtectionSpace {
    QString host = {};
    /// 0 if the URL has no port.
    int port = 0;
    /// The scheme of the URL.
    QString protocol = {};
    /// An empty optional differs from an empty text.
    std::optional<QString> realm = {};
    QString authenticationMethod = {};

    /// Returns the space of a URL's host, port and scheme, without a realm; nothing for a nil URL.
    static std::optional<UrlProtectionSpace> ofURL(const Url &URL,
                                                   const QString &authenticationMethod);

    bool operator==(const UrlProtectionSpace &) const = default;
};

Q_DECLARE_METATYPE(UrlProtectionSpace)
