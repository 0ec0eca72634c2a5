#include "HostCheck/HostDeadline.h"

#include <utility>

HostDeadline::HostDeadline(std::chrono::seconds limit)
    : m_limit(limit), m_thread([this] { watch(); }) {}

HostDeadline::~HostDeadline() {
    {
        const std::lock_guard lock(m_mutex);
        m_isOver = true;
    }
    m_changed.notify_one();
    m_thread.join();
}

void HostDeadline::begin(std::function<void()> missed) {
    {
        const std::lock_guard lock(m_mutex);
        m_missed = std::move(missed);
        m_end = std::chrono::steady_clock::now() + m_limit;
    }
    m_changed.notify_one();
}

void HostDeadline::watch() {
    std::unique_lock lock(m_mutex);
    while (!m_isOver) {
        if (!m_missed) {
            m_changed.wait(lock);
        } else if (std::chrono::steady_clock::now() < m_end) {
            m_changed.wait_until(lock, m_end);
        } else {
            const auto missed = std::exchange(m_missed, nullptr);
            lock.unlock();
            missed();
            lock.lock();
        }
    }
}
