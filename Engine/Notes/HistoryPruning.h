#pragma once

#include <QtCore/QTimer>

#include "Engine/Profile/LogMover.h"
#include "Platform/Foundation/Expected.h"

class ProfileDatabase;

/// Removes the earlier versions of notes that exceed the limits of the open profile, see
/// NoteHistory, at the start of the engine and then twice a day, in short steps on the main thread.
/// What is removed is overwritten, which fills the profile's log: it is moved on another thread
/// between the steps. Failures are reported in the application's log. Must be used on the main
/// thread.
class HistoryPruning : public QObject {
    Q_OBJECT
public:
    /// Does nothing until start() is called. `profile` is not owned and must outlive this object.
    explicit HistoryPruning(const ProfileDatabase &profile);

    /// Begins from the event loop. The profile must be open. Must be called once. Destroying this
    /// object ends it.
    void start();
    /// Removes what exceeds the limits, which have changed, from the event loop. The profile must
    /// be open.
    void goOn();

private:
    /// Performs one step and schedules the next one.
    void prune();
    /// Moves the profile's log, then schedules the next step, which waits if that fails.
    void moveLog();
    /// Lets the versions age, once for each time that they are removed.
    Expected<void> advanceTime();
    /// Performs one step and returns whether there was something to remove.
    Expected<bool> pruneIfDue() const;

    const ProfileDatabase &m_profile;
    QTimer m_timer;
    /// Whether the next step is not the first one.
    bool m_isContinued = false;
    /// Whether a thread moves the log. The next step follows.
    bool m_isMoving = false;
    LogMover m_logMover;
};
