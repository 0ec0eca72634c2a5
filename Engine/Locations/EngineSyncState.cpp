#include "Engine/Locations/EngineSyncState.h"

#include "Host/QVSyncLocation.h"
#include "Platform/KeyValue/KeyValue.h"

EngineSyncState::EngineSyncState(std::weak_ptr<QVSyncLocation> destination,
                                 const QString &databaseUUID, const QString &databaseName,
                                 const Values &values)
    : m_destination(std::move(destination)),
      m_databaseUUID(databaseUUID),
      m_databaseName(databaseName),
      m_values(values) {}

std::shared_ptr<QVSyncLocation> EngineSyncState::destination() const {
    return m_destination.lock();
}

void EngineSyncState::setEnabled(bool enabled) {
    m_values.isEnabled = enabled;
    m_isChanged = true;
    KeyValue::announce<&QVSyncState::enabledChanged>(this);
}

void EngineSyncState::setSchedule(const QVSyncSchedulePtr &schedule) {
    m_values.schedule = schedule;
    m_isChanged = true;
    KeyValue::announce<&QVSyncState::scheduleChanged>(this);
}

void EngineSyncState::setSyncOnOpen(bool syncOnOpen) {
    m_values.syncOnOpen = syncOnOpen;
    m_isChanged = true;
    KeyValue::announce<&QVSyncState::syncOnOpenChanged>(this);
}

void EngineSyncState::setSyncOnClose(bool syncOnClose) {
    m_values.syncOnClose = syncOnClose;
    m_isChanged = true;
    KeyValue::announce<&QVSyncState::syncOnCloseChanged>(this);
}

void EngineSyncState::setDatabaseName(const QString &databaseName) {
    m_databaseName = databaseName;
    m_isChanged = true;
}

void EngineSyncState::setLastSynced(const QDateTime &lastSynced) {
    m_values.lastSynced = lastSynced;
    m_isChanged = true;
    KeyValue::announce<&QVSyncState::lastSyncedChanged>(this);
}

void EngineSyncState::setLastResult(const std::optional<QVSyncResult> &lastResult) {
    m_values.lastResult = lastResult;
    m_isChanged = true;
    KeyValue::announce<&EngineSyncState::lastResultChanged>(this);
}
