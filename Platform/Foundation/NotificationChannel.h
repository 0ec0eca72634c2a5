#pragma once

#include "Platform/Foundation/NotificationCenter.h"

/// Delivers the notifications of one name for NotificationCenter.
class NotificationChannel : public QObject {
    Q_OBJECT
Q_SIGNALS:
    void posted(const Notification &notification);
};
