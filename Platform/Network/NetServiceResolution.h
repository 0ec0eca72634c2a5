#pragma once

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

private:
    /// Starts to resolve. The daemon must be available.
    void begin();
    /// Deliver the result and destroy this object, so that no member may be used afterwards.
    void succeed(const QString &hostName, quint16 port);
    void fail();

    NetService &m_service;
    const std::shared_ptr<DiscoveryClient> m_client;
    /// Fails the attempt.
    QTimer m_timeout;
};
