#pragma once

#include <QtCore/QThreadPool>
#include <functional>
#include <memory>
#include <mutex>
#include <set>

#include "Engine/Foundation/EngineFuture.h"

/// The operations of the stores of one engine that are running, each on a thread of a pool of this
/// object. All functions are thread-safe unless stated otherwise. Must not be destroyed on a thread
/// of its pool; the destructor blocks until no operation is running.
class StoreOperations {
public:
    /// The work of an operation; it should return soon after `future` is cancelled.
    using Work = std::function<void(EngineFuture &future)>;

    /// Calls `work` later on a thread of the pool and returns at once. Cancelling the returned
    /// future, which is never null, cancels the operation.
    std::shared_ptr<PZFuture> start(Work work);
    /// Cancels all operations and blocks until none is running, including those that handlers start
    /// meanwhile. Must be called on the main thread. Operations can be started afterwards.
    void end();

private:
    void cancel();

    std::mutex m_mutex;
    /// The futures of the operations that have not ended; guarded by the mutex.
    std::set<std::shared_ptr<PZFuture>> m_futures;
    /// Destroyed first, because its threads use the other members.
    QThreadPool m_pool;
};
