#pragma once

#include <QtCore/QDeadlineTimer>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <stop_token>

#include "Engine/Foundation/EngineFuture.h"

/// Blocks a thread until an event, a deadline, or the cancellation of an operation, whichever comes
/// first; cancelling ends the wait at once. The deadline applies to all waits of one object
/// together. Every function blocks and must not be called on the main thread.
class CancellableWait {
public:
    /// `future` must outlive this object.
    CancellableWait(const EngineFuture &future, QDeadlineTimer deadline)
        : m_future(future), m_deadline(deadline) {}

    /// Waits until `isDone`, which is called with `lock` held, returns true; the code that makes it
    /// true must notify `changed`. Returns the last result of `isDone`.
    template <class Condition>
    bool until(std::condition_variable_any &changed, std::unique_lock<std::mutex> &lock,
               Condition isDone) const {
        if (m_deadline.isForever()) {
            return changed.wait(lock, m_future.cancellation(), isDone);
        }
        return changed.wait_until(lock, m_future.cancellation(),
                                  m_deadline.deadline<std::chrono::steady_clock>(), isDone);
    }
    /// Waits until the file descriptor `descriptor` is ready for `events` (see poll(2)) or has an
    /// error. Returns false if it is not, or if the system cannot wait.
    bool forDescriptor(int descriptor, short events) const;
    /// Waits until the deadline. Returns false if the operation was cancelled before.
    bool forDeadline() const;

private:
    const EngineFuture &m_future;
    const QDeadlineTimer m_deadline;
};
