#pragma once

#include <QtCore/QObject>
#include <deque>
#include <functional>

#include "Platform/PlatformExport.h"

/// A queue of calls that run on the thread on which this object lives, one after the other, in the
/// order in which they were posted. Used in place of queued calls of Qt between threads: stock Qt
/// is not instrumented, so the thread sanitizer cannot see that these hand over what they carry.
class PLATFORM_EXPORT CallQueue : public QObject {
public:
    /// The queue belongs to the calling thread, unless it is moved to another one before it is
    /// used. That thread must run a Qt event loop.
    explicit CallQueue(QObject *parent = nullptr);
    /// Drops the calls that have not begun. Must be called on the thread of this object, when no
    /// thread can post any more.
    ~CallQueue() override;

    /// Queues `call`, which must not be empty; it runs from the event loop, never within this call.
    /// Returns at once. What `call` owns is released after it has run, on the thread of the queue,
    /// or by the destructor. An exception of `call` passes to the event loop and does not affect
    /// the calls after it. Thread-safe.
    void post(std::function<void()> call);

protected:
    /// Runs the next call.
    void customEvent(QEvent *event) override;

private:
    std::deque<std::function<void()>> m_calls;
};
