#pragma once

#include <avahi-client/lookup.h>

#include <QtCore/QTimer>
#include <memory>

class DiscoveryClient;
class NetService;

/// One attempt to resolve a NetService, which owns it and destroys it before it notifies its
/// delegate of the result. The attempt continues if the daemon is restarted before the timeout.
class NetServiceResolution : public QObject {
    Q_OBJECT
public:
    NetServiceResolution(NetService &service, double seconds);
    ~NetServiceResolution() override;

private:
    static void resolverEvent(AvahiServiceResolver *resolver, AvahiIfIndex interface,
                              AvahiProtocol protocol, AvahiResolverEvent event, const char *name,
                              const char *type, const char *domain, const char *hostName,
                              const AvahiAddress *address, uint16_t port, AvahiStringList *text,
                              AvahiLookupResultFlags flags, void *self);
    void begin();
    void end();
    void succeed(const QString &hostName, quint16 port);
    void fail();

    NetService &m_service;
    const std::shared_ptr<DiscoveryClient> m_client;
    AvahiServiceResolver *m_resolver = nullptr;
    QTimer m_timeout;
};
