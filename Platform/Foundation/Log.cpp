#include "Platform/Foundation/Log.h"

#include <syslog.h>

#include <cstring>

#include "Platform/Foundation/TerminalText.h"
#include "Platform/Foundation/UserDefaults.h"

namespace Log {

namespace {

QtMessageHandler previousHandler = nullptr;

void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &text) {
    if (context.category && std::strcmp(context.category, category().categoryName()) == 0) {
        syslog(LOG_USER | LOG_INFO, "%s", TerminalText::line(text).toUtf8().constData());
    } else {
        previousHandler(type, context, TerminalText::lines(text));
    }
}

}  // namespace

const QLoggingCategory &category() {
    static const QLoggingCategory syncCategory("sync");
    return syncCategory;
}

bool isEnabled() {
    return UserDefaults::boolForKey(QStringLiteral("QVSyncDebug"));
}

bool isVerbose() {
    return isEnabled() && UserDefaults::boolForKey(QStringLiteral("QVSyncDebugHigh"));
}

void message(const QString &text) {
    if (isEnabled()) {
        qCInfo(category).noquote() << text;
    }
}

void verbose(const QString &text) {
    if (isVerbose()) {
        qCInfo(category).noquote() << text;
    }
}

void sendToSystemLog() {
    previousHandler = qInstallMessageHandler(&handleMessage);
}

}  // namespace Log
