#pragma once

#include <condition_variable>
#include <mutex>

#include "Engine/Foundation/EngineFuture.h"

/// Lets one thread of an engine at a time refresh tokens; the threads that wait find the tokens of
/// the first. This matters because a server may invalidate a refresh token that is used twice (RFC
/// 6749, section 10.4). Thread-safe.
class DropboxRefreshTurn {
public:
    /// Blocks until no other thread has the turn, without a limit of its own: requests of the
    /// thread that has it have timeouts. Returns false if `future` was cancelled before; otherwise
    /// the caller has the turn and must call release(). Not recursive. The order of waiting threads
    /// is undefined.
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
