#include "Platform/Foundation/Log.h"

#include <syslog.h>

#include <cstring>
#include <utility>

#include "Platform/Foundation/TerminalText.h"
#include "Platform/Foundation/UserDefaults.h"

namespace {

const char *systemLogCategory = nullptr;
QtMessageHandler previousHandler = nullptr;

void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &text) {
    if (context.category && std::strcmp(context.category, systemLogCategory) == 0) {
        syslog(LOG_USER | LOG_INFO, "%s", TerminalText::line(text).toUtf8().constData());
    } else {
        previousHandler(type, context, TerminalText::lines(text));
    }
}

}  // namespace

Log::Log(const char *category, QString enabledKey, QString verboseKey)
    : m_category(category),
      m_enabledKey(std::move(enabledKey)),
      m_verboseKey(std::move(verboseKey)) {}

bool Log::isEnabled() const {
    // What cannot be read is reported where it matters.
    return UserDefaults::boolForKey(m_enabledKey).value_or(false);
}

bool Log::isVerbose() const {
    return isEnabled() && UserDefaults::boolForKey(m_verboseKey).value_or(false);
}

void Log::message(const QString &text) const {
    if (isEnabled()) {
        qCInfo(m_category).noquote() << text;
    }
}

void Log::verbose(const QString &text) const {
    if (isVerbose()) {
        qCInfo(m_category).noquote() << text;
    }
}

void Log::sendToSystemLog(const char *category) {
    systemLogCategory = category;
    previousHandler = qInstallMessageHandler(&handleMessage);
}
