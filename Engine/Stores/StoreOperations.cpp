#include "Engine/Stores/StoreOperations.h"

#include <utility>

namespace {

/// Interval in milliseconds in which end() cancels operations started by handlers.
constexpr int LongestUncancelled = 100;

}  // namespace

std::shared_ptr<PZFuture> StoreOperations::start(Work work) {
    const auto future = std::make_shared<EngineFuture>();
    {
        const std::lock_guard lock(m_mutex);
        m_futures.insert(future);
    }
    m_pool.start([this, future, work = std::move(work)] {
        work(*future);
        const std::lock_guard lock(m_mutex);
        m_futures.erase(future);
    });
    return future;
}

void StoreOperations::end() {
    // Again and again, since the handler of one may start the next.
    do {
        cancel();
    } while (!m_pool.waitForDone(LongestUncancelled));
}

void StoreOperations::cancel() {
    std::set<std::shared_ptr<PZFuture>> futures;
    {
        const std::lock_guard lock(m_mutex);
        futures = m_futures;
    }
    for (const std::shared_ptr<PZFuture> &future : futures) {
        future->cancel();
    }
}
