#include "Engine/Synchronization/Problems.h"

#include <algorithm>

void Problems::add(const Error &problem) {
    ++m_count;
    if (m_kept.size() < MostKept) {
        m_kept.append(problem);
    }
}

void Problems::add(const Problems &others) {
    m_kept.append(others.m_kept.first(std::min(others.m_kept.size(), MostKept - m_kept.size())));
    m_count += others.m_count;
}
