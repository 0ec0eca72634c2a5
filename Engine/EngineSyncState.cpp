#include "Engine/EngineSyncState.h"

#include "Engine/EngineSyncLocation.h"
#include "Platform/KeyValue/KeyValue.h"

EngineSyncState::EngineSyncState(const std::shared_ptr<EngineSyncLocation> &location,
                                 const QString &databaseUUID, const QString &databaseName)
    : m_location(location), m_databaseUUID(databaseUUID), m_databaseName(databaseName) {}

std::shared_ptr<QVSyncLocation> EngineSyncState::destination() const {
    return m_location.lock();
}

void EngineSyncState::needsSaving() {
    if (const auto location = m_location.lock()) {
        location->setNeedsSaving(true);
    }
}

void EngineSyncState::setEnabled(bool enabled) {
    m_isEnabled = enabled;
    needsSaving();
    KeyValue::announce<&EngineSyncState::enabledChanged>(this);
}

void EngineSyncState::setSchedule(const QVSyncSchedulePtr &schedule) {
    m_schedule = schedule;
    needsSaving();
    KeyValue::announce<&EngineSyncState::scheduleChanged>(this);
}

void EngineSyncState::setSyncOnOpen(bool syncOnOpen) {
    m_syncOnOpen = syncOnOpen;
    needsSaving();
    KeyValue::announce<&EngineSyncState::syncOnOpenChanged>(this);
}

void EngineSyncState::setSyncOnClose(bool syncOnClose) {
    m_syncOnClose = syncOnClose;
    needsSaving();
    KeyValue::announce<&EngineSyncState::syncOnCloseChanged>(this);
}

void EngineSyncState::setLastSynced(const QDateTime &lastSynced) {
    m_lastSynced = lastSynced;
    needsSaving();
    KeyValue::announce<&EngineSyncState::lastSyncedChanged>(this);
}
