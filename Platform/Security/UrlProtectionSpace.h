#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <optional>

#include "Platform/PlatformExport.h"

class Url;

/// Names of authentication methods, see RFC 7617 (Basic) and RFC 7616 (Digest).
inline const QString UrlAuthenticationMethodHttpBasic = QStringLiteral("basic");
inline const QString UrlAuthenticationMethodHttpDigest = QStringLiteral("digest");

/// What a credential is good for: a server, and the way in which it asks. A value; two are equal
/// when all their texts are, letter by letter.
struct PLATFORM_EXPORT UrlProtectionSpace {
    QString host = {};
    /// 0 where the URL has none.
    int port = 0;
    /// The scheme of the URL.
    QString protocol = {};
    /// Absent is not the same as empty.
    std::optional<QString> realm = {};
    QString authenticationMethod = {};

    /// Returns the space of a URL's host, port and scheme, without a realm; nothing for a nil URL.
    static std::optional<UrlProtectionSpace> ofURL(const Url &URL,
                                                   const QString &authenticationMethod);

    bool operator==(const UrlProtectionSpace &) const = default;
};

Q_DECLARE_METATYPE(UrlProtectionSpace)
