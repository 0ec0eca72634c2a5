#include "Controller/Preferences/DatabaseRowStatus.h"

#include <algorithm>

#include "Controller/Preferences/LocationRecovery.h"
#include "Host/QVSyncLocation.h"
#include "Host/QVSyncResult.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/CombinedErrors.h"
#include "Platform/Foundation/RelativeDate.h"

namespace {

/// Returns what has failed, also if that only left some items out; empty if nothing did.
std::optional<Error> failureOf(const QVSyncState &state, const QString &database) {
    const std::optional<QVSyncResult> result = QVSyncResult::of(&state);
    const auto location = state.destination();
    return result && location ? result->failure(database, *location) : std::nullopt;
}

bool isSynchronized(const std::shared_ptr<QVSyncState> &state) {
    const std::optional<QVSyncResult> result = QVSyncResult::of(state.get());
    return state->lastSynced().isValid() && !(result && result->error);
}

bool isPartial(const std::shared_ptr<QVSyncState> &state) {
    const std::optional<QVSyncResult> result = QVSyncResult::of(state.get());
    return result && result->problems > 0;
}

}  // namespace

DatabaseRowStatus::DatabaseRowStatus(QObject *parent)
    : QObject(parent), m_observation([this] { Q_EMIT changed(); }) {}

void DatabaseRowStatus::setDatabase(const std::shared_ptr<QVStandInDatabase> &database) {
    m_database = database;
    m_observation.endRow();
    if (database) {
        for (const char *key : {"name", "canSynchronize", "dateOfLastSynchronization"}) {
            m_observation.observeRow(database.get(), key, [this] { Q_EMIT changed(); });
        }
        m_observation.observeRow(database.get(), "synchronizationStates",
                                 [this] { observeStates(); });
    }
    observeStates();
}

void DatabaseRowStatus::observeStates() {
    m_observation.endStates();
    const auto row = database();
    const QVSyncStates states = row ? row->synchronizationStates() : QVSyncStates();
    for (const auto &state : states) {
        m_observation.observeResult(state.get());
    }
    Q_EMIT changed();
}

QVSyncStates DatabaseRowStatus::tickedStates() const {
    const auto row = database();
    QVSyncStates states = row ? row->synchronizationStates() : QVSyncStates();
    states.removeIf([](const auto &state) { return !state->isEnabled(); });
    return states;
}

QString DatabaseRowStatus::text() const {
    const auto row = database();
    if (!row) {
        return {};
    }
    const QVSyncStates ticked = tickedStates();
    const auto count = std::count_if(ticked.begin(), ticked.end(), &isSynchronized);
    const bool hasDate = row->dateOfLastSynchronization().isValid();
    const QString date =
        relativeDateString(row->dateOfLastSynchronization(), QDateTime::currentDateTime());
    if (count == ticked.size()) {
        if (std::any_of(ticked.begin(), ticked.end(), &isPartial)) {
            return localizedSyncString("Synchronized %1, but some items failed").arg(date);
        }
        return hasDate ? localizedSyncString("Synchronized %1").arg(date)
                       : localizedSyncString("Never synchronized");
    }
    if (count > 0) {
        return localizedSyncCount("Synchronized with %1 of %2 locations · %3", nullptr,
                                  ticked.size())
            .arg(QString::number(count), QString::number(ticked.size()), date);
    }
    if (error()) {
        return hasDate
                   ? localizedSyncString("Synchronization failed · last synchronized %1").arg(date)
                   : localizedSyncString("Synchronization failed");
    }
    return hasDate ? localizedSyncString("Not yet synchronized with the ticked locations")
                   : localizedSyncString("Never synchronized");
}

QString DatabaseRowStatus::syncButtonName() const {
    const auto row = database();
    return row ? QStringLiteral("%1, %2").arg(row->localizedSyncButtonTitle(), row->name())
               : QString();
}

QString DatabaseRowStatus::errorButtonName() const {
    const auto row = database();
    return localizedSyncString("Show what failed with “%1”").arg(row ? row->name() : QString());
}

std::optional<Error> DatabaseRowStatus::error() const {
    QList<Error> errors;
    QVSyncStates failed;
    QList<std::function<void()>> jobs;
    const QVSyncStates ticked = tickedStates();
    for (const auto &state : ticked) {
        if (const auto error = failureOf(*state, database()->name())) {
            errors.append(*error);
            failed.append(state);
            jobs.append(LocationRecovery::lastJobOf(state));
        }
    }
    if (errors.isEmpty()) {
        return {};
    }
    const auto again = [jobs] {
        for (const auto &start : jobs) {
            start();
        }
    };
    const auto location = failed.first()->destination();
    Error error = CombinedErrors::of(errors);
    error.recoveryOptions = failed.size() == 1 && location
                                ? LocationRecovery::options(location, again)
                                : QList{LocationRecovery::tryAgainOption(again)};
    if (std::any_of(failed.begin(), failed.end(), &isPartial)) {
        error.recoveryOptions = LocationRecovery::withLog(error.recoveryOptions);
    }
    return error;
}
