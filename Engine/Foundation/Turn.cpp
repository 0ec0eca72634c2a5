#include "Engine/Foundation/Turn.h"

#include "Engine/Foundation/CancellableWait.h"

bool Turn::take(const EngineFuture &future) {
    std::unique_lock lock(m_mutex);
    const bool isOurs =
        CancellableWait(future, QDeadlineTimer::Forever).until(m_released, lock, [this] {
            return !m_isTaken;
        });
    m_isTaken = m_isTaken || isOurs;
    return isOurs;
}

void Turn::release() {
    const std::lock_guard lock(m_mutex);
    m_isTaken = false;
    m_released.notify_one();
}
