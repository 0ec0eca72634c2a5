#pragma once

#include <QtCore/QStringList>
#include <QtCore/QtGlobal>

/// Catches the diagnostic messages that are logged while it exists, in place of Qt's output. There
/// is one at a time.
class MessageRecorder {
public:
    MessageRecorder();
    ~MessageRecorder();
    MessageRecorder(const MessageRecorder &) = delete;
    MessageRecorder &operator=(const MessageRecorder &) = delete;

    QStringList messages() const;

private:
    QtMessageHandler m_previous;
};
