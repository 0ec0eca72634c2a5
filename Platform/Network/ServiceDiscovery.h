#pragma once

#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <memory>

#include "Platform/PlatformExport.h"

class DiscoveryClient;

/// Whether services can be found on the local network: whether the Avahi daemon is running. It is
/// observed as long as this object exists, also if it is started or stopped meanwhile. Must be used
/// on the main thread; no call waits for the daemon.
class PLATFORM_EXPORT ServiceDiscovery : public QObject {
    Q_OBJECT
    /// False if the daemon has not responded for a second, until it does.
    Q_PROPERTY(bool available READ isAvailable NOTIFY availableChanged)
public:
    /// Connects to the daemon, if this process is not connected, for as long as this object exists.
    explicit ServiceDiscovery(QObject *parent = nullptr);
    ~ServiceDiscovery() override;

    /// Returns true at first: the daemon needs time to respond.
    bool isAvailable() const { return m_isAvailable; }

Q_SIGNALS:
    /// Emitted from the event loop; the value may be the same as before.
    void availableChanged();

private:
    void setAvailable(bool isAvailable);

    const std::shared_ptr<DiscoveryClient> m_client;
    /// Runs while the daemon has not responded.
    QTimer m_responseTimer;
    bool m_isAvailable = true;
};
