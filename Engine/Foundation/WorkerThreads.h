#pragma once

#include <QtCore/QThreadPool>
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

    /// Calls `work` later on a thread and returns at once. `work` must own everything that it uses,
    /// because it may still run when this object no longer exists.
    void start(std::function<void()> work);
    /// Waits for at most `timeout` until no work is running or waiting. Returns whether that is so.
    bool waitForDone(std::chrono::milliseconds timeout);
    /// Drops the work that has not begun, and waits for the running work. Work that has not ended
    /// in time, for example because a file system does not respond, is abandoned: it goes on until
    /// it returns or the process ends. Work that is started later begins as usual.
    void end();

private:
    std::unique_ptr<QThreadPool> m_pool;
};
