#include "Engine/DirectConnection/PeerQuestions.h"

#include <algorithm>
#include <iterator>

bool PeerQuestions::open(const QHostAddress &peer) {
    m_refusals.remove_if([](const QDeadlineTimer &end) { return end.hasExpired(); });
    if (m_isOpen || std::ssize(m_refusals) >= m_mostInAnHour) {
        return false;
    }
    auto known = std::find_if(m_peers.begin(), m_peers.end(),
                              [&](const Peer &each) { return each.address == peer; });
    if (known == m_peers.end()) {
        known = m_peers.insert(known, Peer{peer, QuestionLimit(m_pauses)});
    }
    if (!known->limit.open()) {
        return false;
    }
    m_peers.splice(m_peers.end(), m_peers, known);
    if (m_peers.size() > MostPeers) {
        m_peers.pop_front();
    }
    m_isOpen = true;
    return true;
}

void PeerQuestions::close(bool isAccepted) {
    m_isOpen = false;
    m_peers.back().limit.close(isAccepted);
    if (!isAccepted) {
        m_refusals.emplace_back(std::chrono::hours(1));
    }
}
