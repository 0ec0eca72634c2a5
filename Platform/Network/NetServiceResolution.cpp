#include "Platform/Network/NetServiceResolution.h"

#include <algorithm>

#include "Platform/Network/DiscoveryClient.h"
#include "Platform/Network/NetService.h"
#include "Platform/Network/NetServiceDelegate.h"

namespace {

constexpr double LongestTimeout = 86400;

}  // namespace

NetServiceResolution::NetServiceResolution(NetService &service, double seconds)
    : m_service(service), m_client(DiscoveryClient::shared()) {
    connect(m_client.get(), &DiscoveryClient::available, this, &NetServiceResolution::begin);
    connect(m_client.get(), &DiscoveryClient::lost, this, &NetServiceResolution::end);
    connect(&m_timeout, &QTimer::timeout, this, &NetServiceResolution::fail);
    m_timeout.setSingleShot(true);
    m_timeout.start(static_cast<int>(std::clamp(seconds, 0.0, LongestTimeout) * 1000));
    begin();
}

NetServiceResolution::~NetServiceResolution() {
    end();
}

void NetServiceResolution::begin() {
    if (!m_client->client() || m_resolver) {
        return;
    }
    const QByteArray domain = m_service.domain().toUtf8();
    m_resolver = avahi_service_resolver_new(
        m_client->client(), AVAHI_IF_UNSPEC, AVAHI_PROTO_UNSPEC,
        m_service.name().toUtf8().constData(), m_service.type().toUtf8().constData(),
        domain.isEmpty() ? nullptr : domain.constData(), AVAHI_PROTO_UNSPEC, AVAHI_LOOKUP_NO_TXT,
        &NetServiceResolution::resolverEvent, this);
}

void NetServiceResolution::end() {
    if (m_resolver) {
        avahi_service_resolver_free(m_resolver);
        m_resolver = nullptr;
    }
}

void NetServiceResolution::resolverEvent(AvahiServiceResolver * /*resolver*/,
                                         AvahiIfIndex /*interface*/, AvahiProtocol /*protocol*/,
                                         AvahiResolverEvent event, const char * /*name*/,
                                         const char * /*type*/, const char * /*domain*/,
                                         const char *hostName, const AvahiAddress * /*address*/,
                                         uint16_t port, AvahiStringList * /*text*/,
                                         AvahiLookupResultFlags /*flags*/, void *self) {
    auto *resolution = static_cast<NetServiceResolution *>(self);
    resolution->m_timeout.stop();
    // Later: the delegate may run a nested event loop, and Avahi cannot be reentered.
    if (event == AVAHI_RESOLVER_FOUND) {
        const auto succeed = [resolution, name = QString::fromUtf8(hostName), port] {
            resolution->succeed(name, port);
        };
        QMetaObject::invokeMethod(resolution, succeed, Qt::QueuedConnection);
    } else {
        QMetaObject::invokeMethod(resolution, &NetServiceResolution::fail, Qt::QueuedConnection);
    }
}

void NetServiceResolution::succeed(const QString &hostName, quint16 port) {
    const std::shared_ptr<NetService> service = m_service.shared_from_this();
    service->setAddress(hostName, port);
    service->m_resolution.reset();
    if (NetServiceDelegate *delegate = service->delegate()) {
        delegate->netServiceDidResolveAddress(service);
    }
}

void NetServiceResolution::fail() {
    const std::shared_ptr<NetService> service = m_service.shared_from_this();
    service->m_resolution.reset();
    if (NetServiceDelegate *delegate = service->delegate()) {
        delegate->netServiceDidNotResolve(service);
    }
}
