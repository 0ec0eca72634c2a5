#include "Engine/Foundation/WorkerThreads.h"

#include <atomic>
#include <condition_variable>
#include <list>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include "Engine/Foundation/EngineError.h"
#include "Host/SyncStrings.h"

namespace {

/// How many threads of the process are abandoned.
std::atomic<int> abandonedThreads = 0;

Error notStarted(const std::system_error &reason) {
    Error error = engineError(
        EngineErrorCode::StoreUnreachable,
        localizedSyncString("The system cannot start another thread. Quit programs that you do not "
                            "need, then try again."));
    error.details = QString::fromLocal8Bit(reason.what());
    return error;
}

}  // namespace

// Not Qt's thread pool: the thread sanitizer cannot see how that hands work over.
struct WorkerThreads::State {
    using Threads = std::list<std::thread>;

    /// Called by the thread `thread` when its work has ended.
    void finish(Threads::iterator thread) {
        const std::lock_guard lock(mutex);
        if (thread->joinable()) {
            finished.splice(finished.end(), running, thread);
            ended.notify_all();
        } else {
            abandoned.erase(thread);
            --abandonedThreads;
        }
    }

    bool hasEnded() const { return running.empty(); }

    /// Joins the threads whose work has ended. `lock` is released meanwhile.
    void joinFinished(std::unique_lock<std::mutex> &lock) {
        Threads threads = std::exchange(finished, {});
        lock.unlock();
        for (std::thread &thread : threads) {
            thread.join();
        }
        lock.lock();
    }

    std::mutex mutex;
    std::condition_variable ended;
    Threads running;
    Threads finished;
    /// Detached.
    Threads abandoned;
};

WorkerThreads::WorkerThreads() : m_state(std::make_shared<State>()) {}

WorkerThreads::~WorkerThreads() {
    end();
}

Expected<void> WorkerThreads::start(std::function<void()> work) {
    // Released after the lock if there is no thread.
    const auto owned = std::make_shared<std::function<void()>>(std::move(work));
    std::unique_lock lock(m_state->mutex);
    m_state->joinFinished(lock);
    const auto thread = m_state->running.emplace(m_state->running.end());
    try {
        *thread = std::thread([state = m_state, thread, owned] {
            (*owned)();
            // What the work owns is released before the work counts as ended.
            *owned = nullptr;
            state->finish(thread);
        });
    } catch (const std::system_error &reason) {
        m_state->running.erase(thread);
        return failure(notStarted(reason));
    }
    return {};
}

bool WorkerThreads::waitForDone(std::chrono::milliseconds timeout) {
    std::unique_lock lock(m_state->mutex);
    m_state->ended.wait_for(lock, timeout, [this] { return m_state->hasEnded(); });
    m_state->joinFinished(lock);
    return m_state->hasEnded();
}

void WorkerThreads::end() {
    std::unique_lock lock(m_state->mutex);
    m_state->ended.wait_for(lock, EndTimeout, [this] { return m_state->hasEnded(); });
    for (std::thread &thread : m_state->running) {
        thread.detach();
        ++abandonedThreads;
    }
    m_state->abandoned.splice(m_state->abandoned.end(), m_state->running);
    m_state->joinFinished(lock);
}

bool WorkerThreads::isAbandonedWorkRunning() {
    return abandonedThreads > 0;
}
