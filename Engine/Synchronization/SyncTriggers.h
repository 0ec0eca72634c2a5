#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QTimer>

#include "Host/QVSyncState.h"

class EngineNoteLibrary;
class EngineSyncPlugin;
class QVDatabase;

/// Starts synchronizations by themselves: where a state is enabled and asks for it, when its
/// database is opened (or was open when the profile was), when it is closed, and when its schedule
/// fires. Nothing waits for them.
///
/// Schedules are compared with the wall clock at every full minute, and at once after the computer
/// has slept. One that would have fired since the last look, however often, fires once; one set
/// back is not made up for. Each firing is posted as QVSyncScheduleDidFireNotification with the
/// QVSyncState.
class SyncTriggers : public QObject {
    Q_OBJECT
public:
    /// Both must outlive this.
    SyncTriggers(EngineSyncPlugin &plugin, EngineNoteLibrary &library);

    /// Called once, when the profile was opened.
    void start();
    /// Fires what has come due since the last look; `now` is the time by the wall clock.
    void look(const QDateTime &now);

private:
    void waitForNextMinute();
    void databaseOpened(const QVDatabase &database);
    void databaseClosed(const QVDatabase &database);
    /// The enabled states of all locations that `asks` holds for.
    QVSyncStates states(const std::function<bool(const QVSyncState &)> &asks) const;
    void synchronize(const QVSyncStates &states);

    EngineSyncPlugin &m_plugin;
    EngineNoteLibrary &m_library;
    QTimer m_timer;
    QDateTime m_lastLook;
};
