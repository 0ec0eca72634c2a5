#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <set>

#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Foundation/Turn.h"
#include "Engine/Foundation/WorkerThreads.h"

/// The operations of the stores of one engine that are running, each on a thread of its own. All
/// functions are thread-safe unless stated otherwise. Must not be destroyed on one of these
/// threads; the destructor waits for the running operations as WorkerThreads does.
class StoreOperations {
public:
    /// The work of an operation; it should return soon after `future` is cancelled, and must call
    /// EngineFuture::finish() before its handler. It must not throw. `future` is valid until it
    /// returns.
    using Work = std::function<void(EngineFuture &future)>;

    /// Calls `work` on a new thread and returns at once. Cancelling the returned future, which is
    /// never null, cancels the operation; releasing it does not. If the system cannot create a
    /// thread, `work` is called on the main thread, cancelled with EngineFuture::cancelUnstarted().
    /// While end() waits, the operation is cancelled from the start. What `work` owns is released
    /// on its thread. The number of operations is not limited.
    std::shared_ptr<PZFuture> start(Work work);
    /// How long an operation may take to advance, see EngineFuture::advance(). One that advances
    /// by less than `leastProgress` in any `duration` is cancelled at the end of that time. The
    /// unit is a record of a database that was read; a folder that was measured counts as 60 of
    /// them. What an operation reads is limited, too, so that each one ends.
    struct TimeLimit {
        std::chrono::milliseconds duration = std::chrono::minutes(30);
        /// A small record in ten seconds.
        qint64 leastProgress = 180;
    };
    /// Sets the limit of operations that start later, see EngineFuture::cancelOverdue(). Must be
    /// called on the main thread. A main thread without an event loop cancels nothing.
    void setTimeLimit(const TimeLimit &limit);
    /// Cancels all operations, including those that handlers start meanwhile, and blocks until none
    /// is running; operations that have not ended in time are abandoned, see WorkerThreads. Must be
    /// called on the main thread. Operations can be started afterwards. Handlers must not wait for
    /// the main thread meanwhile.
    void end();
    /// Lets one operation at a time parse a record, which may take much more memory than the
    /// record, regardless of how many are read from how many stores. Valid as long as this object.
    Turn &parsing() { return m_parsing; }

private:
    struct Running {
        std::mutex mutex;
        /// Those of the operations that have not ended.
        std::set<std::shared_ptr<PZFuture>> futures;
        bool isEnding = false;
        TimeLimit timeLimit = {};
    };

    /// Shared with the operations.
    const std::shared_ptr<Running> m_running = std::make_shared<Running>();
    Turn m_parsing;
    WorkerThreads m_threads;
};
