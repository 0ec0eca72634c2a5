#include "Platform/Network/DiscoveryClient.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QDebug>
#include <chrono>

namespace {

// Interval of attempts while the system bus is not running. A daemon that starts reports itself.
constexpr std::chrono::seconds RetryInterval(2);

// Higher priority than Qt's posted events: everything that the daemon has sent is read before any
// of it is delivered.
constexpr int PollPriority = -1;

}  // namespace

std::shared_ptr<DiscoveryClient> DiscoveryClient::shared() {
    static std::weak_ptr<DiscoveryClient> current;
    std::shared_ptr<DiscoveryClient> client = current.lock();
    if (!client) {
        client = std::make_shared<DiscoveryClient>();
        current = client;
    }
    return client;
}

DiscoveryClient::DiscoveryClient() : m_poll(avahi_glib_poll_new(nullptr, PollPriority)) {
    if (!QAbstractEventDispatcher::instance()->inherits("QEventDispatcherGlib")) {
        qWarning("Services are not found or announced: Qt runs without GLib's event loop.");
    }
    m_retry.setSingleShot(true);
    m_retry.setInterval(RetryInterval);
    connect(&m_retry, &QTimer::timeout, this, &DiscoveryClient::connectToDaemon);
    connectToDaemon();
}

DiscoveryClient::~DiscoveryClient() {
    if (m_client) {
        avahi_client_free(m_client);
    }
    avahi_glib_poll_free(m_poll);
}

void DiscoveryClient::connectToDaemon() {
    // The callback is called within this call.
    m_client = avahi_client_new(avahi_glib_poll_get(m_poll), AVAHI_CLIENT_NO_FAIL,
                                &DiscoveryClient::clientChanged, this, nullptr);
    if (!m_client) {
        m_isAvailable = false;
        m_isHostRegistered = false;
        m_retry.start();
    }
}

void DiscoveryClient::clientChanged(AvahiClient *client, AvahiClientState state, void *self) {
    auto &discovery = *static_cast<DiscoveryClient *>(self);
    discovery.m_client = client;
    if (state == AVAHI_CLIENT_FAILURE) {
        discovery.m_isAvailable = false;
        discovery.m_isHostRegistered = false;
        // Later: the client must not be freed within its callback.
        QMetaObject::invokeMethod(&discovery, &DiscoveryClient::reconnect, Qt::QueuedConnection);
        return;
    }
    const bool wasAvailable = discovery.m_isAvailable;
    discovery.m_isAvailable = state != AVAHI_CLIENT_CONNECTING;
    if (discovery.m_isAvailable && !wasAvailable) {
        Q_EMIT discovery.available();
    }
    discovery.setHostRegistered(state == AVAHI_CLIENT_S_RUNNING);
}

void DiscoveryClient::reconnect() {
    Q_EMIT lost();
    if (m_client) {
        avahi_client_free(m_client);
        m_client = nullptr;
    }
    connectToDaemon();
}

void DiscoveryClient::setHostRegistered(bool isHostRegistered) {
    if (m_isHostRegistered != isHostRegistered) {
        m_isHostRegistered = isHostRegistered;
        Q_EMIT hostRegisteredChanged();
    }
}
