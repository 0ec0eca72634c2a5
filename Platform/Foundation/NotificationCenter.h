#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <functional>
#include <map>
#include <memory>

#include "Platform/PlatformExport.h"

/// What a notification tells: its name and the object it is about.
struct Notification {
    QString name;
    QObject *object = nullptr;
};

class NotificationChannel;

/// Carries notifications from whoever posts them to whoever observes their name. Main thread;
/// delivery is direct, in the order in which observers were added.
class PLATFORM_EXPORT NotificationCenter {
public:
    using Handler = std::function<void(const Notification &)>;

    static NotificationCenter &defaultCenter();

    NotificationCenter();
    ~NotificationCenter();
    NotificationCenter(const NotificationCenter &) = delete;
    NotificationCenter &operator=(const NotificationCenter &) = delete;

    /// Calls `handler` for each notification of that name, from any object, until it is removed or
    /// `observer` is destroyed. Adding twice delivers twice.
    void addObserver(QObject *observer, const QString &name, Handler handler);
    /// Removes what `observer` observes under that name; harmless where it is nothing.
    void removeObserver(QObject *observer, const QString &name);
    /// Removes all that `observer` observes.
    void removeObserver(QObject *observer);

    /// `object` stays the caller's and need only live during the call.
    void post(const QString &name, QObject *object);

private:
    std::map<QString, std::unique_ptr<NotificationChannel>> m_channels;
};
