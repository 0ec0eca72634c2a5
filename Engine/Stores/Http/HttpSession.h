#pragma once

#include <QtCore/QUrl>
#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <vector>

#include "Engine/Stores/Http/HttpAuthentication.h"

class HttpConnection;

/// What the clients of one server leave to those that follow them: idle connections, and how the
/// server has asked for a credential. It contains no credential. The connections were accepted
/// under the settings of the client that has left them; who takes one must check that its own
/// settings accept it, too (see HttpConnection::isAccepted()). Thread-safe; no function blocks.
class HttpSession {
public:
    /// Maximum number of idle connections of one session: a synchronization sends eleven requests
    /// at a time if nothing has changed.
    static constexpr size_t MostConnections = 12;
    /// The time after which an idle connection is not used any more, by the clock of the system: a
    /// computer that has slept may have another network.
    static constexpr std::chrono::milliseconds IdleTime = std::chrono::minutes(1);

    /// `room`, which must not be null, is the number of connections that the session may keep
    /// together with others that share it.
    explicit HttpSession(std::shared_ptr<std::atomic<int>> room =
                             std::make_shared<std::atomic<int>>(MostConnections),
                         std::chrono::milliseconds idleTime = IdleTime);
    /// Closes the idle connections.
    ~HttpSession();
    HttpSession(const HttpSession &) = delete;
    HttpSession &operator=(const HttpSession &) = delete;

    /// Returns the connection that was kept last, or null if there is none.
    std::unique_ptr<HttpConnection> takeConnection();
    /// Keeps `connection`, which must not be null, for another exchange, or closes it if there is
    /// no room.
    void keepConnection(std::unique_ptr<HttpConnection> connection);
    /// Closes the connections that were idle for too long, and all.
    void closeExpiredConnections();
    void closeConnections();

    /// Returns the scheme with which `server` has asked for a credential that it accepted; empty if
    /// it has not. Of the URL, scheme, host and port are compared.
    std::optional<HttpAuthentication::Scheme> scheme(const QUrl &server) const;
    /// Returns HttpAuthentication::authorization() for a request to `URL`; empty too if the server
    /// is not known to ask with `scheme`. Counts the uses of the nonce for all clients.
    std::optional<SecretBytes> authorization(HttpAuthentication::Scheme scheme,
                                             const UrlCredential &credential,
                                             const QByteArray &method, const QUrl &URL);
    /// Remembers or forgets how `server` asks; at most one server is remembered.
    void setAuthentication(const QUrl &server, const HttpAuthentication &authentication);
    void forgetAuthentication();

    /// Returns the request target that is sent for `URL` (RFC 9112, section 3.2.1).
    static QByteArray targetOf(const QUrl &URL);
    /// Returns whether scheme, host and port are the same.
    static bool areOfOneServer(const QUrl &one, const QUrl &other);

private:
    struct Idle {
        std::unique_ptr<HttpConnection> connection;
        /// In milliseconds since 1970.
        qint64 since;
    };
    struct Login {
        QUrl server;
        HttpAuthentication authentication;
    };
    using Connections = std::vector<Idle>;

    bool hasExpired(const Idle &idle) const;

    const std::shared_ptr<std::atomic<int>> m_room;
    const std::chrono::milliseconds m_idleTime;
    mutable std::mutex m_mutex;
    // Guarded by `m_mutex`; in the order in which they were kept.
    Connections m_connections;
    std::optional<Login> m_login;
};
