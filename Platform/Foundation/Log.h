#pragma once

#include <QtCore/QLoggingCategory>
#include <QtCore/QString>

#include "Platform/PlatformExport.h"

/// Diagnostic messages to the system log. They are written only while the user defaults ask for
/// them, which is looked up at each message. Any thread. Never log a secret.
namespace Log {

/// The category under which the messages go through Qt's message handler.
PLATFORM_EXPORT const QLoggingCategory &category();

/// Whether "QVSyncDebug" is on.
PLATFORM_EXPORT bool isEnabled();
/// Whether "QVSyncDebug" and "QVSyncDebugHigh" are both on.
PLATFORM_EXPORT bool isVerbose();

/// Written while `isEnabled`.
PLATFORM_EXPORT void message(const QString &text);
/// Written while `isVerbose`.
PLATFORM_EXPORT void verbose(const QString &text);

/// From now on messages of `category` go to the system log (syslog(3), facility user) and all
/// others where they went before. Called once, by the application.
PLATFORM_EXPORT void sendToSystemLog();

}  // namespace Log
