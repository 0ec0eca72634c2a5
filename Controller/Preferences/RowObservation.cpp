#include "Controller/Preferences/RowObservation.h"

#include "Host/QVSyncResult.h"
#include "Host/QVSyncState.h"

RowObservation::RowObservation(Handler changed) : m_changed(std::move(changed)) {
    QObject::connect(m_dayChange.get(), &DayChange::occurred, &m_context, m_changed);
}

void RowObservation::observeRow(QObject *row, const char *keyPath, const Handler &handler) {
    m_row.push_back(KeyValue::observe(row, keyPath, handler));
}

void RowObservation::observeState(QVSyncState *state, const char *key, const Handler &handler) {
    m_states.push_back(KeyValue::observe(state, key, handler));
}

void RowObservation::observeResult(QVSyncState *state) {
    if (QVSyncResult::isOfferedBy(state)) {
        observeState(state, QVSyncResult::Key, m_changed);
    }
}
