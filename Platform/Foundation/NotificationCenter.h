#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <functional>
#include <map>
#include <memory>

#include "Platform/PlatformExport.h"

/// One notification. A value.
struct Notification {
    /// The name under which it was posted.
    QString name;
    /// The object that the notification is about. Not owned; may be null.
    QObject *object = nullptr;
};

class NotificationChannel;

/// Delivers notifications to the observers of their name. Must be used on the main thread. Delivery
/// is synchronous: post() returns when every handler has returned. Observers are called in the
/// order in which they were added. A handler may add and remove observers and post notifications;
/// an observer that is added during a delivery does not receive the notification being delivered.
/// If a handler throws, the exception leaves post(), and the observers after it are not called.
class PLATFORM_EXPORT NotificationCenter {
public:
    /// Receives a notification, on the main thread.
    using Handler = std::function<void(const Notification &)>;

    /// Returns the notification center of the process. There is one, because the host, the pane and
    /// the application must find each other's notifications without knowing each other.
    static NotificationCenter &defaultCenter();

    /// Creates a center of its own, beside that of the process. It must not be destroyed while it
    /// delivers.
    NotificationCenter();
    ~NotificationCenter();
    NotificationCenter(const NotificationCenter &) = delete;
    NotificationCenter &operator=(const NotificationCenter &) = delete;

    /// Calls `handler` for each notification named `name`, regardless of its object, until the
    /// observer is removed or `observer`, which must not be null, is destroyed. Adding an observer
    /// twice delivers each notification twice. `handler` must not be empty.
    void addObserver(QObject *observer, const QString &name, Handler handler);
    /// Removes all handlers of `observer` for `name`. Has no effect if there are none. They receive
    /// nothing any more, not even the rest of a delivery that is running.
    void removeObserver(QObject *observer, const QString &name);
    /// Removes all handlers of `observer`.
    void removeObserver(QObject *observer);

    /// Calls the handlers for `name`. `object` may be null; it is not owned and needs to live only
    /// during the call.
    void post(const QString &name, QObject *object);

private:
    std::map<QString, std::unique_ptr<NotificationChannel>> m_channels;
};
