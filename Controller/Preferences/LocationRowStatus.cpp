#include "Controller/Preferences/LocationRowStatus.h"

#include <utility>

#include "Controller/Preferences/LocationRecovery.h"
#include "Host/QVSyncLocationsController.h"
#include "Host/QVSyncPlugin.h"
#include "Host/QVSyncResult.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/RelativeDate.h"

namespace {

/// Returns the result of the last job as the end of a sentence.
QString resultText(const QVSyncState *state) {
    const auto inWords = [](const QDateTime &date) {
        return relativeDateString(date, QDateTime::currentDateTime());
    };
    const std::optional<QVSyncResult> result = state ? QVSyncResult::of(state) : std::nullopt;
    if (result && result->error && state->isEnabled()) {
        const QString date = inWords(result->date);
        return result->summary.isEmpty()
                   ? localizedSyncString("failed %1").arg(date)
                   : localizedSyncString("failed %1: %2").arg(date, result->summary);
    }
    if (!state || !state->lastSynced().isValid()) {
        return localizedSyncString("never synchronized");
    }
    const QString date = inWords(state->lastSynced());
    if (!result || result->problems == 0) {
        return localizedSyncString("synchronized %1").arg(date);
    }
    return localizedSyncCount("synchronized %1, but %2 items failed",
                              "synchronized %1, but %2 item failed", result->problems)
        .arg(date)
        .arg(result->problems);
}

}  // namespace

LocationRowStatus::LocationRowStatus(QObject *parent)
    : QObject(parent), m_observation([this] { Q_EMIT statusChanged(); }) {
    // The description of the tick contains the title.
    connect(this, &LocationRowStatus::locationChanged, this, &LocationRowStatus::statusChanged);
}

void LocationRowStatus::setSelection(const std::shared_ptr<QVSynchronizationSelection> &selection) {
    m_selection = selection;
    m_observation.endRow();
    if (selection) {
        if (!std::exchange(m_followsSavings, true)) {
            QVSyncPlugin::plugin()->locationsController()->connectSaved(this,
                                                                        SIGNAL(locationChanged()));
        }
        m_observation.observeRow(selection.get(), "location.URL",
                                 [this] { Q_EMIT locationChanged(); });
        m_observation.observeRow(selection.get(), "selected", [this] { observeState(); });
        m_observation.observeRow(selection.get(), "error", [this] { Q_EMIT statusChanged(); });
    }
    Q_EMIT locationChanged();
    observeState();
}

std::shared_ptr<QVSyncState> LocationRowStatus::state() const {
    const auto row = selection();
    const auto database = row ? row->database() : nullptr;
    return database ? row->location()->stateForDatabaseWithUUID(database->UUID()) : nullptr;
}

void LocationRowStatus::observeState() {
    m_observation.endStates();
    if (const auto observed = state()) {
        m_observation.observeState(observed.get(), "enabled", [this] { Q_EMIT statusChanged(); });
        m_observation.observeState(observed.get(), "lastSynced",
                                   [this] { Q_EMIT statusChanged(); });
        m_observation.observeResult(observed.get());
    }
    Q_EMIT statusChanged();
}

QString LocationRowStatus::title() const {
    const auto row = selection();
    return row ? row->title() : QString();
}

QPixmap LocationRowStatus::icon() const {
    const auto row = selection();
    return row ? row->icon() : QPixmap();
}

QString LocationRowStatus::summary() const {
    const auto row = selection();
    if (!row || !row->database()) {
        return row ? row->locationType() : QString();
    }
    return QStringLiteral("%1 · %2").arg(row->locationType(), resultText(state().get()));
}

QString LocationRowStatus::tickDescription() const {
    const auto row = selection();
    return row && row->database() ? localizedSyncString("Synchronizes “%1” with “%2”")
                                        .arg(row->database()->name(), row->title())
                                  : QString();
}

QString LocationRowStatus::errorButtonName() const {
    return localizedSyncString("Show what failed with “%1”").arg(title());
}

std::optional<Error> LocationRowStatus::error() const {
    const auto row = selection();
    if (row && row->error()) {
        return row->error();
    }
    const auto failed = state();
    const std::optional<QVSyncResult> result =
        failed && failed->isEnabled() ? QVSyncResult::of(failed.get()) : std::nullopt;
    std::optional<Error> error =
        result ? result->failure(row->database()->name(), *row->location()) : std::nullopt;
    if (error) {
        error->recoveryOptions =
            LocationRecovery::options(row->location(), LocationRecovery::lastJobOf(failed));
        if (!result->error) {
            error->recoveryOptions = LocationRecovery::withLog(error->recoveryOptions);
        }
    }
    return error;
}
