#include "Controller/Preferences/LocationRowStatus.h"

#include "Controller/Preferences/LocationRecovery.h"
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
    return result && result->problems > 0
               ? localizedSyncString("synchronized %1, items that failed: %2")
                     .arg(date)
                     .arg(result->problems)
               : localizedSyncString("synchronized %1").arg(date);
}

/// Starts the job of `state` again, unless that is null.
void runAgain(const std::shared_ptr<QVSyncState> &state, bool isCleanUp) {
    QVSyncDispatcher *dispatcher = QVSyncPlugin::plugin()->dispatcher();
    if (state && isCleanUp) {
        dispatcher->cleanRemoteStoreWithSynchronizationState(state, [] {});
    } else if (state) {
        dispatcher->performSynchronizationsWithSynchronizationStates({state});
    }
}

}  // namespace

LocationRowStatus::LocationRowStatus(QObject *parent) : QObject(parent) {
    connect(m_dayChange.get(), &DayChange::occurred, this, &LocationRowStatus::statusChanged);
}

void LocationRowStatus::setSelection(const std::shared_ptr<QVSynchronizationSelection> &selection) {
    m_selection = selection;
    m_rowObservations.clear();
    if (selection) {
        const auto observe = [&](const char *keyPath, const std::function<void()> &handler) {
            m_rowObservations.push_back(KeyValue::observe(selection.get(), keyPath, handler));
        };
        observe("location.URL", [this] {
            clearError();
            Q_EMIT locationChanged();
            Q_EMIT statusChanged();
        });
        observe("selected", [this] { observeState(); });
        observe("error", [this] { Q_EMIT statusChanged(); });
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
    m_stateObservations.clear();
    if (const auto observed = state()) {
        const auto announce = [this] { Q_EMIT statusChanged(); };
        m_stateObservations.push_back(KeyValue::observe(observed.get(), "enabled", announce));
        m_stateObservations.push_back(KeyValue::observe(observed.get(), "lastSynced", [this] {
            clearError();
            Q_EMIT statusChanged();
        }));
        if (QVSyncResult::isOfferedBy(observed.get())) {
            m_stateObservations.push_back(
                KeyValue::observe(observed.get(), QVSyncResult::Key, announce));
        }
    }
    Q_EMIT statusChanged();
}

void LocationRowStatus::clearError() {
    if (const auto row = selection(); row && row->error()) {
        row->setError({});
    }
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

std::optional<Error> LocationRowStatus::error() const {
    const auto row = selection();
    if (row && row->error()) {
        return row->error();
    }
    const auto failed = state();
    const std::optional<QVSyncResult> result =
        failed && failed->isEnabled() ? QVSyncResult::of(failed.get()) : std::nullopt;
    if (!result || !result->error) {
        return {};
    }
    Error error = *result->error;
    error.recoveryOptions = LocationRecovery::options(
        row->location(), [state = std::weak_ptr(failed), isCleanUp = result->isCleanUp] {
            runAgain(state.lock(), isCleanUp);
        });
    return error;
}
