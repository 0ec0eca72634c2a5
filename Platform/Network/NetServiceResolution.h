#pragma once

#include <avahi-client/lookup.h>

#include <QtCore/QTimer>
#include <memory>

class DiscoveryClient;
class NetService;

/// One attempt to resolve a NetService, which owns it and destroys it before it notifies its
/// delegate of the result. The attempt continues if the daemon is restarted before the timeout.
/// Must be used on the main thread.
class NetServiceResolution : public QObject {
    Q_OBJECT
public:
    /// Starts the attempt. `seconds` is limited to the range from 0 to one day. `service` is not
    /// owned; it must be owned by a std::shared_ptr when the result is delivered, from the event
    /// loop.
    NetServiceResolution(NetService &service, double seconds);
    /// Ends the attempt without a result; the delegate is not notified.
    ~NetServiceResolution() override;

private:
    /// Callback of Avahi's library. The result is delivered from the event loop.
    static void resolverEvent(AvahiServiceResolver *resolver, AvahiIfIndex interface,
                              AvahiProtocol protocol, AvahiResolverEvent event, const char *name,
                              const char *type, const char *domain, const char *hostName,
                              const AvahiAddress *address, uint16_t port, AvahiStringList *text,
                              AvahiLookupResultFlags flags, void *self);
    /// Starts to resolve if the daemon is available.
    void begin();
    /// Frees the resolver, without a result.
    void end();
    /// Deliver the result and destroy this object.
    void succeed(const QString &hostName, quint16 port);
    void fail();

    NetService &m_service;
    const std::shared_ptr<DiscoveryClient> m_client;
    /// Null while the daemon is not available.
    AvahiServiceResolver *m_resolver = nullptr;
    QTimer m_timeout;
};
