#pragma once

#include <avahi-client/client.h>
#include <avahi-glib/glib-watch.h>

#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <memory>

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
    AvahiClient *client() const { return m_isAvailable ? m_client : nullptr; }
    /// Whether the daemon has found a name for this computer, so that services can be published.
    bool isHostRegistered() const { return m_isHostRegistered; }

Q_SIGNALS:
    /// `client` can be used from now on.
    void available();
    /// The daemon is gone: whatever was made with `client` is to be freed within this call.
    void lost();
    void hostRegisteredChanged();

private:
    static void clientChanged(AvahiClient *client, AvahiClientState state, void *self);
    void connectToDaemon();
    void reconnect();
    void setHostRegistered(bool isHostRegistered);

    AvahiGLibPoll *const m_poll;
    AvahiClient *m_client = nullptr;
    bool m_isAvailable = false;
    bool m_isHostRegistered = false;
    QTimer m_retry;
};
