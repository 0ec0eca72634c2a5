#include "Engine/Locations/EngineLocationsController.h"

#include <QtCore/QUuid>
#include <algorithm>

#include "Engine/Locations/EngineLocationFormatter.h"
#include "Engine/Locations/FailureText.h"
#include "Engine/Locations/ResultColumns.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Profile/ProfileSettings.h"
#include "Engine/Schedules/ScheduleColumns.h"
#include "Platform/Foundation/Assertion.h"

namespace {

/// The start of the key of a setting that holds the URL of a removed location.
const QString RemovalPrefix = QStringLiteral("removedLocation ");

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
        .lastResult = ResultColumns::result(row, 10),
    };
}

/// Returns the columns of the table "states", in the order of stateValues(), separated by commas.
QString stateColumns() {
    return QStringLiteral(
               "location_uuid, database_uuid, database_name, enabled, sync_on_open, sync_on_close,"
               " last_synced, schedule, schedule_minutes, schedule_days, ") +
           ResultColumns::Names;
}

QVariantList columnsOf(const QString &location, const EngineSyncState &state) {
    const ScheduleColumns schedule = ScheduleColumns::fromSchedule(state.schedule());
    return QVariantList{location,
                        state.databaseUUID(),
                        ProfileDatabase::text(state.databaseName()),
                        state.isEnabled(),
                        state.syncOnOpen(),
                        state.syncOnClose(),
                        milliseconds(state.lastSynced()),
                        schedule.kind,
                        schedule.minutes,
                        schedule.days} +
           ResultColumns::values(state.lastResult());
}

}  // namespace

EngineLocationsController::EngineLocationsController(
    const ProfileDatabase &profile, std::shared_ptr<const EngineLocationKinds> kinds)
    : m_profile(profile), m_kinds(std::move(kinds)) {}

Expected<void> EngineLocationsController::load() {
    return loadLocations().and_then([this] { return loadStates(); });
}

Expected<void> EngineLocationsController::loadLocations() {
    return m_profile.read(
        QStringLiteral("SELECT uuid, url, position FROM locations ORDER BY position"), {},
        [this](const QSqlQuery &row) {
            m_locations.append(std::make_shared<EngineSyncLocation>(
                row.value(0).toString(), row.value(1).toString(), m_kinds));
            m_saved.insert(row.value(0).toString(),
                           {row.value(1).toString(), row.value(2).toLongLong()});
        });
}

Expected<void> EngineLocationsController::loadStates() {
    QHash<QString, EngineSyncLocation *> locations;
    for (const std::shared_ptr<EngineSyncLocation> &location : std::as_const(m_locations)) {
        locations.insert(location->identifier(), location.get());
    }
    return m_profile.read(
        QStringLiteral("SELECT %1 FROM states ORDER BY id").arg(stateColumns()), {},
        [&](const QSqlQuery &row) {
            if (EngineSyncLocation *location = locations.value(row.value(0).toString())) {
                EngineSyncState::Values values = stateValues(row);
                if (values.lastResult) {
                    FailureText::localize(
                        *values.lastResult, row.value(2).toString(),
                        EngineLocationFormatter(location->URL(), location->kind(), syncLocations())
                            .title());
                }
                location->restoreState(row.value(1).toString(), row.value(2).toString(), values);
            }
        });
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
    Q_EMIT locationInserted(*ours);
}

qsizetype EngineLocationsController::indexOfObjectInSyncLocations(
    const std::shared_ptr<QVSyncLocation> &location) const {
    return m_locations.indexOf(location);
}

void EngineLocationsController::removeObjectFromSyncLocationsAtIndex(qsizetype index) {
    if (index >= 0 && index < m_locations.size()) {
        const QString identifier = m_locations.takeAt(index)->identifier();
        Q_EMIT locationRemoved(identifier);
    }
}

QList<std::shared_ptr<EngineSyncState>> EngineLocationsController::statesOf(
    const QString &UUID) const {
    QList<std::shared_ptr<EngineSyncState>> states;
    for (const auto &location : m_locations) {
        const auto &all = location->engineStates();
        std::copy_if(all.begin(), all.end(), std::back_inserter(states),
                     [&](const auto &state) { return state->databaseUUID() == UUID; });
    }
    return states;
}

Expected<void> EngineLocationsController::deleteStates(const QString &UUID) const {
    return m_profile.run(QStringLiteral("DELETE FROM states WHERE database_uuid = ?"), {UUID});
}

void EngineLocationsController::forgetStates(const QString &UUID) {
    for (const auto &location : std::as_const(m_locations)) {
        location->removeState(UUID);
    }
}

bool EngineLocationsController::save(std::optional<Error> *error) {
    const QHash<QString, QString> formerURLs = formerURLTexts();
    const Expected<void> written = m_profile.write([&] {
        return writeLocations().and_then([this] { return writeStates(); }).and_then([&] {
            return recordRemovals(formerURLs);
        });
    });
    if (written) {
        rememberSaved();
        for (auto former = formerURLs.begin(); former != formerURLs.end(); ++former) {
            Q_EMIT addressReplaced(former.key());
        }
        Q_EMIT saved();
    } else if (error) {
        *error = written.error();
    }
    return written.has_value();
}

