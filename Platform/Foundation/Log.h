#pragma once

#include <QtCore/QLoggingCategory>
#include <QtCore/QString>

#include "Platform/PlatformExport.h"

/// Diagnostic messages. They are written only if the user's settings ask for them, which is checked
/// for each message. Thread-safe. Never log a secret; use Url::stringWithoutPassword() for URLs.
class PLATFORM_EXPORT Log {
public:
    /// Creates a log whose messages reach Qt's message handler with the category `category`, which
    /// is not copied. The user defaults `enabledKey` and `verboseKey`, booleans, switch it on.
    /// Reads no setting yet.
    Log(const char *category, QString enabledKey, QString verboseKey);
    Log(const Log &) = delete;
    Log &operator=(const Log &) = delete;

    /// Returns whether `enabledKey` is on.
    bool isEnabled() const;
    /// Returns whether `enabledKey` and `verboseKey` are both on.
    bool isVerbose() const;

    /// Writes `text` if isEnabled(). It may be any text: control characters are escaped for the
    /// terminal and the system log if sendToSystemLog() was called.
    void message(const QString &text) const;
    /// Writes `text` if isVerbose(). A caller whose text is expensive to compute asks isVerbose()
    /// first.
    void verbose(const QString &text) const;

    /// Sends the messages of the category `category`, which is not copied, to the system log
    /// (syslog(3), facility user) from now on. All other messages go to the message handler that
    /// was installed before. Call it once, from the application.
    static void sendToSystemLog(const char *category);

private:
    const QLoggingCategory m_category;
    const QString m_enabledKey;
    const QString m_verboseKey;
};
