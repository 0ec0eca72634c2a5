#pragma once

#include "Host/QVSyncResult.h"
#include "Host/QVSyncState.h"

class QVSyncLocation;

/// The state of one database at one location, with the values of its row in the profile. It records
/// whether they differ from the row. Shared ownership; must be used on the main thread.
class EngineSyncState : public QVSyncState {
    Q_OBJECT
    Q_PROPERTY(std::optional<QVSyncResult> lastResult READ lastResult WRITE setLastResult NOTIFY
                   lastResultChanged)
public:
    /// The values of a state that can change. The defaults are those of a state that the user has
    /// just added.
    struct Values {
        bool isEnabled = false;
        bool syncOnOpen = false;
        bool syncOnClose = false;
        /// Null if there is none.
        QVSyncSchedulePtr schedule;
        /// Invalid if the database was never synchronized with the location.
        QDateTime lastSynced;
        /// Empty if no job has ended yet.
        std::optional<QVSyncResult> lastResult = {};
    };

    /// A new state is marked as changed. `destination` is weak because the location owns its
    /// states. `databaseUUID` must not be empty. It announces nothing.
    EngineSyncState(std::weak_ptr<QVSyncLocation> destination, const QString &databaseUUID,
                    const QString &databaseName, const Values &values);

    QString databaseUUID() const override { return m_databaseUUID; }
    /// Returns the name that is saved with the state.
    QString databaseName() const override { return m_databaseName; }
    /// Returns null once the location is destroyed.
    std::shared_ptr<QVSyncLocation> destination() const override;
    bool isEnabled() const override { return m_values.isEnabled; }
    /// Each setter marks the state as changed and announces its key, even if the value is equal.
    /// The location must be saved separately. Disabling a state also cancels its jobs, see
    /// EngineDispatcher, which listens to the announcement.
    void setEnabled(bool enabled) override;
    QVSyncSchedulePtr schedule() const override { return m_values.schedule; }
    void setSchedule(const QVSyncSchedulePtr &schedule) override;
    bool syncOnOpen() const override { return m_values.syncOnOpen; }
    void setSyncOnOpen(bool syncOnOpen) override;
    bool syncOnClose() const override { return m_values.syncOnClose; }
    void setSyncOnClose(bool syncOnClose) override;
    QDateTime lastSynced() const override { return m_values.lastSynced; }
    /// Called by the dispatcher after a successful synchronization: the location now knows the
    /// database by this name. Announces nothing, because the rows show the name of the database
    /// itself.
    void setDatabaseName(const QString &databaseName);
    /// Called by the dispatcher after a successful synchronization, which also saves it. Announces
    /// "lastSynced".
    void setLastSynced(const QDateTime &lastSynced);
    /// The reference is valid until setLastResult() is called.
    const std::optional<QVSyncResult> &lastResult() const { return m_values.lastResult; }
    /// Called by the dispatcher when a job has ended, which also saves it, and with an empty result
    /// by EngineSyncLocation::setURL(). Announces "lastResult".
    void setLastResult(const std::optional<QVSyncResult> &lastResult);

    /// Returns whether a value was set since the state was last saved. Results of jobs count too,
    /// although the dispatcher saves them by itself; they are then written once more.
    bool isChanged() const { return m_isChanged; }
    /// Called when the state was read from the profile or saved. Announces nothing.
    void setChanged(bool isChanged) { m_isChanged = isChanged; }

Q_SIGNALS:
    /// Emitted after the result was set, also if it is equal.
    void lastResultChanged();

private:
    /// Weak, because the location owns its states.
    const std::weak_ptr<QVSyncLocation> m_destination;
    const QString m_databaseUUID;
    QString m_databaseName;
    Values m_values;
    /// Whether the values differ from the row of the profile.
    bool m_isChanged = true;
};
