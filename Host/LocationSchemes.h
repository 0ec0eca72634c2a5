#pragma once

#include <QtCore/QString>

/// The URL schemes of sync locations, compared exactly and case-sensitively. The scheme of direct
/// connections is `QVDirectConnectionServer::URLScheme()`. See also Url::isFileURL().
namespace LocationSchemes {

inline const QString File = QStringLiteral("file");
inline const QString Http = QStringLiteral("http");
inline const QString Https = QStringLiteral("https");
inline const QString Dropbox = QStringLiteral("dropbox");

}  // namespace LocationSchemes
