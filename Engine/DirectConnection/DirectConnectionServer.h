#pragma once

#include <QtCore/QPointer>
#include <QtCore/QThread>
#include <chrono>
#include <memory>

#include "Engine/DirectConnection/DirectConnection.h"
#include "Engine/DirectConnection/DirectConnectionListener.h"
#include "Host/QVDirectConnectionServer.h"
#include "Platform/Network/NetServiceDelegate.h"

class NoteLibrary;
class ProfileDatabase;
class ServedDatabases;
class ServedStoreObserver;
class ServiceDiscovery;

/// The direct-connection server of a profile. It serves clients that the user has authorized, over
/// TLS 1.3 with the profile's own certificate (see DirectConnectionMessage). Must be used on the
/// main thread; clients are served on its own thread. The user defaults
/// "QVDirectConnectionServerPortNumber" and "QVDirectConnectionServerEnabled" are read when the
/// profile is opened; this class does not write them. It listens on all interfaces, over IPv4 and
/// IPv6, and announces itself under the name of this computer while it serves.
class DirectConnectionServer : public QVDirectConnectionServer, public NetServiceDelegate {
    Q_OBJECT
public:
    /// Maximum time for which stopServing() and the destructor wait.
    static constexpr std::chrono::milliseconds EndTimeout{500};

    /// `profile` is not owned and must outlive this object.
    explicit DirectConnectionServer(const ProfileDatabase &profile);
    /// Stops serving, see stopServing(), without announcing it.
    ~DirectConnectionServer() override;

    /// Reads the user defaults. Must be called once, after the profile was opened. `observer` is
    /// not owned and must outlive this object. Does not start the server. Blocks for the
    /// user defaults.
    void load(const DirectConnectionPackage &package, ServedStoreObserver &observer);
    /// Lets the user choose which databases of `library` are served. Must be called once, after
    /// load(). `library` is not owned and must outlive this object; `served` is that of the
    /// package.
    void offerChoice(const NoteLibrary &library, std::shared_ptr<ServedDatabases> served);
    /// Starts serving if the user has enabled the server. Must be called after load(). If the user
    /// defaults cannot be read, presents that later and does not serve.
    void startIfEnabled();
    /// Returns whether a listener of any server still runs, also one whose thread was abandoned. It
    /// may use static objects, so the process must then end by std::_Exit(), which does not destroy
    /// these. Thread-safe.
    static bool isAnyListenerRunning();
    /// Sets the limits, which apply from the next start on. For tests.
    void setLimits(const DirectConnection::Limits &limits) { m_limits = limits; }

    quint16 port() const override { return m_port; }
    /// Sets the port; 0 selects the default port. Restarts the server if it is serving and the port
    /// differs.
    void setPort(quint16 port) override;
    bool isServing() const override { return m_listener != nullptr; }
    /// Starts serving, blocking for the creation of files and the socket. If that fails, for
    /// example because the port is in use, presents an error later and does not serve. Has no
    /// effect while serving.
    void startServing() override;
    /// Closes all connections and waits for the end of the server's thread. A thread that does not
    /// end in time, because the disk or the keychain does not respond, is abandoned: it closes its
    /// connections and the port when it can go on, and its requests are ignored.
    void stopServing() override;
    std::shared_ptr<NetService> bonjourService() const override { return m_service; }
    /// The addresses are read at each call. Also says so if other computers cannot find this one,
    /// because the service that announces it is not running.
    QString addressText() const override;
    /// Returns new objects at each call; empty before offerChoice().
    QVariantList databases() const override;
    /// Blocks for the profile. Connections are recorded to the minute.
    QString lastConnectionText(const QString &client) const override;

    /// Delegate function, called on the main thread.
    void netServiceDidPublish(const std::shared_ptr<NetService> &service) override;

private:
    /// Announces "addressText".
    void announceAddress();
    Expected<void> start();
    /// Starts the listener on its thread. Has no effect if it fails.
    Expected<void> listen(const DirectConnectionIdentity &identity);
    void stop();
    /// Returns the functions by which the listener posts its requests to the main thread.
    DirectConnectionListener::MainThread mainThread();
    /// Asks the user; refuses if questions cannot be presented.
    void askFor(quint64 session, const DirectConnectionPairing &client);
    /// Closes the question that is open, if there is one, and drops one that is being prepared.
    void withdrawQuestion();
    /// Calls the observer, and lets the session proceed when it is done.
    void prepareStore(quint64 session);
    /// Saves that the client of this name connects now. A failure is written to the log.
    void recordConnection(const QString &clientName);

    const ProfileDatabase &m_profile;
    /// Empty before load(), as is the observer.
    std::optional<DirectConnectionPackage> m_package;
    ServedStoreObserver *m_observer = nullptr;
    /// Both are null before offerChoice().
    const NoteLibrary *m_library = nullptr;
    std::shared_ptr<ServedDatabases> m_served;
    DirectConnection::Limits m_limits;
    /// What load() has read, or why it could not be read.
    Expected<int> m_storedPort = 0;
    quint16 m_port;
    /// Null while not serving.
    std::unique_ptr<QThread> m_thread;
    /// Lives on `m_thread`; null while not serving.
    QPointer<DirectConnectionListener> m_listener;
    /// Identifies the current listener; incremented for each.
    quint64 m_listenerNumber = 0;
    /// Identifies the last question; incremented when it is withdrawn.
    quint64 m_questionNumber = 0;
    /// Empty if no question was presented.
    std::function<void()> m_withdrawal;
    /// Null while not serving.
    std::shared_ptr<NetService> m_service;
    /// Whether the service is announced under its present name.
    bool m_isAnnounced = false;
    /// Null while not serving.
    std::unique_ptr<ServiceDiscovery> m_discovery;
};
