#include "Platform/Network/ServiceDiscovery.h"

#include <chrono>

#include "Platform/Network/DiscoveryClient.h"

namespace {

/// A daemon that is running responds in much less time.
constexpr std::chrono::seconds ResponseTimeout(1);

}  // namespace

ServiceDiscovery::ServiceDiscovery(QObject *parent)
    : QObject(parent), m_client(DiscoveryClient::shared()) {
    m_responseTimer.setSingleShot(true);
    m_responseTimer.setInterval(ResponseTimeout);
    connect(&m_responseTimer, &QTimer::timeout, this, [this] { setAvailable(false); });
    connect(m_client.get(), &DiscoveryClient::available, this, [this] {
        m_responseTimer.stop();
        setAvailable(true);
    });
    connect(m_client.get(), &DiscoveryClient::lost, &m_responseTimer, qOverload<>(&QTimer::start));
    if (!m_client->isAvailable()) {
        m_responseTimer.start();
    }
}

ServiceDiscovery::~ServiceDiscovery() = default;

void ServiceDiscovery::setAvailable(bool isAvailable) {
    m_isAvailable = isAvailable;
    Q_EMIT availableChanged();
}
