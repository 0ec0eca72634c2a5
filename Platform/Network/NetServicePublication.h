#pragma once

#include <avahi-client/publish.h>

#include <QtCore/QObject>
#include <memory>

class DiscoveryClient;
class NetService;

/// The announcement of a NetService, which owns it. The service is announced whenever the daemon is
/// available, under another name if its own is in use, and withdrawn when this is destroyed.
class NetServicePublication : public QObject {
    Q_OBJECT
public:
    explicit NetServicePublication(NetService &service);
    ~NetServicePublication() override;

private:
    static void groupChanged(AvahiEntryGroup *group, AvahiEntryGroupState state, void *self);
    void announceOrWithdraw();
    void announce();
    void withdraw();
    int addService();
    void rename();
    void tell();

    NetService &m_service;
    const std::shared_ptr<DiscoveryClient> m_client;
    AvahiEntryGroup *m_group = nullptr;
};
