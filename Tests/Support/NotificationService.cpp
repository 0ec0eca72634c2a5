#include "Support/NotificationService.h"

#include <QtDBus/QDBusConnection>
#include <stdexcept>

namespace {
const QString NotificationConnection = QStringLiteral("notification service");
const QString NotificationPath = QStringLiteral("/org/freedesktop/Notifications");
}  // namespace

NotificationService::NotificationService(const QString &busAddress) {
    QDBusConnection bus = QDBusConnection::connectToBus(busAddress, NotificationConnection);
    if (!bus.registerObject(NotificationPath, this, QDBusConnection::ExportAllSlots) ||
        !bus.registerService(QStringLiteral("org.freedesktop.Notifications"))) {
        throw std::runtime_error("the notification service cannot serve on the bus");
    }
}

NotificationService::~NotificationService() {
    // Otherwise the thread of the bus may still use this object.
    QDBusConnection(NotificationConnection).unregisterObject(NotificationPath);
    QDBusConnection::disconnectFromBus(NotificationConnection);
}

uint NotificationService::Notify(const QString & /*application*/, uint /*replaced*/,
                                 const QString & /*icon*/, const QString &title,
                                 const QString &text, const QStringList & /*actions*/,
                                 const QVariantMap & /*hints*/, int /*timeout*/) {
    m_messages.append({title, text});
    return static_cast<uint>(m_messages.size());
}
