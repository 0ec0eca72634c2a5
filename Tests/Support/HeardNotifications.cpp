#include "Support/HeardNotifications.h"

#include <QtDBus/QDBusPendingCall>
#include <QtDBus/QDBusVariant>
#include <stdexcept>

#include "Support/AwaitReply.h"

namespace {

const QString Accessible = QStringLiteral("org.a11y.atspi.Accessible");

QString textOf(const QDBusMessage &reply) {
    const QVariant value = reply.arguments().value(0);
    return value.canConvert<QDBusVariant>() ? value.value<QDBusVariant>().variant().toString()
                                            : value.toString();
}

}  // namespace

HeardNotifications::HeardNotifications(const QDBusConnection &bus) : m_bus(bus) {
    m_bus.connect(QString(), QString(), QStringLiteral("org.a11y.atspi.Event.Object"),
                  QStringLiteral("StateChanged"), this, SLOT(hear(QDBusMessage)));
    // Programs send only what somebody listens to.
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.a11y.atspi.Registry"), QStringLiteral("/org/a11y/atspi/registry"),
        QStringLiteral("org.a11y.atspi.Registry"), QStringLiteral("RegisterEvent"));
    call << QStringLiteral("object:state-changed:showing");
    const QDBusMessage reply = awaitReply(m_bus.asyncCall(call));
    if (reply.type() != QDBusMessage::ReplyMessage) {
        throw std::runtime_error(reply.errorMessage().toStdString());
    }
}

void HeardNotifications::hear(const QDBusMessage &message) {
    const QVariantList arguments = message.arguments();
    if (arguments.value(0).toString() == QLatin1StringView("showing") &&
        arguments.value(1).toInt() == 1) {
        m_shown.insert({message.service(), message.path()});
    }
}

QStringList HeardNotifications::texts() const {
    QStringList texts;
    const auto heard = m_shown;
    for (const auto &[service, path] : heard) {
        const QDBusMessage role = QDBusMessage::createMethodCall(service, path, Accessible,
                                                                 QStringLiteral("GetRoleName"));
        if (textOf(awaitReply(m_bus.asyncCall(role))) != QLatin1StringView("notification")) {
            continue;
        }
        QDBusMessage name = QDBusMessage::createMethodCall(
            service, path, QStringLiteral("org.freedesktop.DBus.Properties"),
            QStringLiteral("Get"));
        name << Accessible << QStringLiteral("Name");
        texts.append(textOf(awaitReply(m_bus.asyncCall(name))));
    }
    return texts;
}
