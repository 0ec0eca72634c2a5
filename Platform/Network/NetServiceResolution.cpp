#include "Platform/Network/NetServiceResolution.h"

#include <algorithm>

#include "Platform/Network/AvahiBus.h"
#include "Platform/Network/DiscoveryClient.h"
#include "Platform/Network/NetService.h"
#include "Platform/Network/NetServiceDelegate.h"

namespace {

constexpr double LongestTimeout = 86400;

/// Maximum number of characters of a host name (RFC 1035, section 2.3.4).
constexpr qsizetype LongestHostName = 255;

/// Of a service that was resolved.
const QString ResolvedSignature = QStringLiteral("iissssisqaayu");
constexpr qsizetype HostArgument = 5;
constexpr qsizetype PortArgument = 8;

}  // namespace

NetServiceResolution::NetServiceResolution(NetService &service, double seconds)
    : m_service(service), m_client(DiscoveryClient::shared()) {
    connect(m_client.get(), &DiscoveryClient::available, this, &NetServiceResolution::begin);
    connect(&m_timeout, &QTimer::timeout, this, &NetServiceResolution::fail);
    m_timeout.setSingleShot(true);
    m_timeout.start(static_cast<int>(std::clamp(seconds, 0.0, LongestTimeout) * 1000));
    if (m_client->isAvailable()) {
        begin();
    }
}

void NetServiceResolution::begin() {
    const auto finish = [this](const QDBusMessage &reply) {
        const QVariantList arguments = reply.arguments();
        const QString hostName = arguments.value(HostArgument).toString();
        if (reply.signature() == ResolvedSignature && hostName.size() <= LongestHostName) {
            succeed(hostName, arguments.value(PortArgument).value<quint16>());
        } else {
            fail();
        }
    };
    m_client->call(AvahiBus::ServerPath, AvahiBus::ServerInterface,
                   QStringLiteral("ResolveService"),
                   {AvahiBus::Any, AvahiBus::Any, m_service.name(), m_service.type(),
                    m_service.domain(), AvahiBus::Any, AvahiBus::WithoutText},
                   this, finish);
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
