#include "Engine/Synchronization/SyncTriggers.h"

#include "Application/Interface/QVUnsentChanges.h"
#include "Engine/Notes/EngineNoteLibrary.h"
#include "Engine/Schedules/ScheduleByClock.h"
#include "Host/InboxUUID.h"
#include "Host/Notifications.h"
#include "Host/QVJobLog.h"
#include "Host/QVSyncDispatcher.h"
#include "Host/QVSyncLocation.h"
#include "Host/QVSyncLocationsController.h"
#include "Host/QVSyncResult.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/NotificationCenter.h"

namespace {

constexpr int Minute = 60000;

bool isDue(const QVSyncSchedulePtr &schedule, const QDateTime &lastCheck, const QDateTime &now) {
    const auto *byClock = dynamic_cast<const ScheduleByClock *>(schedule.get());
    const QDateTime next = byClock ? byClock->nextDateAfter(lastCheck) : QDateTime();
    return next.isValid() && next <= now;
}

/// Returns the time of the last job of `state`, or `date` if that is later.
QDateTime latest(const QVSyncState &state, const QDateTime &date) {
    const std::optional<QVSyncResult> result = QVSyncResult::of(&state);
    const QDateTime last = result ? result->date : state.lastSynced();
    return last.isValid() && last > date ? last : date;
}

}  // namespace

SyncTriggers::SyncTriggers(const QVSyncLocationsController &locations, QVSyncDispatcher &dispatcher,
                           EngineNoteLibrary &library)
    : m_locations(locations), m_dispatcher(dispatcher), m_library(library) {
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        checkSchedules(QDateTime::currentDateTime());
        waitForNextMinute();
    });
}

void SyncTriggers::start(const QDateTime &lastCheck) {
    NotificationCenter &center = NotificationCenter::defaultCenter();
    center.addObserver(this, QVSyncPluginDidOpenDatabase, [this](const Notification &posted) {
        const auto &database = *qobject_cast<QVDatabase *>(posted.object);
        if (isOwn(database)) {
            databaseOpened(database);
        }
    });
    center.addObserver(this, QVSyncPluginDidCloseDatabase, [this](const Notification &posted) {
        const auto &database = *qobject_cast<QVDatabase *>(posted.object);
        if (isOwn(database)) {
            databaseClosed(database);
        }
    });
    m_lastCheck = QDateTime::currentDateTime();
    waitForNextMinute();
    const QVSyncStates missed = missedStates(lastCheck);
    report(missed);
    QStringList open;
    const auto databases = m_library.openDatabases();
    for (const auto &database : databases) {
        open.append(synchronizedUUID(*database));
    }
    QVSyncStates wanted = states([&](const QVSyncState &state) {
        return (state.syncOnOpen() && open.contains(state.databaseUUID())) ||
               (state.syncOnClose() && QVUnsentChanges::in(state, &m_dispatcher).value_or(true));
    });
    for (const std::shared_ptr<QVSyncState> &state : missed) {
        if (!wanted.contains(state)) {
            wanted.append(state);
        }
    }
    synchronize(wanted);
}

QVSyncStates SyncTriggers::missedStates(const QDateTime &lastCheck) const {
    return states([&](const QVSyncState &state) {
        return lastCheck.isValid() &&
               isDue(state.schedule(), latest(state, lastCheck), m_lastCheck);
    });
}

void SyncTriggers::report(const QVSyncStates &missed) {
    for (const std::shared_ptr<QVSyncState> &state : missed) {
        QVJobLog::logMessage(
            localizedSyncString(
                "A schedule of “%1” was missed while Velmora was closed, and is made "
                "up for now.")
                .arg(state->databaseName()));
        NotificationCenter::defaultCenter().post(QVSyncScheduleDidFireNotification, state.get());
    }
}

void SyncTriggers::pauseUntil(const QDateTime &end) {
    m_pauseEnd = end;
    checkSchedules(QDateTime::currentDateTime());
}

void SyncTriggers::checkSchedules(const QDateTime &now) {
    if (isPaused(now)) {
        return;
    }
    m_pauseEnd = {};
    const QDateTime lastCheck = std::exchange(m_lastCheck, now);
    const QVSyncStates due =
        states([&](const QVSyncState &state) { return isDue(state.schedule(), lastCheck, now); });
    for (const std::shared_ptr<QVSyncState> &state : due) {
        NotificationCenter::defaultCenter().post(QVSyncScheduleDidFireNotification, state.get());
    }
    synchronize(due);
}

void SyncTriggers::waitForNextMinute() {
    const QTime time = QTime::currentTime();
    m_timer.start(Minute - time.second() * 1000 - time.msec());
}

bool SyncTriggers::isOwn(const QVDatabase &database) const {
    return m_library.databaseForUUID(database.UUID()).get() == &database;
}

QString SyncTriggers::synchronizedUUID(const QVDatabase &database) const {
    return UUIDInStores(database, m_library.inbox().get());
}

void SyncTriggers::databaseOpened(const QVDatabase &database) {
    const QString UUID = synchronizedUUID(database);
    synchronize(states([&](const QVSyncState &state) {
        return state.databaseUUID() == UUID && state.syncOnOpen();
    }));
}

void SyncTriggers::databaseClosed(const QVDatabase &database) {
    const QString UUID = synchronizedUUID(database);
    synchronize(states([&](const QVSyncState &state) {
        return state.databaseUUID() == UUID && state.syncOnClose();
    }));
}

QVSyncStates SyncTriggers::states(const std::function<bool(const QVSyncState &)> &condition) const {
    QVSyncStates found;
    const auto locations = m_locations.syncLocations();
    for (const auto &location : locations) {
        const QVSyncStates all = location->synchronizationStates();
        std::copy_if(all.begin(), all.end(), std::back_inserter(found),
                     [&](const auto &state) { return state->isEnabled() && condition(*state); });
    }
    return found;
}

void SyncTriggers::synchronize(const QVSyncStates &states) {
    if (!states.isEmpty() && !isPaused(QDateTime::currentDateTime())) {
        m_dispatcher.performSynchronizationsWithSynchronizationStates(states);
    }
}
