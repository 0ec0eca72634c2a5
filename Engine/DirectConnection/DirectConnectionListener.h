#pragma once

#include <QtCore/QDeadlineTimer>
#include <QtNetwork/QSslConfiguration>
#include <QtNetwork/QTcpServer>
#include <functional>
#include <memory>
#include <vector>

#include "Engine/DirectConnection/DirectConnectionIdentity.h"
#include "Engine/DirectConnection/DirectConnectionSession.h"

/// Accepts direct connections, on a thread of its own, so that no flood keeps the application from
/// its work. Made on the main thread, moved to the other, and deleted when that has ended.
class DirectConnectionListener : public QTcpServer {
    Q_OBJECT
public:
    /// What it needs from the main thread. Called on the listener's own thread.
    struct MainThread {
        /// Asks the person whether to authorize `client`; `decide` is called with the answer.
        std::function<void(const DirectConnectionPairing &client)> ask;
        /// `proceed` is called with `session` when the store is ready to be read.
        std::function<void(quint64 session)> prepareStore;
        std::function<void()> storeDidChange;
    };

    DirectConnectionListener(const DirectConnectionIdentity &identity,
                             const DirectConnectionPackage &package,
                             const DirectConnectionLimits &limits, const MainThread &mainThread);
    ~DirectConnectionListener() override;

    /// Of the main thread's answers. On this object's thread.
    void decide(bool isAccepted);
    void proceed(quint64 session);

protected:
    void incomingConnection(qintptr descriptor) override;

private:
    struct Connection {
        quint64 number;
        std::unique_ptr<DirectConnectionSession> session;
    };

    /// False if the user is being asked about another client, or has just refused one.
    bool ask(quint64 session, const DirectConnectionPairing &client);
    bool makeRoom();
    void remove(quint64 number);
    DirectConnectionSession *sessionOf(quint64 number) const;

    const DirectConnectionSession::Server m_server;
    const MainThread m_mainThread;
    /// The oldest first.
    std::vector<Connection> m_connections;
    quint64 m_lastNumber = 0;
    /// For whom the person is asked; it may be gone before they answer.
    std::optional<quint64> m_askedFor;
    QDeadlineTimer m_pause{0};
};
