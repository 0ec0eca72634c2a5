#pragma once

#include <QtCore/QTimer>
#include <QtCore/QUrl>
#include <map>
#include <memory>

#include "Engine/Stores/Http/HttpSession.h"

/// The sessions of an engine, one for each location, so that a synchronization uses the connections
/// of the one before. Closes those that stay idle. Must be used on the main thread.
class HttpSessions {
public:
    /// Maximum number of idle connections of all locations together.
    static constexpr int MostConnections = 64;

    HttpSessions();
    HttpSessions(const HttpSessions &) = delete;
    HttpSessions &operator=(const HttpSessions &) = delete;

    /// Returns the session of the location, which begins anew if the location had another address
    /// before: scheme, user, server, port or path. `URL` must not contain a password. Never null.
    /// The caller shares ownership.
    std::shared_ptr<HttpSession> session(const QString &location, const QUrl &URL);
    /// Forgets the session of a location. It ends with the last client that uses it.
    void forget(const QString &location);
    /// Forgets all sessions when the engine ends. From then on each call of session() returns one
    /// of its own.
    void close();

private:
    struct Session {
        QUrl URL;
        std::shared_ptr<HttpSession> session;
    };

    void closeExpiredConnections();

    const std::shared_ptr<std::atomic<int>> m_room =
        std::make_shared<std::atomic<int>>(MostConnections);
    /// By identifier of the location.
    std::map<QString, Session> m_sessions;
    QTimer m_timer;
    bool m_isClosed = false;
};
