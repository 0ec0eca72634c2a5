#pragma once

#include <avahi-client/client.h>
#include <avahi-glib/glib-watch.h>

#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <memory>

/// The connection of this process to the Avahi daemon, over D-Bus. Runs on the event loop of the
/// main thread, on which it must be used. Shared by all browsers, resolutions and publications, and
/// closed with the last of them. If the daemon or the system bus is not running, it waits for it;
/// if the connection is lost, it connects again. If Qt runs without GLib's event loop, the daemon's
/// events never arrive, which is logged.
class DiscoveryClient : public QObject {
    Q_OBJECT
public:
    /// Returns the shared connection, which is created if there is none. Never null. Does not wait
    /// for a daemon that is not running: whether it is available is known later. Calls of Avahi's
    /// library block until a running daemon replies.
    static std::shared_ptr<DiscoveryClient> shared();

    /// For shared(). The application object must exist.
    DiscoveryClient();
    ~DiscoveryClient() override;

    /// Returns the client for calls of Avahi's library, or nullptr if the daemon is not available.
    /// Owned by this object; invalid after lost(). To be asked for anew in each slot, not to be
    /// stored.
    AvahiClient *client() const { return m_isAvailable ? m_client : nullptr; }
    /// Returns whether the daemon has responded.
    bool isAvailable() const { return m_isAvailable; }
    /// Returns whether the daemon has registered a host name for this computer, which publishing a
    /// service requires.
    bool isHostRegistered() const { return m_isHostRegistered; }

Q_SIGNALS:
    /// Emitted when client() has become available; not for the one that is available when an object
    /// connects to this. May be emitted within a callback of Avahi's library.
    void available();
    /// Emitted when the connection is lost. Objects that were created with client() must be freed
    /// within this signal.
    void lost();
    /// Emitted when isHostRegistered() has changed, except by a loss of the connection. Also within
    /// a callback, as above.
    void hostRegisteredChanged();

private:
    /// Callback of Avahi's library, called on the main thread, also within connectToDaemon().
    static void clientChanged(AvahiClient *client, AvahiClientState state, void *self);
    /// Creates the client; tries again after two seconds if the system bus is not running.
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
