#pragma once

#include <QtCore/QDeadlineTimer>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <stop_token>

#include "Engine/Foundation/EngineFuture.h"

/// Blocks a thread until an event, a deadline, or the cancellation of an operation, whichever comes
/// first; cancelling ends the wait at once, without polling. The deadline applies to all waits of
/// one object together: once it has expired, every function checks its condition and returns. Every
/// function blocks and must not be called on the main thread. An object must be used by one thread
/// at a time; the future may be cancelled on any thread.
class CancellableWait {
public:
    /// `future` is not owned and must outlive this object. A deadline of QDeadlineTimer::Forever is
    /// allowed.
    CancellableWait(const EngineFuture &future, QDeadlineTimer deadline)
        : m_future(future), m_deadline(deadline) {}

    /// Waits until `isDone`, which is called with `lock` held, returns true; the code that makes it
    /// true must notify `changed`. `lock` must be held by the caller; it is released while waiting
    /// and held again on return. Returns the last result of `isDone`: false means that the deadline
    /// has passed or the operation was cancelled, which EngineFuture::isCancelled() distinguishes.
    template <class Condition>
    bool until(std::condition_variable_any &changed, std::unique_lock<std::mutex> &lock,
               Condition isDone) const {
        if (m_deadline.isForever()) {
            return changed.wait(lock, m_future.cancellation(), isDone);
        }
        return changed.wait_until(lock, m_future.cancellation(),
                                  m_deadline.deadline<std::chrono::steady_clock>(), isDone);
    }
    /// Waits until the file descriptor `descriptor`, which stays open and is not owned, is ready
    /// for `events` (see poll(2)) or has an error, which the next call that uses it then reports.
    /// Returns false if it is not, because the deadline has passed or the operation was cancelled,
    /// or if the system cannot wait. Signals do not end the wait.
    bool forDescriptor(int descriptor, short events) const;
    /// Waits until the deadline, which must not be Forever unless the wait is to end with the
    /// cancellation only. Returns false if the operation was cancelled before.
    bool forDeadline() const;

private:
    const EngineFuture &m_future;
    const QDeadlineTimer m_deadline;
};
