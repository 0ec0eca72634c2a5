#include "Engine/Stores/StoreOperations.h"

#include <utility>

std::shared_ptr<PZFuture> StoreOperations::start(Work work) {
    const auto future = std::make_shared<EngineFuture>();
    {
        const std::lock_guard lock(m_running->mutex);
        m_running->futures.insert(future);
        if (m_running->isEnding) {
            future->cancel();
        }
    }
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
