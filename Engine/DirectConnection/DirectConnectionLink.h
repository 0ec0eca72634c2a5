#pragma once

#include <openssl/ssl.h>

#include <QtCore/QByteArray>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QString>
#include <chrono>
#include <memory>

#include "Engine/DirectConnection/DirectConnectionMessage.h"
#include "Engine/Foundation/EngineFuture.h"
#include "Platform/Foundation/Expected.h"

struct addrinfo;

/// The client's end of one direct connection. All functions block; they may be called on any
/// thread, but only one at a time. It uses OpenSSL directly, because a QSslSocket is bound to its
/// thread. Any failure closes the connection; cancelling the given future ends a wait at once.
class DirectConnectionLink {
public:
    /// Timeouts of an exchange.
    struct Timeouts {
        /// Maximum time without progress in either direction.
        std::chrono::milliseconds idle;
        /// Maximum time of the exchange, even if the server sends data slowly.
        std::chrono::milliseconds total = std::chrono::minutes(10);
    };

    /// Does not connect.
    DirectConnectionLink();
    ~DirectConnectionLink();
    DirectConnectionLink(const DirectConnectionLink &) = delete;
    DirectConnectionLink &operator=(const DirectConnectionLink &) = delete;

    /// Connects to the server, regardless of its identity: the caller must then check
    /// serverFingerprint(). Must not be called while connected. Blocks while it looks up the
    /// addresses, see HostLookUp, then for at most 10 seconds for each of them, 30 for all of them,
    /// and 10 seconds for the TLS handshake. Fails with the code StoreUnreachable; a connection
    /// that the user has cancelled may fail like one that cannot be made, so the caller checks
    /// `future`.
    Expected<void> connect(const QString &host, quint16 port, const EngineFuture &future);
    /// Returns whether the server has not closed the connection. Must be called between two
    /// exchanges. Does not block. The connection may break at any time after that; exchange() then
    /// fails.
    bool isConnected() const;
    /// Returns the SHA-256 of the server's certificate; empty before the first connection.
    QByteArray serverFingerprint() const { return m_serverFingerprint; }

    /// Sends `request`, an encoded message, which is wiped then unless another object shares it,
    /// and waits for the response. A response of more than `limit` bytes is a failure; no memory is
    /// allocated for it. Must be called while connected. Fails with notUnderstood() if the response
    /// is not valid, and with another error of the same code if the connection is lost. After a
    /// failure the server may have processed the request.
    Expected<DirectConnectionMessage::Received> exchange(QByteArray request, qsizetype limit,
                                                         const Timeouts &timeouts,
                                                         const EngineFuture &future);
    /// Returns the error of a response that is not valid, with the code StoreUnreachable. `details`
    /// say what is wrong with it; they may be empty. Must be called after connect().
    Error notUnderstood(const QString &details = {}) const;
    /// Closes the connection without waiting for the server; serverFingerprint() stays. Idempotent.
    void disconnect();

private:
    /// Returns the error for a connection that does not work any more.
    Error lost() const;
    /// Connects to one address.
    Expected<void> connectTo(const addrinfo &address, QDeadlineTimer deadline,
                             const EngineFuture &future);
    /// Performs the TLS handshake and stores the fingerprint.
    Expected<void> startEncryption(const EngineFuture &future);
    /// Sends all `bytes`. Fails also on timeout or cancellation.
    Expected<void> send(const QByteArray &bytes, const EngineFuture &future);
    /// Receive exactly `count` bytes or one message. Fail also on timeout or cancellation.
    Expected<QByteArray> receive(qsizetype count, const EngineFuture &future);
    Expected<DirectConnectionMessage::Received> receiveMessage(qsizetype limit,
                                                               const EngineFuture &future);
    /// Restarts the idle deadline, which is never later than the end of the exchange.
    void noteProgress();
    /// Returns whether the exchange must end, although the server may still send or receive.
    bool isOver(const EngineFuture &future) const;
    /// Wait until the socket is ready again, and return whether it is: not after a failure, the
    /// deadline or a cancellation.
    bool waitToGoOn(int result, QDeadlineTimer deadline, const EngineFuture &future) const;
    bool waitFor(short events, QDeadlineTimer deadline, const EngineFuture &future) const;

    std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)> m_context;
    std::unique_ptr<SSL, decltype(&SSL_free)> m_session;
    /// File descriptor; -1 while not connected.
    int m_socket = -1;
    QString m_host;
    QByteArray m_serverFingerprint;

    // Of the current exchange.
    std::chrono::milliseconds m_idleTimeout{};
    QDeadlineTimer m_end;
    QDeadlineTimer m_deadline;
};
