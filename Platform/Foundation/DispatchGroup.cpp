#include "Platform/Foundation/DispatchGroup.h"

#include <QtCore/QMutex>
#include <utility>

#include "Platform/Foundation/MainQueue.h"

struct DispatchGroup::State {
    QMutex mutex;
    int count = 0;
    std::function<void()> block;

    /// Returns the block if it is due, and clears it. Must be called with the mutex locked.
    std::function<void()> takeBlock() {
        return count == 0 ? std::exchange(block, nullptr) : nullptr;
    }
};

namespace {
void queue(std::function<void()> block) {
    if (block) {
        MainQueue::dispatchAsync(std::move(block));
    }
}
}  // namespace

DispatchGroup::DispatchGroup() : m_state(std::make_shared<State>()) {}

void DispatchGroup::enter() const {
    const QMutexLocker lock(&m_state->mutex);
    ++m_state->count;
}

void DispatchGroup::leave() const {
    std::function<void()> due;
    {
        const QMutexLocker lock(&m_state->mutex);
        --m_state->count;
        due = m_state->takeBlock();
    }
    queue(std::move(due));
}

void DispatchGroup::dispatchAsync(std::function<void()> block) const {
    enter();
    MainQueue::dispatchAsync([group = *this, block = std::move(block)] {
        block();
        group.leave();
    });
}

void DispatchGroup::notify(std::function<void()> block) const {
    std::function<void()> due;
    {
        const QMutexLocker lock(&m_state->mutex);
        m_state->block = std::move(block);
        due = m_state->takeBlock();
    }
    queue(std::move(due));
}
