#pragma once

#include <avahi-client/publish.h>

#include <QtCore/QObject>
#include <memory>

class DiscoveryClient;
class NetService;

/// The announcement of a service, which owns it: made whenever there is a daemon, under another
/// name where the service's is taken, and withdrawn when this goes.
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
