#pragma once

#include "Host/QVSyncState.h"

class EngineSyncLocation;

/// Keeps what a state's row of the profile holds, and whether the row is still the same.
class EngineSyncState : public QVSyncState {
    Q_OBJECT
public:
    struct Values {
        bool isEnabled = false;
        bool syncOnOpen = false;
        bool syncOnClose = false;
        QVSyncSchedulePtr schedule;
        QDateTime lastSynced;
    };

    EngineSyncState(std::weak_ptr<EngineSyncLocation> destination, const QString &databaseUUID,
                    const QString &databaseName, const Values &values);

    QString databaseUUID() const override { return m_databaseUUID; }
    QString databaseName() const override { return m_databaseName; }
    std::shared_ptr<QVSyncLocation> destination() const override;
    bool isEnabled() const override { return m_values.isEnabled; }
    void setEnabled(bool enabled) override;
    QVSyncSchedulePtr schedule() const override { return m_values.schedule; }
    void setSchedule(const QVSyncSchedulePtr &schedule) override;
    bool syncOnOpen() const override { return m_values.syncOnOpen; }
    void setSyncOnOpen(bool syncOnOpen) override;
    bool syncOnClose() const override { return m_values.syncOnClose; }
    void setSyncOnClose(bool syncOnClose) override;
    QDateTime lastSynced() const override { return m_values.lastSynced; }
    /// A synchronization has succeeded; the engine's only.
    void setLastSynced(const QDateTime &lastSynced);

    /// Whether the profile does not hold these values yet.
    bool isChanged() const { return m_isChanged; }
    void setChanged(bool isChanged) { m_isChanged = isChanged; }

private:
    const std::weak_ptr<EngineSyncLocation> m_destination;
    const QString m_databaseUUID;
    const QString m_databaseName;
    Values m_values;
    bool m_isChanged = true;
};
