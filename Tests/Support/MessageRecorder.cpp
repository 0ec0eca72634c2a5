#include "Support/MessageRecorder.h"

#include "Host/SyncLog.h"

static QStringList &recorded() {
    static QStringList messages;
    return messages;
}

static void record(QtMsgType /*type*/, const QMessageLogContext &context, const QString &text) {
    if (qstrcmp(context.category, SyncLogCategory) == 0) {
        recorded().append(text);
    }
}

MessageRecorder::MessageRecorder() : m_previous(qInstallMessageHandler(&record)) {
    recorded().clear();
}

MessageRecorder::~MessageRecorder() {
    qInstallMessageHandler(m_previous);
}

QStringList MessageRecorder::messages() const {
    return recorded();
}
