#include "Host/QVJobLog.h"

#include "Host/QVApplication.h"

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
