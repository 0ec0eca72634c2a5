#pragma once

#include <QtCore/QString>

/// The URL schemes of sync locations, compared exactly and case-sensitively. The scheme of direct
/// connections is `QVDirectConnectionServer::URLScheme()`. See also Url::isFileURL().
namespace LocationSchemes {

/// A folder; the URL has no host, or "localhost".
inline const QString File = QStringLiteral("file");
/// WebDAV without encryption.
inline const QString Http = QStringLiteral("http");
/// WebDAV with encryption.
inline const QString Https = QStringLiteral("https");
/// The port of a URL with the scheme "http" that has none.
inline constexpr quint16 HttpPort = 80;
/// The port of a URL with the scheme "https" that has none.
inline constexpr quint16 HttpsPort = 443;
/// A Dropbox account, whose e-mail address follows "dropbox://" without percent encoding.
inline const QString Dropbox = QStringLiteral("dropbox");

}  // namespace LocationSchemes
