#pragma once

#include <QtCore/QLoggingCategory>
#include <QtCore/QString>

#include "Platform/PlatformExport.h"

/// Diagnostic messages for the system log. They are written only if the user's settings ask for
/// them, which is checked for each message. Thread-safe. Never log a secret; use
/// Url::stringWithoutPassword() for URLs.
namespace Log {

/// Returns the category with which the messages are sent to Qt's message handler.
PLATFORM_EXPORT const QLoggingCategory &category();

/// Returns whether the setting "QVSyncDebug" is on.
PLATFORM_EXPORT bool isEnabled();
/// Returns whether the settings "QVSyncDebug" and "QVSyncDebugHigh" are both on.
PLATFORM_EXPORT bool isVerbose();

/// Writes `text` if isEnabled().
PLATFORM_EXPORT void message(const QString &text);
/// Writes `text` if isVerbose().
PLATFORM_EXPORT void verbose(const QString &text);

/// Sends the messages of category() to the system log (syslog(3), facility user) from now on. All
/// other messages go to the message handler that was installed before. Call it once, from the
/// application.
PLATFORM_EXPORT void sendToSystemLog();

}  // namespace Log
