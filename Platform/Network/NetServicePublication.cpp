#include "Platform/Network/NetServicePublication.h"

#include <QtCore/QByteArrayList>
#include <QtCore/QDebug>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusMetaType>
#include <utility>

#include "Platform/Network/AvahiBus.h"
#include "Platform/Network/DiscoveryClient.h"
#include "Platform/Network/NetService.h"
#include "Platform/Network/NetServiceDelegate.h"

namespace {

/// Maximum size in bytes of a label (RFC 1035, section 2.3.4).
constexpr qsizetype LongestLabel = 63;

/// Maximum number of names in use on this computer after which none is tried.
constexpr int MostCollisions = 100;

/// Returns `name` truncated to the maximum length of a label, without splitting a character.
QString withinLabel(QString name) {
    // At most three bytes each remain to be counted.
    name.truncate(LongestLabel);
    while (name.toUtf8().size() > LongestLabel) {
        name.chop(name.back().isLowSurrogate() ? 2 : 1);
    }
    return name;
}

}  // namespace

NetServicePublication::NetServicePublication(NetService &service)
    : m_service(service), m_client(DiscoveryClient::shared()) {
    connect(m_client.get(), &DiscoveryClient::hostRegisteredChanged, this,
            &NetServicePublication::announceOrWithdraw);
    connect(m_client.get(), &DiscoveryClient::lost, this, [this] {
        m_group.clear();
        m_announcement.reset();
    });
    announceOrWithdraw();
}

NetServicePublication::~NetServicePublication() {
    withdraw();
}

void NetServicePublication::announceOrWithdraw() {
    withdraw();
    if (m_client->isHostRegistered()) {
        announce();
    }
}

void NetServicePublication::withdraw() {
    m_announcement.reset();
    m_client->free(std::exchange(m_group, {}), AvahiBus::GroupInterface);
}

void NetServicePublication::announce() {
    m_announcement = std::make_unique<QObject>();
    m_collisions = 0;
    const auto created = [this](const QString &group) {
        m_group = group;
        m_client->listen(group, AvahiBus::GroupInterface, QStringLiteral("StateChanged"),
                         QStringLiteral("is"), this, SLOT(changeState(int)));
        addService();
    };
    m_client->create(QStringLiteral("EntryGroupNew"), {}, AvahiBus::GroupInterface,
                     m_announcement.get(), created);
    m_service.setPublished(
        withinLabel(m_service.name().isEmpty() ? m_client->hostName() : m_service.name()),
        m_service.domain().isEmpty() ? m_client->domainName() : m_service.domain());
}

void NetServicePublication::addService() {
    // Of the text records.
    qDBusRegisterMetaType<QByteArrayList>();
    const auto added = [this](const QDBusMessage &reply) {
        if (reply.errorName() == AvahiBus::CollisionError && m_collisions < MostCollisions) {
            ++m_collisions;
            rename([this] { addService(); });
        } else if (isSuccess(reply)) {
            commit();
        }
    };
    m_client->call(m_group, AvahiBus::GroupInterface, QStringLiteral("AddService"),
                   {AvahiBus::Any, AvahiBus::Any, AvahiBus::NoFlags, m_service.name(),
                    m_service.type(), m_service.domain(), QString(),
                    QVariant::fromValue(m_service.port()), QVariant::fromValue(QByteArrayList())},
                   m_announcement.get(), added);
}

void NetServicePublication::commit() {
    m_client->call(m_group, AvahiBus::GroupInterface, QStringLiteral("Commit"), {},
                   m_announcement.get(), [this](const QDBusMessage &reply) { isSuccess(reply); });
}

void NetServicePublication::rename(const std::function<void()> &renamed) {
    const auto rename = [this, renamed](const QDBusMessage &reply) {
        if (isSuccess(reply)) {
            m_service.setPublished(withinLabel(reply.arguments().value(0).toString()),
                                   m_service.domain());
            renamed();
        }
    };
    m_client->call(AvahiBus::ServerPath, AvahiBus::ServerInterface,
                   QStringLiteral("GetAlternativeServiceName"), {m_service.name()},
                   m_announcement.get(), rename);
}

void NetServicePublication::changeState(int state) {
    if (state == AvahiBus::GroupEstablished) {
        notifyDelegate();
    } else if (state == AvahiBus::GroupCollision && m_announcement) {
        rename([this] { announceOrWithdraw(); });
    }
}

bool NetServicePublication::isSuccess(const QDBusMessage &reply) const {
    const bool hasSucceeded = reply.type() == QDBusMessage::ReplyMessage;
    if (!hasSucceeded) {
        qWarning().noquote() << QStringLiteral("The service “%1” cannot be announced: %2")
                                    .arg(m_service.name(), reply.errorMessage());
    }
    return hasSucceeded;
}

void NetServicePublication::notifyDelegate() {
    const std::shared_ptr<NetService> service = m_service.shared_from_this();
    if (NetServiceDelegate *delegate = service->delegate()) {
        delegate->netServiceDidPublish(service);
    }
}
