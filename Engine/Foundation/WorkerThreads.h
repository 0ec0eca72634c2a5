#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "Platform/Foundation/Expected.h"

/// Threads for work that blocks. They never limit each other: work that hangs does not delay other
/// work, because every piece has a thread of its own. Nothing limits their number, so callers must
/// limit what they start. Thread-safe, except for the destructor.
class WorkerThreads {
public:
    /// Maximum time for which end() and the destructor wait.
    static constexpr std::chrono::milliseconds EndTimeout{500};

    WorkerThreads();
    /// Does what end() does.
    ~WorkerThreads();
    WorkerThreads(const WorkerThreads &) = delete;
    WorkerThreads &operator=(const WorkerThreads &) = delete;

    /// Calls `work` on a new thread and returns at once. `work` must own everything that it uses,
    /// because it may still run when this object no longer exists. It must not throw, which would
    /// end the process. What it owns is destroyed on its thread before it counts as ended. If the
    /// system cannot create a thread, releases `work` without calling it, and returns an error for
    /// the user, of the code StoreUnreachable.
    Expected<void> start(std::function<void()> work);
    /// Waits until no work is running, for at most `timeout`. Returns whether none is. Zero does
    /// not wait. Abandoned work, see end(), is not waited for. Must not be called by the work
    /// itself.
    bool waitForDone(std::chrono::milliseconds timeout);
    /// Waits for the running work, at most EndTimeout. Work that has not ended in time, for example
    /// because a file system does not respond, is abandoned: it goes on until it returns or the
    /// process ends. Work that is started later begins as usual. Callers should cancel the work
    /// before, because this does not. Must not be called by the work itself. Idempotent.
    void end();

    /// Returns whether work that any object has abandoned is still running. It may use static
    /// objects, so the process must then end by std::_Exit(), which does not destroy these.
    static bool isAbandonedWorkRunning();

private:
    struct State;

    /// Shared with the threads, which may outlive this object.
    const std::shared_ptr<State> m_state;
};