QHash<QString, QString> EngineLocationsController::formerURLTexts() const {
    QHash<QString, QString> texts;
    for (const auto &location : m_locations) {
        const auto former = m_saved.constFind(location->identifier());
        if (former != m_saved.constEnd() && former->URLText != location->URLText()) {
            texts.insert(QUuid::createUuid().toString(QUuid::WithoutBraces), former->URLText);
        }
    }
    return texts;
}

Expected<void> EngineLocationsController::recordRemovals(
    const QHash<QString, QString> &URLTexts) const {
    for (auto each = URLTexts.begin(); each != URLTexts.end(); ++each) {
        if (Expected<void> recorded = recordRemoval(each.key(), each.value()); !recorded) {
            return recorded;
        }
    }
    return {};
}

Expected<void> EngineLocationsController::recordRemoval(const QString &identifier,
                                                        const QString &URLText) const {
    return ProfileSettings::set(m_profile, RemovalPrefix + identifier,
                                ProfileDatabase::text(URLText));
}

Expected<void> EngineLocationsController::writeLocations() const {
    QSet<QString> gone(m_saved.keyBegin(), m_saved.keyEnd());
    for (qsizetype i = 0; i < m_locations.size(); ++i) {
        const QString identifier = m_locations[i]->identifier();
        gone.remove(identifier);
        if (Expected<void> written = writeLocation(identifier, {m_locations[i]->URLText(), i});
            !written) {
            return written;
        }
    }
    for (const QString &identifier : std::as_const(gone)) {
        if (Expected<void> deleted = deleteLocation(identifier); !deleted) {
            return deleted;
        }
    }
    return {};
}

Expected<void> EngineLocationsController::deleteLocation(const QString &identifier) const {
    return recordRemoval(identifier, m_saved[identifier].URLText).and_then([&] {
        return m_profile.run(QStringLiteral("DELETE FROM locations WHERE uuid = ?"), {identifier});
    });
}

Expected<QStringList> EngineLocationsController::removedLocations() const {
    return ProfileSettings::values(m_profile, RemovalPrefix).map([](const auto &URLs) {
        return QStringList(URLs.keys());
    });
}

Expected<std::optional<Url>> EngineLocationsController::removedURL(
    const QString &identifier) const {
    return ProfileSettings::value(m_profile, RemovalPrefix + identifier)
        .map([](const QVariant &text) {
            return text.isValid() ? std::optional(Url::fromString(text.toString())) : std::nullopt;
        });
}

Expected<void> EngineLocationsController::forgetRemoval(const QString &identifier) const {
    return ProfileSettings::remove(m_profile, RemovalPrefix + identifier);
}

Expected<void> EngineLocationsController::writeLocation(const QString &identifier,
                                                        const Row &row) const {
    const auto saved = m_saved.constFind(identifier);
    if (saved == m_saved.constEnd()) {
        return m_profile
            .run(QStringLiteral("INSERT INTO locations (url, position, uuid) VALUES (?, ?, ?)"),
                 {ProfileDatabase::text(row.URLText), row.position, identifier})
            .and_then([&] { return forgetRemoval(identifier); });
    }
    return *saved == row
               ? Expected<void>()
               : m_profile.run(
                     QStringLiteral("UPDATE locations SET url = ?, position = ? WHERE uuid = ?"),
                     {ProfileDatabase::text(row.URLText), row.position, identifier});
}

Expected<void> EngineLocationsController::writeStates() const {
    const QStringList columns = stateColumns().split(QStringLiteral(", "));
    const QString placeholders = QStringList(columns.size(), QStringLiteral("?")).join(u',');
    const QString newValues =
        QStringLiteral("excluded.") + columns.join(QStringLiteral(", excluded."));
    Expected<QSqlQuery> query = m_profile.prepare(
        QStringLiteral("INSERT INTO states (%1) SELECT %2"
                       " WHERE EXISTS (SELECT 1 FROM locations WHERE uuid = ?)"
                       " ON CONFLICT (location_uuid, database_uuid) DO UPDATE SET (%1) = (%3)")
            .arg(stateColumns(), placeholders, newValues));
    if (!query) {
        return failure(query.error());
    }
    for (const std::shared_ptr<EngineSyncLocation> &location : m_locations) {
        const bool isNew = !isSaved(*location);
        for (const std::shared_ptr<EngineSyncState> &state : location->engineStates()) {
            if (!isNew && !state->isChanged()) {
                continue;
            }
            if (Expected<void> written =
                    m_profile.run(*query, columnsOf(location->identifier(), *state) +
                                              QVariantList{location->identifier()});
                !written) {
                return written;
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
    for (qsizetype i = 0; i < m_locations.size(); ++i) {
        m_saved.insert(m_locations[i]->identifier(), {m_locations[i]->URLText(), i});
        for (const std::shared_ptr<EngineSyncState> &state : m_locations[i]->engineStates()) {
            state->setChanged(false);
        }
    }
}
