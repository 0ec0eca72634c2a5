#pragma once

#include <QtCore/QString>

/// The URL schemes of sync locations, compared exactly and case-sensitively. A folder location has
/// a file URL; the scheme of direct connections is `QVDirectConnectionServer::URLScheme()`.
namespace LocationSchemes {

inline const QString Http = QStringLiteral("http");
inline const QString Https = QStringLiteral("https");
inline const QString Dropbox = QStringLiteral("dropbox");

}  // namespace LocationSchemes
