#pragma once

#include <QtCore/QStringList>
#include <QtCore/QtGlobal>

#include "Host/SyncLog.h"

/// Catches the diagnostic messages of one category that are logged while it exists, and drops all
/// others, in place of Qt's output. There is one at a time.
class MessageRecorder {
public:
    explicit MessageRecorder(const char *category = SyncLogCategory);
    ~MessageRecorder();
    MessageRecorder(const MessageRecorder &) = delete;
    MessageRecorder &operator=(const MessageRecorder &) = delete;

    QStringList messages() const;

private:
    QtMessageHandler m_previous;
};
