#include "Application/DesktopNotifier.h"

#include <QtCore/QVariantMap>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCall>
#include <QtGui/QGuiApplication>

#include "Platform/Interface/PlainText.h"

void DesktopNotifier::show(const QString &title, const QString &text) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.Notifications"),
        QStringLiteral("/org/freedesktop/Notifications"),
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
    constexpr uint newMessage = 0;
    constexpr int usualTime = -1;
    // The service reads markup in the text, but not in the title.
    call << QGuiApplication::applicationDisplayName() << newMessage << QString() << title
         << PlainText::message(text).toHtmlEscaped() << QStringList() << QVariantMap() << usualTime;
    QDBusConnection::sessionBus().asyncCall(call);
}
