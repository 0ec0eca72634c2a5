#pragma once

#include <QtCore/QObject>
#include <functional>

#include "Engine/Foundation/WorkerThreads.h"
#include "Platform/Foundation/Expected.h"

class ProfileDatabase;

/// Moves the log of the open profile on another thread: for what fills it by many short steps on
/// the main thread. Must be used on the main thread.
class LogMover : public QObject {
    Q_OBJECT
public:
    using Handler = std::function<void(const Expected<void> &moved)>;

    /// `profile` is not owned and must outlive this object.
    explicit LogMover(const ProfileDatabase &profile);

    /// Does what ProfileDatabase::moveLog() does, without blocking, then calls `handler` from the
    /// event loop with the result, also if the system cannot start a thread; not after this object
    /// was destroyed. After a failure, the next step should wait for a later time: moving would
    /// probably fail again, while the log grows. What `handler` owns must be safe to destroy on
    /// any thread.
    void move(const Handler &handler);

private:
    const ProfileDatabase &m_profile;
    WorkerThreads m_threads;
};
