#include "Engine/Foundation/WorkerThreads.h"

#include <limits>
#include <utility>
#include <vector>

namespace {

std::unique_ptr<QThreadPool> newPool() {
    auto pool = std::make_unique<QThreadPool>();
    pool->setMaxThreadCount(std::numeric_limits<int>::max());
    return pool;
}

/// Keeps a pool with work that does not end; destroying it would wait for that work.
void abandon(std::unique_ptr<QThreadPool> pool) {
    static auto &abandoned = *new std::vector<QThreadPool *>;
    abandoned.push_back(pool.release());
}

}  // namespace

WorkerThreads::WorkerThreads() : m_pool(newPool()) {}

WorkerThreads::~WorkerThreads() {
    end();
}

void WorkerThreads::start(std::function<void()> work) {
    m_pool->start(std::move(work));
}

bool WorkerThreads::waitForDone(std::chrono::milliseconds timeout) {
    return m_pool->waitForDone(static_cast<int>(timeout.count()));
}

void WorkerThreads::end() {
    m_pool->clear();
    if (!waitForDone(EndTimeout)) {
        abandon(std::exchange(m_pool, newPool()));
    }
}
