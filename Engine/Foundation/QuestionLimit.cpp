#include "Engine/Foundation/QuestionLimit.h"

#include <algorithm>

bool QuestionLimit::open() {
    if (m_isOpen || !m_pause.hasExpired()) {
        return false;
    }
    m_isOpen = true;
    return true;
}

void QuestionLimit::close(bool isAccepted) {
    if (!m_isOpen) {
        return;
    }
    m_isOpen = false;
    if (isAccepted) {
        m_next = m_pauses.first;
    } else {
        m_pause = QDeadlineTimer(m_next);
        m_next = std::min(2 * m_next, m_pauses.longest);
    }
}
