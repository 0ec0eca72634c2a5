#pragma once

#include <condition_variable>
#include <mutex>

#include "Engine/Foundation/EngineFuture.h"

/// Lets one thread at a time do something: what takes much memory, or what has a result that the
/// waiting threads can use, too, such as refreshing tokens. Thread-safe.
class Turn {
public:
    /// Blocks until no other thread has the turn, without a limit of its own: what the thread that
    /// has it does must end, as requests do by their timeouts. Returns false if `future` was
    /// cancelled before; otherwise the caller has the turn and must call release(). Not recursive.
    /// The order of waiting threads is undefined.
    bool take(const EngineFuture &future);
    /// Gives the turn to a waiting thread. Must be called once after each take() that returned
    /// true, on any thread.
    void release();

private:
    std::mutex m_mutex;
    std::condition_variable_any m_released;
    /// Guarded by the mutex.
    bool m_isTaken = false;
};
