#pragma once

#include <QtCore/QCborMap>
#include <QtCore/QTimer>
#include <QtNetwork/QSslSocket>
#include <functional>

#include "Engine/DirectConnection/DirectConnectionLimits.h"
#include "Engine/DirectConnection/DirectConnectionPackage.h"
#include "Engine/DirectConnection/DirectConnectionPairing.h"

/// The server's end of one direct connection. Lives on the listener's thread; the listener owns it.
///
/// It answers one message after the other, and takes in no more than what it is about to answer.
/// Whoever is not authorized can only greet or ask to be, once, in a short message and a short
/// time; anything else ends the connection without a word.
class DirectConnectionSession : public QObject {
    Q_OBJECT
public:
    /// What all sessions of a server share.
    struct Server {
        QSslConfiguration configuration;
        DirectConnectionPackage package;
        DirectConnectionLimits limits;
    };
    /// The requests of a session to its owner; they return at once.
    struct Requests {
        /// Asks the user whether to authorize `client`; `decide` is called with the answer. Returns
        /// false if the user cannot be asked now.
        std::function<bool(const DirectConnectionPairing &client)> ask;
        /// `proceed` is called when the store is ready to be read.
        std::function<void()> prepareStore;
        /// The client has changed the store.
        std::function<void()> storeDidChange;
    };

    /// `descriptor`: the connected socket, which this object closes. `server` must outlive this.
    DirectConnectionSession(qintptr descriptor, const Server &server, Requests requests);
    ~DirectConnectionSession() override;

    /// Whether it may be ended in favour of another one.
    bool isExpendable() const;
    /// The person's answer to the question whether to authorize the client.
    void decide(bool isAccepted);
    /// The store is ready for the client to look into.
    void proceed();

Q_SIGNALS:
    /// The connection has ended: this can be deleted, though not within this call.
    void ended();

private:
    enum class Stage { Greeting, Revealing, Asking, Preparing, Serving, Leaving, Ended };

    void readMore();
    bool readMessage();
    void handle(const QCborMap &message);
    void greet(const QCborMap &message);
    void beginPairing(const QCborMap &message);
    void reveal(const QCborMap &message);
    void prepare();
    void serve(const QCborMap &request);
    QCborMap answerTo(const QCborMap &request) const;
    void send(const QCborMap &message);
    void sendLast(const QString &type);
    void end();

    const Server &m_server;
    const Requests m_requests;
    QSslSocket m_socket;
    QTimer m_timer;
    Stage m_stage = Stage::Greeting;
    QByteArray m_received;
    QByteArray m_commitment;
    /// Who the client says it is.
    DirectConnectionPairing m_client;
};
