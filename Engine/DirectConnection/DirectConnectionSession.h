#pragma once

#include <QtCore/QTimer>
#include <QtNetwork/QSslConfiguration>
#include <QtNetwork/QSslSocket>
#include <functional>

#include "Engine/DirectConnection/DirectConnection.h"
#include "Engine/DirectConnection/DirectConnectionMessage.h"
#include "Engine/DirectConnection/DirectConnectionPackage.h"
#include "Engine/DirectConnection/DirectConnectionPairing.h"

/// The server's end of one direct connection. Lives on the listener's thread; owned by the
/// listener.
///
/// It responds to one message after the other and buffers at most one, and only as long as all
/// sessions together do not buffer too much. A client that is not authorized can only greet or
/// pair, once, with a short message and within a short time; anything else closes the connection
/// without a response.
class DirectConnectionSession : public QObject {
    Q_OBJECT
public:
    /// Shared by all sessions of a server. Constant.
    struct Server {
        QSslConfiguration configuration;
        DirectConnectionPackage package;
        DirectConnection::Limits limits;
    };
    /// The requests of a session to its owner; they return at once.
    struct Requests {
        /// Asks the user whether to authorize `client`; decide() must be called with the answer.
        /// Returns false if the user cannot be asked now.
        std::function<bool(const DirectConnectionPairing &client)> ask;
        /// Called when the client of this name is authorized. proceed() must be called when the
        /// store is ready to be read.
        std::function<void(const QString &clientName)> prepareStore;
        /// Notifies that the client has changed the store.
        std::function<void()> storeDidChange;
        /// Returns whether there is memory for a message of any size. If not, goOn() must be called
        /// when there may be.
        std::function<bool()> hasMemory;
    };

    /// `descriptor` is the connected socket, which this object closes. `server` is not owned and
    /// must outlive this object. Starts the TLS handshake at once. The functions of `requests` must
    /// not be empty; they are called from the event loop and must not delete the session.
    DirectConnectionSession(qintptr descriptor, const Server &server, Requests requests);
    /// Closes the connection without a response. Does not emit ended().
    ~DirectConnectionSession() override;

    /// Returns whether the session may be closed in favor of another: if its client is not
    /// authorized and the user is not being asked about it.
    bool isExpendable() const;
    /// Returns the name of the client; empty if it is not authorized.
    QString authorizedClient() const;
    /// Called with the user's decision. Ignored unless it was requested and the session still
    /// waits.
    void decide(bool isAccepted);
    /// Called when the store is ready to be read. Ignored unless the session waits for that.
    void proceed();
    /// Called when there may be memory for the message for which the session waits. Ignored unless
    /// it does.
    void goOn() { readMore(); }
    /// Returns the size in bytes of the message that is being received and of the response that is
    /// being sent.
    qsizetype memory() const;
    /// Returns the address of the client.
    QHostAddress peer() const { return m_socket.peerAddress(); }

Q_SIGNALS:
    /// Emitted when the session needs less memory than before.
    void released();
    /// Emitted once when the connection has ended. The session may be deleted, but not from within
    /// a handler.
    void ended();

private:
    /// The stages of a session, in order.
    enum class Stage { Greeting, Revealing, Asking, Preparing, Serving, Leaving, Ended };

    /// Reads what has arrived, unless a response is still being sent, and handles a message that is
    /// complete.
    void readMore();
    /// Returns whether the next message is complete. Ends the session if it is too long.
    bool readMessage();
    /// Returns whether there is memory for a message or response of an authorized client.
    bool isMemoryLeft();
    bool isComplete() const { return m_size > 0 && m_received.size() == m_size; }
    /// Handles the complete message.
    void takeMessage();
    /// Returns whether a response is still being sent.
    bool isAnswering() const { return !m_contents.isEmpty() || bytesToWrite() > 0; }
    qint64 bytesToWrite() const;
    /// Dispatches a message by stage and type.
    void handle(const DirectConnectionMessage::Received &received);
    /// Check the client's authorization, or start and complete its pairing.
    void greet(const QCborMap &message);
    /// Returns whether the client is authorized. Otherwise sends the last message: Busy if the
    /// keychain cannot be read.
    bool isAuthorized();
    void beginPairing(const QCborMap &message);
    void reveal(const QCborMap &message);
    /// Waits until the store is ready.
    void prepare();
    /// Responds to a request. Looks up the authorization each time, so a revoked client is
    /// disconnected.
    void serve(const DirectConnectionMessage::Received &request);
    QCborMap responseTo(const DirectConnectionMessage::Received &received) const;
    void send(const QCborMap &message);
    /// Sends the contents of a blob piece by piece.
    void sendContents(const Expected<QByteArray> &contents);
    void sendMore();
    /// Sends a message, after which the connection is closed.
    void sendLast(const QString &type);
    void end();

    const Server &m_server;
    const Requests m_requests;
    QSslSocket m_socket;
    QTimer m_timer;
    Stage m_stage = Stage::Greeting;
    /// The message, which may be incomplete, and its size including the length; 0 until it begins.
    QByteArray m_received;
    qsizetype m_size = 0;
    bool m_isWaiting = false;
    /// The contents that are being sent, and the number of bytes of them that were.
    QByteArray m_contents;
    qsizetype m_sent = 0;
    QByteArray m_commitment;
    /// The client's claims about itself.
    DirectConnectionPairing m_client;
};
