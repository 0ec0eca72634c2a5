#pragma once

#include <QtCore/QObject>
#include <QtCore/QSet>
#include <QtCore/QStringList>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <utility>

/// The notifications of other processes that a screen reader speaks because they appear (AT-SPI
/// over D-Bus). Must be used on the main thread.
class HeardNotifications : public QObject {
    Q_OBJECT
public:
    /// `bus` is the accessibility bus, see AccessibleScreen::bus().
    explicit HeardNotifications(const QDBusConnection &bus);

    /// Returns what the notifications say now that have appeared since this object was made. Waits
    /// for the processes.
    QStringList texts() const;

private:
    Q_SLOT void hear(const QDBusMessage &message);

    QDBusConnection m_bus;
    /// Services and paths.
    QSet<std::pair<QString, QString>> m_shown;
};
