#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QSet>
#include <memory>
#include <unordered_set>

#include "Host/QVSyncLocation.h"
#include "Host/QVSyncState.h"
#include "Platform/KeyValue/KeyValue.h"

struct Notification;

/// One row of the database list: a database together with its synchronization states.
///
/// Shares ownership of its states and locations with the engine. It observes "lastSynced" and
/// "enabled" of its states, and renames of its database, until it is destroyed. Must be used on the
/// main thread. Setters announce their keys even if the value does not change.
class QVStandInDatabase : public QObject {
    Q_OBJECT
    /// The UUID of the database, InboxUUID for the inbox.
    Q_PROPERTY(QString UUID READ UUID WRITE setUUID NOTIFY UUIDChanged)
    /// The name that is shown; it follows that of a database that is renamed.
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    /// The title of the button that synchronizes this database now.
    Q_PROPERTY(QString localizedSyncButtonTitle READ localizedSyncButtonTitle CONSTANT)
    /// One state for each location with which the database is, or has been, synchronized, in the
    /// order in which they were added. No duplicates.
    Q_PROPERTY(QVSyncStates synchronizationStates READ synchronizationStates NOTIFY
                   synchronizationStatesChanged)
    /// Whether at least one state is enabled. Updated when a state is added or its "enabled" is
    /// announced, and by updateCanSynchronize().
    Q_PROPERTY(bool canSynchronize READ canSynchronize WRITE setCanSynchronize NOTIFY
                   canSynchronizeChanged)
    /// The latest of the states' dates; invalid if the database was never synchronized.
    Q_PROPERTY(QDateTime dateOfLastSynchronization READ dateOfLastSynchronization WRITE
                   setDateOfLastSynchronization NOTIFY dateOfLastSynchronizationChanged)
    /// The next three keys have the value of the first state; null or false if there are no states.
    /// Setting one sets it on every state, and only announces if there are none.
    Q_PROPERTY(QVSyncSchedulePtr schedule READ schedule WRITE setSchedule NOTIFY scheduleChanged)
    Q_PROPERTY(bool syncOnOpen READ syncOnOpen WRITE setSyncOnOpen NOTIFY syncOnOpenChanged)
    Q_PROPERTY(bool syncOnClose READ syncOnClose WRITE setSyncOnClose NOTIFY syncOnCloseChanged)
    /// Whether the database exists on this computer.
    Q_PROPERTY(bool existsLocally READ existsLocally)
    /// The locations at which the database exists.
    Q_PROPERTY(std::unordered_set<std::shared_ptr<QVSyncLocation>> containingLocations READ
                   containingLocations NOTIFY containingLocationsChanged)
public:
    /// Makes a row without a UUID, name or states, and starts to observe renames. Belongs to no
    /// list; the pane fills it.
    QVStandInDatabase();
    ~QVStandInDatabase() override;

    QString UUID() const { return m_UUID; }
    /// Must be set before states are added; it decides which renames concern the row. Not checked.
    void setUUID(const QString &UUID);
    QString name() const { return m_name; }
    /// Sets the name that is shown and given to new states; the database itself is not renamed.
    void setName(const QString &name);
    QString localizedSyncButtonTitle() const;
    /// No entry is null.
    QVSyncStates synchronizationStates() const { return m_states; }
    bool canSynchronize() const { return m_canSynchronize; }
    /// The setters of the aggregates are for this class: a value set by others is replaced at the
    /// next update.
    void setCanSynchronize(bool canSynchronize);
    QDateTime dateOfLastSynchronization() const { return m_dateOfLastSynchronization; }
    void setDateOfLastSynchronization(const QDateTime &date);
    QVSyncSchedulePtr schedule() const;
    /// The setters of the schedule and the triggers change every state. They do not save.
    void setSchedule(const QVSyncSchedulePtr &schedule);
    bool syncOnOpen() const;
    void setSyncOnOpen(bool syncOnOpen);
    bool syncOnClose() const;
    void setSyncOnClose(bool syncOnClose);
    /// Returns whether the location of the host's local store is among the containing locations.
    /// Not announced.
    bool existsLocally() const;
    /// Valid until the set changes.
    const std::unordered_set<std::shared_ptr<QVSyncLocation>> &containingLocations() const {
        return m_containingLocations;
    }

    /// Adds `state`, which must not be null, and observes it. If the row has a schedule, the state
    /// receives it. Both aggregates are up to date when this returns, unless an observer has
    /// changed the row meanwhile. A state that is already in the row is observed once more, but not
    /// added. Announces the date, `canSynchronize` and then "synchronizationStates", in any case.
    /// O(number of the row's states).
    void addSynchronizationStatesObject(const std::shared_ptr<QVSyncState> &state);
    /// Adds several states, and updates and announces once when all are added. While verbose
    /// logging is on, adds one after the other. Has no effect without states.
    void addSynchronizationStates(const QVSyncStates &states);
    /// Removes `state` and stops observing it. Updates the date but not `canSynchronize`. A state
    /// that is not in the row is ignored; null is too. O(n). The state itself does not change.
    /// Announces the date and then "synchronizationStates", also if nothing was removed.
    void removeSynchronizationStatesObject(const std::shared_ptr<QVSyncState> &state);
    /// Removes all states without updating the aggregates or announcing. The removed states remain
    /// observed.
    void removeAllSynchronizationStates();
    /// Add and remove a location, announcing "containingLocations" in any case. `location` should
    /// not be null. Ownership is shared while it is in the set.
    void addContainingLocationsObject(const std::shared_ptr<QVSyncLocation> &location);
    void removeContainingLocationsObject(const std::shared_ptr<QVSyncLocation> &location);
    /// Returns whether `location` is in containingLocations(). O(1).
    bool existsInLocation(const std::shared_ptr<QVSyncLocation> &location) const;

    /// Recompute an aggregate from all states and announce it. O(n).
    void updateCanSynchronize();
    void updateDateOfLastSynchronization();

    /// Returns "<QVStandInDatabase: 0xADDRESS UUID>" for the log, with the address truncated to 32
    /// bits.
    QString description() const;

    /// Dependencies of the derived keys, read by KeyValue.
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingCanSynchronize();
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingSchedule();
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingSyncOnOpen();
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingSyncOnClose();

Q_SIGNALS:
    /// Emitted each time the value is set or one that it depends on is announced, even if it stays
    /// equal.
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
    /// Returns the first state; null if there is none.
    std::shared_ptr<QVSyncState> anyState() const;
    /// Adds and observes `state` without updating or announcing anything.
    void insertState(const std::shared_ptr<QVSyncState> &state);
    /// Observes `state`, once more if it is observed already. With plain connections, because there
    /// are many states.
    void observe(const QVSyncState &state);
    /// Updates both aggregates and announces the states.
    void statesWereAdded(bool isVerbose);
    void updateCanSynchronize(bool isVerbose);
    /// Updates the name if the notification is about this database.
    void didReceiveDatabaseRenamedNotification(const Notification &notification);

    QString m_UUID;
    QString m_name;
    QVSyncStates m_states;
    /// The states in `m_states`, for lookup in O(1).
    QSet<const QVSyncState *> m_members;
    std::unordered_set<std::shared_ptr<QVSyncLocation>> m_containingLocations;
    QDateTime m_dateOfLastSynchronization;
    bool m_canSynchronize = false;
    /// How often states are observed beyond once for each member: those that were added again, and
    /// those that removing all states left observed.
    QHash<const QVSyncState *, int> m_furtherObservations;
};
