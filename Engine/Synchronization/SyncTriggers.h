#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QTimer>

#include "Host/QVSyncState.h"

class EngineNoteLibrary;
class QVDatabase;
class QVSyncDispatcher;
class QVSyncLocationsController;

/// Starts the synchronizations that an enabled state requests: when its database is opened (or is
/// open when the profile is opened), when its database is closed, and when its schedule fires. Must
/// be used on the main thread.
///
/// Schedules are compared with the wall clock at every full minute, and when the computer wakes up.
/// A schedule that was due several times since the last check fires once, also if the program was
/// not running, unless a job of the state has ended since it was last due, whatever its result. If
/// the clock is set back, a schedule does not fire again for the time that is repeated. Each firing
/// posts QVSyncScheduleDidFireNotification with the QVSyncState.
///
/// A database that was open when the program ended counts as closed then: a state that requests
/// synchronization at closing is synchronized at the start if the location lacks changes of the
/// database, or if that cannot be read.
class SyncTriggers : public QObject {
    Q_OBJECT
public:
    /// None of the arguments is owned; all must outlive this object.
    SyncTriggers(const QVSyncLocationsController &locations, QVSyncDispatcher &dispatcher,
                 EngineNoteLibrary &library);

    /// Starts with the databases that are open. `lastCheck` is the time of the latest check of the
    /// previous run; invalid if it is not known. Must be called once, after the profile was opened.
    /// Destroying this object ends everything that start() has begun; synchronizations that it has
    /// started go on. For schedules that were missed, a line is written to the log; these, the
    /// states of open databases, and those with changes that were not sent at closing are then
    /// requested at once.
    void start(const QDateTime &lastCheck = {});
    /// Returns the time of the latest check; invalid before start().
    QDateTime lastCheck() const { return m_lastCheck; }
    /// Fires the schedules that were due after the previous check and not after `now`, the time of
    /// the wall clock. Called by the timer; tests call it with a time of their own.
    void checkSchedules(const QDateTime &now);

    /// Starts no synchronization until `end`; an invalid date ends that. A schedule that is due
    /// meanwhile fires once, afterwards.
    void pauseUntil(const QDateTime &end);

private:
    bool isPaused(const QDateTime &now) const { return m_pauseEnd.isValid() && now < m_pauseEnd; }
    /// Returns the states with a schedule that was due after `lastCheck` while the program was not
    /// running.
    QVSyncStates missedStates(const QDateTime &lastCheck) const;
    /// Logs and posts that the schedules of these states fire.
    static void report(const QVSyncStates &missed);
    /// Starts the timer for the next check.
    void waitForNextMinute();
    /// Returns whether `database` belongs to the library. The notifications of databases are posted
    /// for the databases of every engine of the process.
    bool isOwn(const QVDatabase &database) const;
    /// Returns the UUID under which stores know the database.
    QString synchronizedUUID(const QVDatabase &database) const;
    /// Start the synchronizations that the states request for that event.
    void databaseOpened(const QVDatabase &database);
    void databaseClosed(const QVDatabase &database);
    /// Returns the enabled states of all locations that satisfy `condition`.
    QVSyncStates states(const std::function<bool(const QVSyncState &)> &condition) const;
    /// Passes the states to the dispatcher, unless there are none.
    void synchronize(const QVSyncStates &states);

    const QVSyncLocationsController &m_locations;
    QVSyncDispatcher &m_dispatcher;
    EngineNoteLibrary &m_library;
    QTimer m_timer;
    /// The time of the latest check.
    QDateTime m_lastCheck;
    /// Invalid unless paused.
    QDateTime m_pauseEnd;
};
