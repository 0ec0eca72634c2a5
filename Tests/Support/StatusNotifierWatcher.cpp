#include "Support/StatusNotifierWatcher.h"

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCall>
#include <QtDBus/QDBusVariant>
#include <stdexcept>

#include "Support/AwaitReply.h"
#include "Support/EventTimeout.h"

namespace {

const QString WatcherConnection = QStringLiteral("status notifier watcher");
const QString WatcherPath = QStringLiteral("/StatusNotifierWatcher");
const QString MenuPath = QStringLiteral("/MenuBar");
const QString MenuInterface = QStringLiteral("com.canonical.dbusmenu");

QDBusMessage callMenu(const QString &service, const QString &method,
                      const QVariantList &arguments) {
    QDBusMessage call = QDBusMessage::createMethodCall(service, MenuPath, MenuInterface, method);
    call.setArguments(arguments);
    return awaitReply(QDBusConnection(WatcherConnection).asyncCall(call, EventTimeout));
}

/// Appends the visible entries of a menu, which has the type (ia{sv}av).
void append(const QDBusArgument &menu, QList<std::pair<int, QString>> &entries) {
    int identifier = 0;
    QVariantMap properties;
    menu.beginStructure();
    menu >> identifier >> properties;
    const QString title = properties.value(QStringLiteral("label")).toString().remove(u'_');
    if (!title.isEmpty() && properties.value(QStringLiteral("visible"), true).toBool()) {
        entries.append({identifier, title});
    }
    menu.beginArray();
    while (!menu.atEnd()) {
        QDBusVariant child;
        menu >> child;
        append(child.variant().value<QDBusArgument>(), entries);
    }
    menu.endArray();
    menu.endStructure();
}

}  // namespace

StatusNotifierWatcher::StatusNotifierWatcher(const QString &busAddress) {
    QDBusConnection bus = QDBusConnection::connectToBus(busAddress, WatcherConnection);
    if (!bus.registerObject(WatcherPath, this,
                            QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties |
                                QDBusConnection::ExportAllSignals) ||
        !bus.registerService(QStringLiteral("org.kde.StatusNotifierWatcher"))) {
        throw std::runtime_error("the watcher cannot serve on the bus");
    }
}

StatusNotifierWatcher::~StatusNotifierWatcher() {
    // Otherwise the thread of the bus may still use this object.
    QDBusConnection(WatcherConnection).unregisterObject(WatcherPath);
    QDBusConnection::disconnectFromBus(WatcherConnection);
}

QList<std::pair<int, QString>> StatusNotifierWatcher::entries() const {
    constexpr int whole = -1;
    const QDBusMessage reply =
        callMenu(m_items.last(), QStringLiteral("GetLayout"), {0, whole, QStringList()});
    QList<std::pair<int, QString>> found;
    if (reply.arguments().size() == 2) {
        append(reply.arguments().at(1).value<QDBusArgument>(), found);
    }
    return found;
}

QStringList StatusNotifierWatcher::menu() const {
    QStringList titles;
    for (const auto &[identifier, title] : entries()) {
        titles.append(title);
    }
    return titles;
}

bool StatusNotifierWatcher::choose(const QString &title) const {
    for (const auto &[identifier, each] : entries()) {
        if (each == title) {
            callMenu(m_items.last(), QStringLiteral("Event"),
                     {identifier, QStringLiteral("clicked"),
                      QVariant::fromValue(QDBusVariant(QString())), QVariant::fromValue<uint>(0)});
            return true;
        }
    }
    return false;
}
