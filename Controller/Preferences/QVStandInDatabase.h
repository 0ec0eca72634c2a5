#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QObject>
#include <QtCore/QSet>
#include <memory>
#include <unordered_map>
#include <unordered_set>

#include "Host/QVSyncLocation.h"
#include "Host/QVSyncState.h"
#include "Platform/KeyValue/KeyValue.h"

struct Notification;

/// One row of the database list: a database with all its synchronization states, seen as one.
///
/// Holds its states and locations by shared pointer; they are the engine's. It observes
/// "lastSynced" and "enabled" of its states and follows renames of its database until it is
/// destroyed. Main thread.
class QVStandInDatabase : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString UUID READ UUID WRITE setUUID NOTIFY UUIDChanged)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    /// The title of the button that synchronizes this database now.
    Q_PROPERTY(QString localizedSyncButtonTitle READ localizedSyncButtonTitle CONSTANT)
    /// One for each location at which the database is, or has been, synchronized.
    Q_PROPERTY(QVSyncStates synchronizationStates READ synchronizationStates NOTIFY
                   synchronizationStatesChanged)
    /// Whether at least one state is enabled, as of the last `updateCanSynchronize`.
    Q_PROPERTY(bool canSynchronize READ canSynchronize WRITE setCanSynchronize NOTIFY
                   canSynchronizeChanged)
    /// The latest of the states' dates; invalid: never.
    Q_PROPERTY(QDateTime dateOfLastSynchronization READ dateOfLastSynchronization WRITE
                   setDateOfLastSynchronization NOTIFY dateOfLastSynchronizationChanged)
    /// These three are the first state's, and none, false and false without states. Setting one
    /// sets it on every state, and does nothing without states.
    Q_PROPERTY(QVSyncSchedulePtr schedule READ schedule WRITE setSchedule NOTIFY scheduleChanged)
    Q_PROPERTY(bool syncOnOpen READ syncOnOpen WRITE setSyncOnOpen NOTIFY syncOnOpenChanged)
    Q_PROPERTY(bool syncOnClose READ syncOnClose WRITE setSyncOnClose NOTIFY syncOnCloseChanged)
    Q_PROPERTY(bool existsLocally READ existsLocally)
    /// The locations at which the database exists.
    Q_PROPERTY(std::unordered_set<std::shared_ptr<QVSyncLocation>> containingLocations READ
                   containingLocations NOTIFY containingLocationsChanged)
public:
    QVStandInDatabase();
    ~QVStandInDatabase() override;

    QString UUID() const { return m_UUID; }
    void setUUID(const QString &UUID);
    QString name() const { return m_name; }
    void setName(const QString &name);
    QString localizedSyncButtonTitle() const;
    QVSyncStates synchronizationStates() const { return m_states; }
    bool canSynchronize() const { return m_canSynchronize; }
    void setCanSynchronize(bool canSynchronize);
    QDateTime dateOfLastSynchronization() const { return m_dateOfLastSynchronization; }
    void setDateOfLastSynchronization(const QDateTime &date);
    QVSyncSchedulePtr schedule() const;
    void setSchedule(const QVSyncSchedulePtr &schedule);
    bool syncOnOpen() const;
    void setSyncOnOpen(bool syncOnOpen);
    bool syncOnClose() const;
    void setSyncOnClose(bool syncOnClose);
    bool existsLocally() const;
    const std::unordered_set<std::shared_ptr<QVSyncLocation>> &containingLocations() const {
        return m_containingLocations;
    }

    /// A state that comes to a row with a schedule gets that schedule. Both aggregates are up to
    /// date when this returns.
    void addSynchronizationStatesObject(const std::shared_ptr<QVSyncState> &state);
    /// Updates the date, but deliberately not `canSynchronize`. Harmless for a state that is not
    /// here.
    void removeSynchronizationStatesObject(const std::shared_ptr<QVSyncState> &state);
    /// Updates nothing, and goes on observing the states that it drops.
    void removeAllSynchronizationStates();
    void addContainingLocationsObject(const std::shared_ptr<QVSyncLocation> &location);
    void removeContainingLocationsObject(const std::shared_ptr<QVSyncLocation> &location);
    bool existsInLocation(const std::shared_ptr<QVSyncLocation> &location) const;

    void updateCanSynchronize();
    void updateDateOfLastSynchronization();

    /// "<QVStandInDatabase: 0xADDRESS UUID>", the address cut to 32 bits.
    QString description() const;

    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingCanSynchronize();
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingSchedule();
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingSyncOnOpen();
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingSyncOnClose();

Q_SIGNALS:
    void UUIDChanged();
    void nameChanged();
    void synchronizationStatesChanged();
    void containingLocationsChanged();
    void canSynchronizeChanged();
    void dateOfLastSynchronizationChanged();
    void scheduleChanged();
    void syncOnOpenChanged();
    void syncOnCloseChanged();

private:
    struct StateObservation {
        KeyValue::Observation lastSynced;
        KeyValue::Observation enabled;
    };

    std::shared_ptr<QVSyncState> anyState() const;
    void includeInAggregates(const QVSyncState &state);
    void didReceiveDatabaseRenamedNotification(const Notification &notification);

    QString m_UUID;
    QString m_name;
    QVSyncStates m_states;
    QSet<const QVSyncState *> m_members;
    std::unordered_set<std::shared_ptr<QVSyncLocation>> m_containingLocations;
    QDateTime m_dateOfLastSynchronization;
    bool m_canSynchronize = false;
    /// How often the set of states has changed.
    quint64 m_changeCount = 0;
    /// Whether both aggregates are what a recomputation would give.
    bool m_aggregatesAreCurrent = true;
    /// Apart from the states: dropping all of them keeps their observations.
    std::unordered_multimap<const QVSyncState *, StateObservation> m_observations;
};
