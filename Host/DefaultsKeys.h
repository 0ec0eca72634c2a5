#pragma once

#include <QtCore/QString>

/// Keys of the user defaults that the pane writes and the engine reads, see UserDefaults. The
/// engine reads them when the profile is opened; afterwards the pane sets the server itself.
namespace DefaultsKeys {

/// The port of this computer's direct-connection server, an integer from 1 to 65535.
inline const QString DirectConnectionServerPortNumber =
    QStringLiteral("QVDirectConnectionServerPortNumber");
/// Whether this computer's direct-connection server is to serve, a boolean.
inline const QString DirectConnectionServerEnabled =
    QStringLiteral("QVDirectConnectionServerEnabled");

}  // namespace DefaultsKeys
