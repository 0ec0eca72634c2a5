#include "Controller/Preferences/ErrorExpiry.h"

#include "Host/QVSyncResult.h"

ErrorExpiry::ErrorExpiry(QVSynchronizationSelection *selection)
    : QObject(selection),
      m_selection(selection),
      m_URL(KeyValue::observe(selection, "location.URL", [this] { clearError(); })),
      m_selected(KeyValue::observe(selection, "selected", [this] { observeState(); })) {
    observeState();
}

void ErrorExpiry::observeState() {
    const auto database = m_selection->database();
    const auto state =
        database ? m_selection->location()->stateForDatabaseWithUUID(database->UUID()) : nullptr;
    m_lastSynced.stop();
    m_result.stop();
    if (!state) {
        return;
    }
    m_lastSynced = KeyValue::observe(state.get(), "lastSynced", [this] { clearError(); });
    if (QVSyncResult::isOfferedBy(state.get())) {
        // What failed before the job may have another cause.
        m_result = KeyValue::observe(state.get(), QVSyncResult::Key, [this] { clearError(); });
    }
}

void ErrorExpiry::clearError() const {
    if (m_selection->error()) {
        m_selection->setError({});
    }
}
