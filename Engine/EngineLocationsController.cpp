#include "Engine/EngineLocationsController.h"

#include <QtCore/QHash>

#include "Engine/EngineSchedules.h"
#include "Engine/EngineSyncState.h"
#include "Engine/ProfileDatabase.h"
#include "Platform/Foundation/Assertion.h"

namespace {

constexpr int minutesInHour = 60;

/// A schedule as the profile has it: kind, minute of the hour or day, and days.
struct SavedSchedule {
    QVariant kind;
    QVariant minute;
    QVariant days;
};

int minuteOfDay(const HourAndMinute &time) {
    return time.hour * minutesInHour + time.minute;
}

SavedSchedule savedSchedule(const QVSyncSchedulePtr &schedule) {
    if (const auto *hourly = dynamic_cast<const QVHourlySchedule *>(schedule.get())) {
        return {QStringLiteral("hourly"), hourly->hourlyOffset(), {}};
    }
    if (const auto *daily = dynamic_cast<const QVDailySchedule *>(schedule.get())) {
        return {QStringLiteral("daily"), minuteOfDay(daily->hourAndMinute()), {}};
    }
    if (const auto *weekly = dynamic_cast<const QVWeeklySchedule *>(schedule.get())) {
        return {QStringLiteral("weekly"), minuteOfDay(weekly->hourAndMinute()),
                static_cast<qint64>(weekly->daysOfWeek())};
    }
    return {};
}

/// nullptr for none, and for one that does not make sense.
QVSyncSchedulePtr loadedSchedule(const SavedSchedule &saved) {
    const QString kind = saved.kind.toString();
    const int minute = saved.minute.toInt();
    const HourAndMinute time{minute / minutesInHour, minute % minutesInHour};
    if (minute < 0 || time.hour > 23) {
        return nullptr;
    }
    if (kind == QLatin1StringView("hourly")) {
        return EngineSchedules::HourlyClass().initWithHourlyOffset(static_cast<quint32>(minute));
    }
    if (kind == QLatin1StringView("daily")) {
        return EngineSchedules::DailyClass().initWithHourAndMinute(time);
    }
    if (kind == QLatin1StringView("weekly")) {
        return EngineSchedules::WeeklyClass().initWithHourAndMinute(time, saved.days.toULongLong());
    }
    return nullptr;
}

void loadState(EngineSyncLocation &location, const QSqlQuery &row) {
    const auto state = std::static_pointer_cast<EngineSyncState>(
        location.addStateForDatabaseWithUUID(row.value(1).toString(), row.value(2).toString()));
    state->setEnabled(row.value(3).toBool());
    state->setSchedule(loadedSchedule({row.value(4), row.value(5), row.value(6)}));
    state->setSyncOnOpen(row.value(7).toBool());
    state->setSyncOnClose(row.value(8).toBool());
    state->setLastSynced(QDateTime::fromString(row.value(9).toString(), Qt::ISODateWithMs));
}

}  // namespace

std::optional<Error> EngineLocationsController::load() {
    QHash<qint64, std::shared_ptr<EngineSyncLocation>> byId;
    const auto error = m_profile->transaction([&] {
        return m_profile->select(QStringLiteral("SELECT id, url FROM locations ORDER BY position"),
                                 {},
                                 [&](const QSqlQuery &row) {
                                     auto location = std::make_shared<EngineSyncLocation>();
                                     location->setRowId(row.value(0).toLongLong());
                                     location->setSavedURL(row.value(1).toString());
                                     byId.insert(location->rowId(), location);
                                     m_locations.append(location);
                                 }) &&
               m_profile->select(
                   QStringLiteral(
                       "SELECT location_id, database_uuid, database_name, enabled, schedule_kind, "
                       "schedule_minute, schedule_days, sync_on_open, sync_on_close, last_synced "
                       "FROM states ORDER BY location_id, position"),
                   {}, [&](const QSqlQuery &row) {
                       if (const auto location = byId.value(row.value(0).toLongLong())) {
                           loadState(*location, row);
                       }
                   });
    });
    for (const auto &location : std::as_const(m_locations)) {
        location->setNeedsSaving(false);
    }
    return error;
}

