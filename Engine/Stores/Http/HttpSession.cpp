#include "Engine/Stores/Http/HttpSession.h"

#include <QtCore/QDateTime>
#include <algorithm>
#include <iterator>
#include <utility>

#include "Engine/Stores/Http/HttpConnection.h"
#include "Host/LocationSchemes.h"

HttpSession::HttpSession(std::shared_ptr<std::atomic<int>> room, std::chrono::milliseconds idleTime)
    : m_room(std::move(room)), m_idleTime(idleTime) {}

HttpSession::~HttpSession() {
    closeConnections();
}

std::unique_ptr<HttpConnection> HttpSession::takeConnection() {
    closeExpiredConnections();
    const std::lock_guard lock(m_mutex);
    if (m_connections.empty()) {
        return nullptr;
    }
    std::unique_ptr<HttpConnection> connection = std::move(m_connections.back().connection);
    m_connections.pop_back();
    ++*m_room;
    return connection;
}

void HttpSession::keepConnection(std::unique_ptr<HttpConnection> connection) {
    const std::lock_guard lock(m_mutex);
    if (m_connections.size() == MostConnections) {
        return;
    }
    if (--*m_room < 0) {
        ++*m_room;
        return;
    }
    m_connections.push_back({std::move(connection), QDateTime::currentMSecsSinceEpoch()});
}

bool HttpSession::hasExpired(const Idle &idle) const {
    const qint64 age = QDateTime::currentMSecsSinceEpoch() - idle.since;
    return age < 0 || age >= m_idleTime.count();
}

void HttpSession::closeExpiredConnections() {
    Connections expired;
    const std::lock_guard lock(m_mutex);
    const auto kept = std::stable_partition(m_connections.begin(), m_connections.end(),
                                            [this](const Idle &idle) { return hasExpired(idle); });
    std::move(m_connections.begin(), kept, std::back_inserter(expired));
    m_connections.erase(m_connections.begin(), kept);
    *m_room += static_cast<int>(expired.size());
}

void HttpSession::closeConnections() {
    Connections closed;
    const std::lock_guard lock(m_mutex);
    closed.swap(m_connections);
    *m_room += static_cast<int>(closed.size());
}

std::optional<HttpAuthentication::Scheme> HttpSession::scheme(const QUrl &server) const {
    const std::lock_guard lock(m_mutex);
    if (!m_login || !areOfOneServer(m_login->server, server)) {
        return {};
    }
    return m_login->authentication.scheme();
}

std::optional<SecretBytes> HttpSession::authorization(HttpAuthentication::Scheme scheme,
                                                      const UrlCredential &credential,
                                                      const QByteArray &method, const QUrl &URL) {
    const std::lock_guard lock(m_mutex);
    if (!m_login || !areOfOneServer(m_login->server, URL) ||
        m_login->authentication.scheme() != scheme) {
        return {};
    }
    return m_login->authentication.authorization(credential, method, targetOf(URL));
}

void HttpSession::setAuthentication(const QUrl &server, const HttpAuthentication &authentication) {
    const std::lock_guard lock(m_mutex);
    m_login = Login{server, authentication};
}

void HttpSession::forgetAuthentication() {
    const std::lock_guard lock(m_mutex);
    m_login.reset();
}

QByteArray HttpSession::targetOf(const QUrl &URL) {
    const QByteArray target = URL.toEncoded(QUrl::RemoveScheme | QUrl::RemoveAuthority |
                                            QUrl::RemoveFragment | QUrl::NormalizePathSegments);
    return target.startsWith('/') ? target : '/' + target;
}

bool HttpSession::areOfOneServer(const QUrl &one, const QUrl &other) {
    const auto port = [](const QUrl &URL) {
        return URL.port(URL.scheme() == LocationSchemes::Https ? LocationSchemes::HttpsPort
                                                               : LocationSchemes::HttpPort);
    };
    return one.scheme() == other.scheme() && one.host() == other.host() && port(one) == port(other);
}
