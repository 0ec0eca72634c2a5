#pragma once

#include <QtCore/QObject>

struct Notification;

/// Delivers the notifications of one name for NotificationCenter, which owns it, through a signal:
/// Qt's connections give the order and the rules for changes during a delivery.
class NotificationChannel : public QObject {
    Q_OBJECT
Q_SIGNALS:
    /// Emitted within NotificationCenter::post().
    void posted(const Notification &notification);
};
