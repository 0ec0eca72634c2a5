#include "Platform/Network/ServiceDiscovery.h"

#include <chrono>

#include "Platform/Network/DiscoveryClient.h"

namespace {

/// A daemon that is running responds in much less time.
constexpr std::chrono::seconds ResponseTimeout(1);

}  // namespace

ServiceDiscovery::ServiceDiscovery(QObject *parent)
    : QObject(parent), m_client(DiscoveryClient::shared()) {
    m_patience.setSingleShot(true);
    m_patience.setInterval(ResponseTimeout);
    connect(&m_patience, &QTimer::timeout, this, [this] { setAvailable(false); });
    connect(m_client.get(), &DiscoveryClient::available, this, [this] {
        m_patience.stop();
        setAvailable(true);
    });
    connect(m_client.get(), &DiscoveryClient::lost, &m_patience, qOverload<>(&QTimer::start));
    if (!m_client->isAvailable()) {
        m_patience.start();
    }
}

ServiceDiscovery::~ServiceDiscovery() = default;

void ServiceDiscovery::setAvailable(bool isAvailable) {
    m_isAvailable = isAvailable;
    Q_EMIT availableChanged();
}
