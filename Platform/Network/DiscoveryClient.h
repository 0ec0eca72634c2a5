#pragma once

#include <avahi-client/client.h>
#include <avahi-glib/glib-watch.h>

#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <memory>

/// The connection of this process to the Avahi daemon. Runs on the event loop of the main thread,
/// on which it must be used. Shared by all browsers, resolutions and publications, and closed with
/// the last of them. If the daemon or the system bus is not running, it waits for it; if the
/// connection is lost, it connects again.
class DiscoveryClient : public QObject {
    Q_OBJECT
public:
    /// Returns the shared connection, which is created if there is none. Never null. Does not
    /// block: whether the daemon is available is known later.
    static std::shared_ptr<DiscoveryClient> shared();

    DiscoveryClient();
    ~DiscoveryClient() override;

    /// Returns the client for calls of Avahi's library, or nullptr if the daemon is not available.
    /// Owned by this object; invalid after lost().
    AvahiClient *client() const { return m_isAvailable ? m_client : nullptr; }
    /// Returns whether the daemon has registered a host name for this computer, which publishing a
    /// service requires.
    bool isHostRegistered() const { return m_isHostRegistered; }

Q_SIGNALS:
    /// Emitted when client() has become available.
    void available();
    /// Emitted when the connection is lost. Objects that were created with client() must be freed
    /// within this signal.
    void lost();
    /// Emitted when isHostRegistered() has changed, except by a loss of the connection.
    void hostRegisteredChanged();

private:
    /// Callback of Avahi's library, called on the main thread, also within connectToDaemon().
    static void clientChanged(AvahiClient *client, AvahiClientState state, void *self);
    /// Creates the client; tries again later if the system bus is not running.
    void connectToDaemon();
    /// Emits lost(), frees the client and connects again.
    void reconnect();
    void setHostRegistered(bool isHostRegistered);

    /// Polls on GLib's main context, which must be that of Qt's event loop.
    AvahiGLibPoll *const m_poll;
    /// Null if the system bus is not running.
    AvahiClient *m_client = nullptr;
    bool m_isAvailable = false;
    bool m_isHostRegistered = false;
    QTimer m_retry;
};
