#pragma once

#include <QtCore/QTimer>
#include <QtNetwork/QSslConfiguration>
#include <QtNetwork/QTcpServer>
#include <functional>
#include <list>
#include <memory>
#include <vector>

#include "Engine/DirectConnection/DirectConnectionIdentity.h"
#include "Engine/DirectConnection/DirectConnectionSession.h"
#include "Engine/DirectConnection/PeerQuestions.h"
#include "Platform/Foundation/CallQueue.h"

/// Accepts direct connections on its own thread, so that a flood of connections does not block the
/// application. Created on the main thread, where it may begin to listen; then moved to its own
/// thread, and deleted there. It owns its sessions.
class DirectConnectionListener : public QTcpServer {
    Q_OBJECT
public:
    /// Requests to the main thread. The functions are called on the listener's thread and must
    /// return at once.
    struct MainThread {
        /// Asks the user whether to authorize `client`; decide() must be called with `session` and
        /// the answer.
        std::function<void(quint64 session, const DirectConnectionPairing &client)> ask;
        /// Withdraws the last question: its client has disconnected or waited for too long.
        std::function<void()> withdrawQuestion;
        /// Prepares the store for the client of this name, which is authorized; proceed() must be
        /// called with `session` when it is ready to be read.
        std::function<void(quint64 session, const QString &clientName)> prepareStore;
        /// Notifies that a client has changed the store.
        std::function<void()> storeDidChange;
    };

    /// Does not listen yet. All arguments are copied. Listen with QTcpServer::listen().
    DirectConnectionListener(const DirectConnectionIdentity &identity,
                             const DirectConnectionPackage &package,
                             const DirectConnection::Limits &limits, const MainThread &mainThread);
    /// Closes all connections. Questions that are open are not withdrawn here; the functions of
    /// MainThread are not called any more.
    ~DirectConnectionListener() override;

    /// Must be called with the user's decision about the client of `session`. Ignored if that
    /// client has disconnected. Thread-safe; takes effect later, on the listener's thread.
    void decide(quint64 session, bool isAccepted);
    /// Must be called when the store is ready. Ignored if that session has ended. Thread-safe;
    /// takes effect later, on the listener's thread.
    void proceed(quint64 session);

protected:
    /// Creates a session for the socket `descriptor`, or closes it if there are too many.
    void incomingConnection(qintptr descriptor) override;

private:
    /// An open connection.
    struct Connection {
        quint64 number;
        std::unique_ptr<DirectConnectionSession> session;
    };

    /// Forwards the question; returns false if the user cannot be asked now, see PeerQuestions.
    bool ask(quint64 session, const DirectConnectionPairing &client);
    /// Closes the oldest expendable session if the limit is reached. Returns false if there is
    /// none.
    bool makeRoom();
    /// Returns whether the client of `session` is authorized and has more connections than each
    /// client keeps.
    bool isBeyondShare(const DirectConnectionSession &session) const;
    void remove(quint64 number);
    /// Returns whether the messages of the other sessions leave memory for one of this session.
    /// Otherwise the session waits for it.
    bool hasMemory(quint64 number);
    /// Lets the sessions that wait for memory go on.
    void wakeWaiting();
    /// Closes the connection that takes most memory.
    void endShortage();
    /// Carries out the user's decision.
    void carryOut(quint64 session, bool isAccepted);
    /// Returns null if the session has ended.
    DirectConnectionSession *sessionOf(quint64 number) const;

    const DirectConnectionSession::Server m_server;
    const MainThread m_mainThread;
    /// Oldest first.
    std::vector<Connection> m_connections;
    quint64 m_lastNumber = 0;
    /// The session for which the user is being asked.
    std::optional<quint64> m_askedFor;
    PeerQuestions m_questions;
    /// The sessions that wait for memory, the first one first.
    std::list<quint64> m_waiting;
    /// Runs while a session waits for memory.
    QTimer m_shortage{this};
    /// The calls from other threads. A child, which moves along to the listener's thread.
    CallQueue m_calls{this};
};
