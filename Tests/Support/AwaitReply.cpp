#include "Support/AwaitReply.h"

#include <QtCore/QEventLoop>
#include <QtDBus/QDBusPendingCallWatcher>

QDBusMessage awaitReply(const QDBusPendingCall &call) {
    const QDBusPendingCallWatcher watcher(call);
    if (!watcher.isFinished()) {
        QEventLoop loop;
        QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return watcher.reply();
}
