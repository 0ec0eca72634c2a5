#pragma once

#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <memory>

#include "Platform/PlatformExport.h"

struct AvahiClient;
struct AvahiGLibPoll;

/// This process's connection with the Avahi daemon, on the event loop of the main thread; shared by
/// whoever browses, resolves or publishes, and closed when the last of them lets go. It waits for a
/// daemon, or a system bus, that is not there, and connects anew after it was lost.
class DiscoveryClient : public QObject {
    Q_OBJECT
public:
    static std::shared_ptr<DiscoveryClient> shared();

    DiscoveryClient();
    ~DiscoveryClient() override;

    /// nullptr while there is no daemon that answers.
    AvahiClient *client() const { return m_isRunning ? m_client : nullptr; }

Q_SIGNALS:
    /// `client` can be used from now on.
    void available();
    /// The daemon is gone, or publishing has to begin anew: whatever was made with `client` is to
    /// be freed within this call.
    void lost();

private:
    static void clientChanged(AvahiClient *client, int state, void *self);
    void connectToDaemon();
    void disconnectFromDaemon();
    void setRunning(bool isRunning);

    AvahiGLibPoll *m_poll = nullptr;
    AvahiClient *m_client = nullptr;
    bool m_isRunning = false;
    QTimer m_retry;
};
