#include "Engine/Stores/Http/HttpSessions.h"

#include <algorithm>

HttpSessions::HttpSessions() {
    m_timer.setInterval(HttpSession::IdleTime);
    m_timer.setTimerType(Qt::VeryCoarseTimer);
    m_timer.callOnTimeout([this] { closeExpiredConnections(); });
}

std::shared_ptr<HttpSession> HttpSessions::session(const QString &location, const QUrl &URL) {
    if (m_isClosed) {
        return std::make_shared<HttpSession>();
    }
    Session &found = m_sessions[location];
    if (!found.session || found.URL != URL) {
        found = {URL, std::make_shared<HttpSession>(m_room)};
    }
    if (!m_timer.isActive()) {
        m_timer.start();
    }
    return found.session;
}

void HttpSessions::forget(const QString &location) {
    m_sessions.erase(location);
}

void HttpSessions::close() {
    m_isClosed = true;
    m_timer.stop();
    m_sessions.clear();
}

void HttpSessions::closeExpiredConnections() {
    for (const auto &[location, each] : m_sessions) {
        each.session->closeExpiredConnections();
    }
    const bool isUsed = m_room->load() < MostConnections ||
                        std::any_of(m_sessions.begin(), m_sessions.end(), [](const auto &each) {
                            return each.second.session.use_count() > 1;
                        });
    if (!isUsed) {
        m_timer.stop();
    }
}
