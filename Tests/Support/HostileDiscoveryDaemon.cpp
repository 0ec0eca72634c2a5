#include "Support/HostileDiscoveryDaemon.h"

#include <QtCore/QByteArrayList>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusObjectPath>

namespace {

const QString SearchPath = QStringLiteral("/Client1/ServiceBrowser1");
constexpr int GiantNames = 20;
constexpr qsizetype GiantSize = 1 << 16;

void sendItem(const QDBusConnection &connection, const QString &change,
              const QVariantList &arguments) {
    QDBusMessage item = QDBusMessage::createSignal(
        SearchPath, QStringLiteral("org.freedesktop.Avahi.ServiceBrowser"), change);
    item.setArguments(arguments);
    connection.send(item);
}

QVariantList itemNamed(const QString &name) {
    return {1, 0, name, QStringLiteral("_velmora-test._tcp"), QStringLiteral("local"), 0U};
}

}  // namespace

HostileDiscoveryDaemon::HostileDiscoveryDaemon(const QString &busAddress, Attack attack)
    : BusService(busAddress, QStringLiteral("org.freedesktop.Avahi"), QStringLiteral("/")),
      m_attack(attack) {
    qDBusRegisterMetaType<QByteArrayList>();
    enterBus();
}

HostileDiscoveryDaemon::~HostileDiscoveryDaemon() {
    leaveBus();
}

bool HostileDiscoveryDaemon::handleMessage(const QDBusMessage &message,
                                           const QDBusConnection &connection) {
    ++m_countOfMessages;
    if (m_attack == Attack::Silence) {
        return true;
    }
    const QString member = message.member();
    if (m_attack == Attack::Disappearance && member == QLatin1StringView("ResolveService")) {
        disappear();
        return true;
    }
    if (m_attack == Attack::Collisions && member == QLatin1StringView("AddService")) {
        return connection.send(message.createErrorReply(
            QStringLiteral("org.freedesktop.Avahi.CollisionError"), QString()));
    }
    if (m_attack == Attack::NoHostName && member == QLatin1StringView("GetHostName")) {
        return connection.send(
            message.createErrorReply(QStringLiteral("org.freedesktop.Avahi.AccessDeniedError"),
                                     QStringLiteral("No access")));
    }
    if (m_attack == Attack::OtherOrder && member == QLatin1StringView("GetHostName")) {
        m_postponed = message;
        return true;
    }
    connection.send(message.createReply(answer(member)));
    if (m_attack == Attack::OtherOrder && member == QLatin1StringView("GetDomainName")) {
        connection.send(m_postponed.createReply(answer(m_postponed.member())));
    }
    if (member == QLatin1StringView("ServiceBrowserNew")) {
        sendServices(connection);
    }
    return true;
}

QVariantList HostileDiscoveryDaemon::answer(const QString &member) const {
    const bool areTypesWrong = m_attack == Attack::Types;
    const QString text =
        m_attack == Attack::GiantReplies ? QString(GiantSize, u'1') : QStringLiteral("name");
    if (member == QLatin1StringView("ServiceBrowserNew")) {
        return {QVariant::fromValue(QDBusObjectPath(SearchPath))};
    }
    if (member == QLatin1StringView("EntryGroupNew")) {
        return {QVariant::fromValue(QDBusObjectPath(QStringLiteral("/Client1/EntryGroup1")))};
    }
    if (areTypesWrong) {
        return {QStringList{text}};
    }
    if (member == QLatin1StringView("GetAPIVersion")) {
        return {0x0204U};
    }
    if (member == QLatin1StringView("GetState")) {
        return {2};
    }
    if (member == QLatin1StringView("ResolveHostName")) {
        return {1, 0, QStringLiteral("host.local"), 0, text, 0U};
    }
    if (member == QLatin1StringView("ResolveService")) {
        return {1,
                0,
                text,
                QStringLiteral("_velmora-test._tcp"),
                QStringLiteral("local"),
                text,
                0,
                text,
                QVariant::fromValue<quint16>(1),
                QVariant::fromValue(QByteArrayList()),
                0U};
    }
    return {text};
}

void HostileDiscoveryDaemon::sendServices(const QDBusConnection &connection) {
    const QString found = QStringLiteral("ItemNew");
    const QString lost = QStringLiteral("ItemRemove");
    const QVariantList first = itemNamed(QStringLiteral("first\a\x1b\n"));
    if (m_attack == Attack::Types) {
        for (const QString &change : {found, lost}) {
            QVariantList item = first;
            item[0] = QStringList{QStringLiteral("interface")};
            sendItem(connection, change, item);
            sendItem(connection, change, {});
        }
    }
    sendItem(connection, found, first);
    if (m_attack == Attack::Disappearance) {
        return;
    }
    if (m_attack == Attack::ManyServices || m_attack == Attack::GiantNames) {
        const bool areGiant = m_attack == Attack::GiantNames;
        for (int i = 0; i < (areGiant ? GiantNames : ManyServices); ++i) {
            sendItem(connection, found,
                     itemNamed(QString::number(i).leftJustified(areGiant ? GiantSize : 60, u'x')));
        }
    }
    sendItem(connection, lost, first);
}
