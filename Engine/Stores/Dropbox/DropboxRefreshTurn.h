#pragma once

#include <condition_variable>
#include <mutex>

#include "Engine/Foundation/EngineFuture.h"

/// Lets one thread of an engine at a time refresh tokens; the threads that wait find the tokens of
/// the first. Thread-safe.
class DropboxRefreshTurn {
public:
    /// Blocks until no other thread has the turn. Returns false if `future` was cancelled before;
    /// otherwise the caller has the turn and must call release().
    bool take(const EngineFuture &future);
    void release();

private:
    std::mutex m_mutex;
    std::condition_variable_any m_released;
    /// Guarded by the mutex.
    bool m_isTaken = false;
};
