#pragma once

#include <QtCore/QPointer>
#include <QtCore/QThread>

#include "Engine/DirectConnection/DirectConnectionLimits.h"
#include "Engine/DirectConnection/DirectConnectionListener.h"
#include "Host/QVDirectConnectionServer.h"

class ServedStoreObserver;
class ProfileDatabase;

/// The server of a profile. It speaks TLS 1.3, under a certificate of the profile's own, to clients
/// that its person has authorized; DirectConnectionMessage says what. The defaults
/// "QVDirectConnectionServerPortNumber" and "QVDirectConnectionServerEnabled" are read when the
/// profile is opened, and written by whoever changes them.
class DirectConnectionServer : public QVDirectConnectionServer {
    Q_OBJECT
public:
    /// `profile` must outlive this.
    explicit DirectConnectionServer(const ProfileDatabase &profile);
    ~DirectConnectionServer() override;

    /// Reads the user defaults. Must be called once, after the profile was opened. `observer` is
    /// not owned and must outlive this object.
    void load(const DirectConnectionPackage &package, ServedStoreObserver &observer);
    /// Starts serving if the user has enabled the server. Must be called after load().
    void startIfEnabled();
    /// For those served from the next start on.
    void setLimits(const DirectConnectionLimits &limits) { m_limits = limits; }

    quint16 port() const override { return m_port; }
    /// 0 stands for the default port. While serving, another port than before restarts.
    void setPort(quint16 port) override;
    bool isServing() const override { return m_listener != nullptr; }
    /// Presents an error and does not serve where that is impossible, the port being in use for
    /// example. Harmless while serving.
    void startServing() override;
    void stopServing() override;
    std::shared_ptr<NetService> bonjourService() const override { return m_service; }

private:
    std::optional<Error> start();
    std::optional<Error> listen(const DirectConnectionIdentity &identity);
    void stop();
    DirectConnectionListener::MainThread mainThread();
    /// On the main thread, while the listener is still the one that asks.
    void postFor(quint64 listener, std::function<void()> call);
    void askFor(const DirectConnectionPairing &client);
    void prepareStore(quint64 session);

    const ProfileDatabase &m_profile;
    std::optional<DirectConnectionPackage> m_package;
    ServedStoreObserver *m_observer = nullptr;
    DirectConnectionLimits m_limits;
    quint16 m_port;
    QThread m_thread;
    /// Lives on the thread.
    QPointer<DirectConnectionListener> m_listener;
    /// Counts the listeners.
    quint64 m_listenerNumber = 0;
    std::shared_ptr<NetService> m_service;
};
