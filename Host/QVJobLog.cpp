#include "Host/QVJobLog.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QMetaMethod>

#include "Host/QVApplication.h"
#include "Host/SyncStrings.h"

QVJobLog::~QVJobLog() = default;

void QVJobLog::log(const QVJobReport &report) {
    if (auto *log = dynamic_cast<QVJobLog *>(NSApp())) {
        log->logJob(report);
    } else {
        logMessage(report.text);
    }
}

void QVJobLog::logMessage(const QString &text) {
    NSApp()->logItemCmd(MessageTitle, text);
}

std::optional<RecoveryOption> QVJobLog::showOption() {
    const QMetaObject *application = QCoreApplication::instance()->metaObject();
    const int index = application->indexOfMethod(ShowFunction);
    if (index < 0) {
        return {};
    }
    return RecoveryOption{localizedSyncString("Show Log"), [show = application->method(index)] {
                              show.invoke(QCoreApplication::instance());
                          }};
}
