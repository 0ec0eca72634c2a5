#include "Engine/Stores/StoreOperations.h"

#include <QtCore/QDeadlineTimer>
#include <utility>

namespace {

/// Interval in which end() cancels operations started by handlers.
constexpr std::chrono::milliseconds LongestUncancelled(20);

}  // namespace

std::shared_ptr<PZFuture> StoreOperations::start(Work work) {
    const auto future = std::make_shared<EngineFuture>();
    {
        const std::lock_guard lock(m_running->mutex);
        m_running->futures.insert(future);
    }
    m_threads.start([running = m_running, future, work = std::move(work)] {
        work(*future);
        const std::lock_guard lock(running->mutex);
        running->futures.erase(future);
    });
    return future;
}

void StoreOperations::end() {
    const QDeadlineTimer deadline(WorkerThreads::EndTimeout);
    // Repeatedly, since the handler of one operation may start the next.
    do {
        cancel();
    } while (!m_threads.waitForDone(LongestUncancelled) && !deadline.hasExpired());
    m_threads.end();
}

void StoreOperations::cancel() {
    std::set<std::shared_ptr<PZFuture>> futures;
    {
        const std::lock_guard lock(m_running->mutex);
        futures = m_running->futures;
    }
    for (const std::shared_ptr<PZFuture> &future : futures) {
        future->cancel();
    }
}
