#pragma once

#include <QtCore/QDeadlineTimer>
#include <QtCore/QThread>
#include <chrono>

/// The times at which to try again what another process prevents for a moment, for example because
/// it holds the lock of a file: the kernel does not announce that a lock was released.
class Retries {
public:
    /// The time between two attempts.
    static constexpr std::chrono::milliseconds Interval{20};

    /// The timeout begins now.
    explicit Retries(std::chrono::milliseconds timeout) : m_deadline(timeout) {}

    /// Blocks for Interval and returns true. Returns false at once if the timeout has expired. The
    /// main thread may wait only before its event loop and the first window, which would not
    /// respond.
    bool wait() const {
        if (m_deadline.hasExpired()) {
            return false;
        }
        QThread::msleep(Interval.count());
        return true;
    }

private:
    const QDeadlineTimer m_deadline;
};
