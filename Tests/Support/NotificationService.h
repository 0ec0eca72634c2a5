#pragma once

#include <QtCore/QObject>
#include <QtCore/QVariantMap>

/// The part of a desktop on a session bus that shows messages. Serves while it exists. Must be used
/// on the main thread.
class NotificationService : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")
public:
    struct Message {
        QString title;
        QString text;
    };

    /// Raises std::runtime_error if it cannot serve on the bus.
    explicit NotificationService(const QString &busAddress);
    ~NotificationService() override;

    /// The messages that it was asked to show, in order.
    const QList<Message> &messages() const { return m_messages; }

public Q_SLOTS:
    uint Notify(const QString &application, uint replaced, const QString &icon,
                const QString &title, const QString &text, const QStringList &actions,
                const QVariantMap &hints, int timeout);

private:
    QList<Message> m_messages;
};