QList<std::shared_ptr<QVSyncLocation>> EngineLocationsController::syncLocations() const {
    return {m_locations.begin(), m_locations.end()};
}

void EngineLocationsController::insertObjectInSyncLocationsAtIndex(
    const std::shared_ptr<QVSyncLocation> &location, qsizetype index) {
    auto ours = std::dynamic_pointer_cast<EngineSyncLocation>(location);
    requireParameter(ours != nullptr, "location != nil",
                     "EngineLocationsController::insertObjectInSyncLocationsAtIndex",
                     "Engine/EngineLocationsController");
    m_locations.insert(index, ours);
}

qsizetype EngineLocationsController::indexOfObjectInSyncLocations(
    const std::shared_ptr<QVSyncLocation> &location) const {
    return m_locations.indexOf(std::dynamic_pointer_cast<EngineSyncLocation>(location));
}

void EngineLocationsController::removeObjectFromSyncLocationsAtIndex(qsizetype index) {
    const auto location = m_locations.takeAt(index);
    // Should it be inserted again, all of it has to be written.
    location->setRowId(0);
    location->setNeedsSaving(true);
}

bool EngineLocationsController::save(std::optional<Error> *error) {
    QList<qint64> rowIds;
    const auto failure = m_profile->transaction([&] { return writeLocations(rowIds); });
    if (failure) {
        if (error) {
            *error = failure;
        }
        return false;
    }
    for (qsizetype i = 0; i < m_locations.size(); ++i) {
        m_locations[i]->setRowId(rowIds[i]);
        m_locations[i]->setNeedsSaving(false);
    }
    return true;
}

bool EngineLocationsController::writeLocations(QList<qint64> &rowIds) {
    // What is not numbered anew is no longer there.
    bool isWritten = m_profile->execute(QStringLiteral("UPDATE locations SET position = -1"));
    for (qsizetype i = 0; isWritten && i < m_locations.size(); ++i) {
        const EngineSyncLocation &location = *m_locations[i];
        qint64 rowId = location.rowId();
        if (rowId == 0) {
            isWritten = m_profile->execute(
                QStringLiteral("INSERT INTO locations (position, url) VALUES (?, ?)"),
                {i, location.savedURL()});
            rowId = m_profile->lastInsertId();
        } else {
            isWritten = m_profile->execute(
                QStringLiteral("UPDATE locations SET position = ?, url = ? WHERE id = ?"),
                {i, location.savedURL(), rowId});
        }
        isWritten = isWritten && (!location.needsSaving() || writeStates(location, rowId));
        rowIds.append(rowId);
    }
    return isWritten &&
           m_profile->execute(QStringLiteral("DELETE FROM locations WHERE position = -1"));
}

bool EngineLocationsController::writeStates(const EngineSyncLocation &location, qint64 rowId) {
    bool isWritten =
        m_profile->execute(QStringLiteral("DELETE FROM states WHERE location_id = ?"), {rowId});
    const QVSyncStates states = location.synchronizationStates();
    for (qsizetype i = 0; isWritten && i < states.size(); ++i) {
        const QVSyncState &state = *states[i];
        const SavedSchedule schedule = savedSchedule(state.schedule());
        const QDateTime lastSynced = state.lastSynced();
        isWritten = m_profile->execute(
            QStringLiteral("INSERT INTO states VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
            {rowId, i, state.databaseUUID(), state.databaseName(), state.isEnabled(), schedule.kind,
             schedule.minute, schedule.days, state.syncOnOpen(), state.syncOnClose(),
             lastSynced.isValid() ? lastSynced.toUTC().toString(Qt::ISODateWithMs) : QVariant()});
    }
    return isWritten;
}
