#pragma once

#include <chrono>
#include <functional>
#include <memory>

/// Threads for work that blocks. They never limit each other: work that hangs does not delay other
/// work. Thread-safe, except for the destructor.
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
    /// because it may still run when this object no longer exists.
    void start(std::function<void()> work);
    /// Waits until no work is running. Must not be called by the work itself.
    void waitForDone();
    /// Does the same for at most `timeout`. Returns whether no work is running.
    bool waitForDone(std::chrono::milliseconds timeout);
    /// Waits for the running work. Work that has not ended in time, for example because a file
    /// system does not respond, is abandoned: it goes on until it returns or the process ends. Work
    /// that is started later begins as usual. Must not be called by the work itself.
    void end();

private:
    struct State;

    /// Shared with the threads, which may outlive this object.
    const std::shared_ptr<State> m_state;
};
