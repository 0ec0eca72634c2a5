#include "Engine/Stores/StoreOperations.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QTimer>
#include <utility>

#include "Platform/Foundation/MainQueue.h"

namespace {

/// Cancels the operation of `future`, which has advanced by `before` until now, at the end of the
/// first time in which it does not advance enough. Must be called on the main thread.
void limitTime(const std::weak_ptr<EngineFuture> &future, const StoreOperations::TimeLimit &limit,
               qint64 before = 0) {
    QTimer::singleShot(limit.duration, QCoreApplication::instance(), [=] {
        const std::shared_ptr<EngineFuture> running = future.lock();
        if (!running) {
            return;
        }
        const qint64 progress = running->progress();
        if (progress - before < limit.leastProgress) {
            running->cancelOverdue();
        } else {
            limitTime(future, limit, progress);
        }
    });
}

}  // namespace

std::shared_ptr<PZFuture> StoreOperations::start(Work work) {
    const auto future = std::make_shared<EngineFuture>();
    TimeLimit limit;
    {
        const std::lock_guard lock(m_running->mutex);
        limit = m_running->timeLimit;
        m_running->futures.insert(future);
        if (m_running->isEnding) {
            future->cancel();
        }
    }
    MainQueue::dispatchAsync(
        [weakFuture = std::weak_ptr(future), limit] { limitTime(weakFuture, limit); });
    const auto run = [running = m_running, future, work = std::make_shared<Work>(std::move(work))] {
        (*work)(*future);
        // What it owns is released on its thread.
        *work = nullptr;
        const std::lock_guard lock(running->mutex);
        running->futures.erase(future);
    };
    if (const Expected<void> started = m_threads.start(run); !started) {
        // One that is cancelled calls its handler and does nothing else.
        future->cancelUnstarted(started.error());
        MainQueue::dispatchAsync(run);
    }
    return future;
}

void StoreOperations::setTimeLimit(const TimeLimit &limit) {
    const std::lock_guard lock(m_running->mutex);
    m_running->timeLimit = limit;
}

void StoreOperations::end() {
    std::set<std::shared_ptr<PZFuture>> futures;
    {
        const std::lock_guard lock(m_running->mutex);
        m_running->isEnding = true;
        futures = m_running->futures;
    }
    for (const std::shared_ptr<PZFuture> &future : futures) {
        future->cancel();
    }
    m_threads.end();
    const std::lock_guard lock(m_running->mutex);
    m_running->isEnding = false;
}
