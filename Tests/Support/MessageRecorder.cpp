#include "Support/MessageRecorder.h"

static QStringList &recorded() {
    static QStringList messages;
    return messages;
}

static void record(QtMsgType /*type*/, const QMessageLogContext & /*context*/,
                   const QString &text) {
    recorded().append(text);
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
