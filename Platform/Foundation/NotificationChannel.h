#pragma once

#include "Platform/Foundation/NotificationCenter.h"

/// The notifications of one name.
class NotificationChannel : public QObject {
    Q_OBJECT
Q_SIGNALS:
    void posted(const Notification &notification);
};
