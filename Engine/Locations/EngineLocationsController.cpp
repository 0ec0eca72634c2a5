#include "Engine/Locations/EngineLocationsController.h"

#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Schedules/ScheduleColumns.h"
#include "Platform/Foundation/Assertion.h"

namespace {

QVariant milliseconds(const QDateTime &date) {
    return date.isValid() ? QVariant(date.toMSecsSinceEpoch()) : QVariant();
}

QDateTime date(const QVariant &milliseconds) {
    return milliseconds.isNull() ? QDateTime()
                                 : QDateTime::fromMSecsSinceEpoch(milliseconds.toLongLong());
}

EngineSyncState::Values stateValues(const QSqlQuery &row) {
    return {
        .isEnabled = row.value(3).toBool(),
        .syncOnOpen = row.value(4).toBool(),
        .syncOnClose = row.value(5).toBool(),
        .schedule = ScheduleColumns{row.value(7), row.value(8), row.value(9)}.schedule(),
        .lastSynced = date(row.value(6)),
    };
}

void bindState(QSqlQuery &query, const QString &location, const EngineSyncState &state) {
    const ScheduleColumns schedule = ScheduleColumns::fromSchedule(state.schedule());
    query.bindValue(0, location);
    query.bindValue(1, state.databaseUUID());
    query.bindValue(2, ProfileDatabase::text(state.databaseName()));
    query.bindValue(3, state.isEnabled());
    query.bindValue(4, state.syncOnOpen());
    query.bindValue(5, state.syncOnClose());
    query.bindValue(6, milliseconds(state.lastSynced()));
    query.bindValue(7, schedule.kind);
    query.bindValue(8, schedule.minutes);
    query.bindValue(9, schedule.days);
}

}  // namespace

EngineLocationsController::EngineLocationsController(const ProfileDatabase &profile)
    : m_profile(profile) {}

std::optional<Error> EngineLocationsController::load() {
    if (std::optional<Error> error = loadLocations()) {
        return error;
    }
    return loadStates();
}

std::optional<Error> EngineLocationsController::loadLocations() {
    QSqlQuery rows =
        m_profile.prepare(QStringLiteral("SELECT uuid, url FROM locations ORDER BY position"));
    if (!rows.exec()) {
        return m_profile.errorOf(rows);
    }
    while (rows.next()) {
        m_locations.append(std::make_shared<EngineSyncLocation>(rows.value(0).toString(),
                                                                rows.value(1).toString()));
        m_saved.insert(rows.value(0).toString());
    }
    return {};
}

std::optional<Error> EngineLocationsController::loadStates() {
    QHash<QString, EngineSyncLocation *> locations;
    for (const std::shared_ptr<EngineSyncLocation> &location : std::as_const(m_locations)) {
        locations.insert(location->identifier(), location.get());
    }
    QSqlQuery rows = m_profile.prepare(
        QStringLiteral("SELECT location_uuid, database_uuid, database_name, enabled, sync_on_open,"
                       " sync_on_close, last_synced, schedule, schedule_minutes, schedule_days"
                       " FROM states ORDER BY id"));
    if (!rows.exec()) {
        return m_profile.errorOf(rows);
    }
    while (rows.next()) {
        if (EngineSyncLocation *location = locations.value(rows.value(0).toString())) {
            location->restoreState(rows.value(1).toString(), rows.value(2).toString(),
                                   stateValues(rows));
        }
    }
    return {};
}

QList<std::shared_ptr<QVSyncLocation>> EngineLocationsController::syncLocations() const {
    return {m_locations.begin(), m_locations.end()};
}

void EngineLocationsController::insertObjectInSyncLocationsAtIndex(
    const std::shared_ptr<QVSyncLocation> &location, qsizetype index) {
    const auto ours = std::dynamic_pointer_cast<EngineSyncLocation>(location);
    requireParameter(ours != nullptr, "location != nil",
                     "EngineLocationsController::insertObjectInSyncLocationsAtIndex",
                     "Engine/Locations/EngineLocationsController");
    m_locations.insert(index, ours);
}

qsizetype EngineLocationsController::indexOfObjectInSyncLocations(
    const std::shared_ptr<QVSyncLocation> &location) const {
    return m_locations.indexOf(location);
}

void EngineLocationsController::removeObjectFromSyncLocationsAtIndex(qsizetype index) {
    m_locations.removeAt(index);
}

bool EngineLocationsController::save(std::optional<Error> *error) {
    std::optional<Error> problem = m_profile.write([this]() -> std::optional<Error> {
        if (std::optional<Error> locationsError = writeLocations()) {
            return locationsError;
        }
        return writeStates();
    });
    if (!problem) {
        rememberSaved();
        return true;
    }
    if (error) {
        *error = std::move(problem);
    }
    return false;
}

std::optional<Error> EngineLocationsController::writeLocations() const {
    QSet<QString> gone = m_saved;
    qsizetype position = 0;
    for (const std::shared_ptr<EngineSyncLocation> &location : m_locations) {
        gone.remove(location->identifier());
        if (std::optional<Error> error = m_profile.run(
                QStringLiteral("INSERT INTO locations (uuid, position, url) VALUES (?, ?, ?)"
                               " ON CONFLICT (uuid) DO UPDATE SET position = excluded.position,"
                               " url = excluded.url"),
                {location->identifier(), position++, ProfileDatabase::text(location->URLText())})) {
            return error;
        }
    }
    for (const QString &identifier : std::as_const(gone)) {
        if (std::optional<Error> error = m_profile.run(
                QStringLiteral("DELETE FROM locations WHERE uuid = ?"), {identifier})) {
            return error;
        }
    }
    return {};
}

std::optional<Error> EngineLocationsController::writeStates() const {
    QSqlQuery query = m_profile.prepare(
        QStringLiteral("INSERT INTO states (location_uuid, database_uuid, database_name, enabled,"
                       " sync_on_open, sync_on_close, last_synced, schedule, schedule_minutes,"
                       " schedule_days) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"
                       " ON CONFLICT (location_uuid, database_uuid) DO UPDATE SET"
                       " database_name = excluded.database_name, enabled = excluded.enabled,"
                       " sync_on_open = excluded.sync_on_open,"
                       " sync_on_close = excluded.sync_on_close,"
                       " last_synced = excluded.last_synced, schedule = excluded.schedule,"
                       " schedule_minutes = excluded.schedule_minutes,"
                       " schedule_days = excluded.schedule_days"));
    for (const std::shared_ptr<EngineSyncLocation> &location : m_locations) {
        const bool isNew = !isSaved(*location);
        for (const std::shared_ptr<EngineSyncState> &state : location->engineStates()) {
            if (!isNew && !state->isChanged()) {
                continue;
            }
            bindState(query, location->identifier(), *state);
            if (!query.exec()) {
                return m_profile.errorOf(query);
            }
        }
    }
    return {};
}

bool EngineLocationsController::isSaved(const EngineSyncLocation &location) const {
    return m_saved.contains(location.identifier());
}

void EngineLocationsController::rememberSaved() {
    m_saved.clear();
    for (const std::shared_ptr<EngineSyncLocation> &location : std::as_const(m_locations)) {
        m_saved.insert(location->identifier());
        for (const std::shared_ptr<EngineSyncState> &state : location->engineStates()) {
            state->setChanged(false);
        }
    }
}
