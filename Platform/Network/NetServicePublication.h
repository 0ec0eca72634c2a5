#pragma once

#include <avahi-client/publish.h>

#include <QtCore/QObject>
#include <memory>

class DiscoveryClient;
class NetService;

/// The announcement of a NetService, which owns it. The service is announced whenever the daemon is
/// available, under another name if its own is in use, and withdrawn when this object is destroyed.
/// If the daemon refuses it, that is only logged. Must be used on the main thread.
class NetServicePublication : public QObject {
    Q_OBJECT
public:
    /// `service` is not owned; it owns this object and must be owned by a std::shared_ptr.
    /// Announces it, if the daemon is available, before it returns.
    explicit NetServicePublication(NetService &service);
    /// Withdraws the service. Pending notifications are dropped.
    ~NetServicePublication() override;

private:
    /// Callback of Avahi's library. Results are delivered from the event loop.
    static void groupChanged(AvahiEntryGroup *group, AvahiEntryGroupState state, void *self);
    /// Withdraws the service, and announces it if a host name is registered.
    void announceOrWithdraw();
    /// Announces the service under the first name that is not used on this computer.
    void announce();
    void withdraw();
    /// Returns the result of Avahi's library, AVAHI_OK on success.
    int addService();
    /// Announces the service under another name after a collision on the network.
    void rename();
    /// Notifies the delegate. May destroy this object.
    void tell();

    NetService &m_service;
    const std::shared_ptr<DiscoveryClient> m_client;
    /// Null while the service is not announced.
    AvahiEntryGroup *m_group = nullptr;
};
