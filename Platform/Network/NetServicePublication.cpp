#include "Platform/Network/NetServicePublication.h"

#include <avahi-common/alternative.h>
#include <avahi-common/domain.h>
#include <avahi-common/error.h>
#include <avahi-common/malloc.h>

#include <QtCore/QDebug>

#include "Platform/Network/DiscoveryClient.h"
#include "Platform/Network/NetService.h"
#include "Platform/Network/NetServiceDelegate.h"

namespace {

/// Returns `name` truncated to the maximum length of a label (RFC 1035, section 2.3.4), without
/// splitting a character.
QString withinLabel(QString name) {
    while (name.toUtf8().size() >= AVAHI_LABEL_MAX) {
        name.chop(name.back().isLowSurrogate() ? 2 : 1);
    }
    return name;
}

QString alternativeTo(const QString &name) {
    char *alternative = avahi_alternative_service_name(name.toUtf8().constData());
    QString result = QString::fromUtf8(alternative);
    avahi_free(alternative);
    return result;
}

}  // namespace

NetServicePublication::NetServicePublication(NetService &service)
    : m_service(service), m_client(DiscoveryClient::shared()) {
    connect(m_client.get(), &DiscoveryClient::hostRegisteredChanged, this,
            &NetServicePublication::announceOrWithdraw);
    connect(m_client.get(), &DiscoveryClient::lost, this, &NetServicePublication::withdraw);
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
    if (m_group) {
        avahi_entry_group_free(m_group);
        m_group = nullptr;
    }
}

void NetServicePublication::announce() {
    m_group = avahi_entry_group_new(m_client->client(), &NetServicePublication::groupChanged, this);
    if (!m_group) {
        return;
    }
    const QString name = m_service.name().isEmpty()
                             ? QString::fromUtf8(avahi_client_get_host_name(m_client->client()))
                             : withinLabel(m_service.name());
    const QString domain = m_service.domain().isEmpty()
                               ? QString::fromUtf8(avahi_client_get_domain_name(m_client->client()))
                               : m_service.domain();
    m_service.setPublished(name, domain);
    int failure = addService();
    while (failure == AVAHI_ERR_COLLISION) {
        m_service.setPublished(alternativeTo(m_service.name()), domain);
        failure = addService();
    }
    if (failure == AVAHI_OK) {
        failure = avahi_entry_group_commit(m_group);
    }
    if (failure != AVAHI_OK) {
        qWarning().noquote() << QStringLiteral("The service “%1” cannot be announced: %2")
                                    .arg(m_service.name(),
                                         QString::fromUtf8(avahi_strerror(failure)));
    }
}

int NetServicePublication::addService() {
    return avahi_entry_group_add_service(
        m_group, AVAHI_IF_UNSPEC, AVAHI_PROTO_UNSPEC, AvahiPublishFlags(0),
        m_service.name().toUtf8().constData(), m_service.type().toUtf8().constData(),
        m_service.domain().toUtf8().constData(), nullptr, m_service.port(), nullptr);
}

void NetServicePublication::groupChanged(AvahiEntryGroup * /*group*/, AvahiEntryGroupState state,
                                         void *self) {
    auto *publication = static_cast<NetServicePublication *>(self);
    if (state == AVAHI_ENTRY_GROUP_ESTABLISHED) {
        QMetaObject::invokeMethod(publication, &NetServicePublication::tell, Qt::QueuedConnection);
    } else if (state == AVAHI_ENTRY_GROUP_COLLISION) {
        QMetaObject::invokeMethod(publication, &NetServicePublication::rename,
                                  Qt::QueuedConnection);
    }
}

void NetServicePublication::rename() {
    m_service.setPublished(alternativeTo(m_service.name()), m_service.domain());
    announceOrWithdraw();
}

void NetServicePublication::tell() {
    const std::shared_ptr<NetService> service = m_service.shared_from_this();
    if (NetServiceDelegate *delegate = service->delegate()) {
        delegate->netServiceDidPublish(service);
    }
}
