#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <set>

#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Foundation/WorkerThreads.h"

/// The operations of the stores of one engine that are running, each on a thread of its own. All
/// functions are thread-safe unless stated otherwise. Must not be destroyed on one of these
/// threads; the destructor waits for the running operations as WorkerThreads does.
class StoreOperations {
public:
    /// The work of an operation; it should return soon after `future` is cancelled.
    using Work = std::function<void(EngineFuture &future)>;

    /// Calls `work` later on a thread and returns at once. Cancelling the returned future, which is
    /// never null, cancels the operation. While end() waits, the operation is cancelled from the
    /// start.
    std::shared_ptr<PZFuture> start(Work work);
    /// Cancels all operations, including those that handlers start meanwhile, and blocks until none
    /// is running; operations that have not ended in time are abandoned, see WorkerThreads. Must be
    /// called on the main thread. Operations can be started afterwards.
    void end();

private:
    struct Running {
        std::mutex mutex;
        /// Those of the operations that have not ended.
        std::set<std::shared_ptr<PZFuture>> futures;
        bool isEnding = false;
    };

    /// Shared with the operations.
    const std::shared_ptr<Running> m_running = std::make_shared<Running>();
    WorkerThreads m_threads;
};
