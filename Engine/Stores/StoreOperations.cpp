#include "Engine/Stores/StoreOperations.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QTimer>
#include <utility>

#include "Platform/Foundation/MainQueue.h"

namespace {

/// Cancels the operation of `future` after `limit` if it still runs then.
void limitTime(const std::shared_ptr<EngineFuture> &future, std::chrono::milliseconds limit) {
    MainQueue::dispatchAsync([weakFuture = std::weak_ptr(future), limit] {
        QTimer::singleShot(limit, QCoreApplication::instance(), [weakFuture] {
            if (const std::shared_ptr<EngineFuture> running = weakFuture.lock()) {
                running->cancelOverdue();
            }
        });
    });
}

}  // namespace

std::shared_ptr<PZFuture> StoreOperations::start(Work work) {
    const auto future = std::make_shared<EngineFuture>();
    {
        const std::lock_guard lock(m_running->mutex);
        m_running->futures.insert(future);
        if (m_running->isEnding) {
            future->cancel();
        }
    }
    limitTime(future, m_timeLimit);
    m_threads.start([running = m_running, future, work = std::move(work)] {
        work(*future);
        const std::lock_guard lock(running->mutex);
        running->futures.erase(future);
    });
    return future;
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
