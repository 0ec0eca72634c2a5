#pragma once

#include <memory>

#include "Host/QVSyncState.h"

class EngineSyncLocation;

/// A state as the engine keeps it. Every change makes its location one that needs saving.
class EngineSyncState : public QVSyncState {
    Q_OBJECT
public:
    EngineSyncState(const std::shared_ptr<EngineSyncLocation> &location,
                    const QString &databaseUUID, const QString &databaseName);

    QString databaseUUID() const override { return m_databaseUUID; }
    QString databaseName() const override { return m_databaseName; }
    std::shared_ptr<QVSyncLocation> destination() const override;
    bool isEnabled() const override { return m_isEnabled; }
    void setEnabled(bool enabled) override;
    QVSyncSchedulePtr schedule() const override { return m_schedule; }
    void setSchedule(const QVSyncSchedulePtr &schedule) override;
    bool syncOnOpen() const override { return m_syncOnOpen; }
    void setSyncOnOpen(bool syncOnOpen) override;
    bool syncOnClose() const override { return m_syncOnClose; }
    void setSyncOnClose(bool syncOnClose) override;
    QDateTime lastSynced() const override { return m_lastSynced; }
    void setLastSynced(const QDateTime &lastSynced);

private:
    void needsSaving();

    const std::weak_ptr<EngineSyncLocation> m_location;
    const QString m_databaseUUID;
    const QString m_databaseName;
    bool m_isEnabled = false;
    QVSyncSchedulePtr m_schedule;
    bool m_syncOnOpen = false;
    bool m_syncOnClose = false;
    QDateTime m_lastSynced;
};
