#include "Support/MessageRecorder.h"

static const char *recordedCategory = nullptr;

static QStringList &recorded() {
    static QStringList messages;
    return messages;
}

static void record(QtMsgType /*type*/, const QMessageLogContext &context, const QString &text) {
    if (qstrcmp(context.category, recordedCategory) == 0) {
        recorded().append(text);
    }
}

MessageRecorder::MessageRecorder(const char *category) {
    recordedCategory = category;
    recorded().clear();
    m_previous = qInstallMessageHandler(&record);
}

MessageRecorder::~MessageRecorder() {
    qInstallMessageHandler(m_previous);
}

QStringList MessageRecorder::messages() const {
    return recorded();
}
