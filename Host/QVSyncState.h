#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QObject>
#include <memory>

#include "Host/HostExport.h"
#include "Host/QVSyncSchedule.h"
#include "Platform/KeyValue/SharedPointer.h"

class QVSyncLocation;

/// How one database synchronizes with one location. The location shares ownership of its states and
/// removes one only after its database was deleted from this computer. Must be used on the main
/// thread. Every setter announces its key, also if the value stays the same, and takes effect at
/// once; values are on disk after QVSyncLocationsController::save().
class HOST_EXPORT QVSyncState : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString databaseUUID READ databaseUUID CONSTANT)
    Q_PROPERTY(QString databaseName READ databaseName)
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled NOTIFY enabledChanged)
    Q_PROPERTY(QVSyncSchedulePtr schedule READ schedule WRITE setSchedule NOTIFY scheduleChanged)
    Q_PROPERTY(bool syncOnOpen READ syncOnOpen WRITE setSyncOnOpen NOTIFY syncOnOpenChanged)
    Q_PROPERTY(bool syncOnClose READ syncOnClose WRITE setSyncOnClose NOTIFY syncOnCloseChanged)
    Q_PROPERTY(QDateTime lastSynced READ lastSynced NOTIFY lastSyncedChanged)
public:
    ~QVSyncState() override;

    /// Returns the UUID of the database, "@inbox" for the host's inbox. Constant; never empty.
    virtual QString databaseUUID() const = 0;
    /// Returns the name of the database as the location last knew it.
    virtual QString databaseName() const = 0;
    /// Returns the location that holds this state, the same object as in the locations controller's
    /// list; nullptr if the location has been destroyed.
    virtual std::shared_ptr<QVSyncLocation> destination() const = 0;
    /// Returns whether the database is kept in sync with the location automatically. A disabled
    /// state keeps its schedule and the date of its last synchronization.
    virtual bool isEnabled() const = 0;
    /// Enabling starts no synchronization. Disabling removes nothing from the location; the host
    /// may cancel the jobs of the state.
    virtual void setEnabled(bool enabled) = 0;
    /// Returns the schedule, or null if there is none.
    virtual QVSyncSchedulePtr schedule() const = 0;
    /// Sets the schedule; null removes it.
    virtual void setSchedule(const QVSyncSchedulePtr &schedule) = 0;
    /// Returns whether the database is synchronized when it is opened.
    virtual bool syncOnOpen() const = 0;
    /// Has no effect on a database that is open already.
    virtual void setSyncOnOpen(bool syncOnOpen) = 0;
    /// Returns whether the database is synchronized when it is closed.
    virtual bool syncOnClose() const = 0;
    /// Has no effect on a database that is closed already.
    virtual void setSyncOnClose(bool syncOnClose) = 0;
    /// Returns the date of the last successful synchronization, or an invalid date if there was
    /// none. The host updates it on the main thread and saves it by itself.
    virtual QDateTime lastSynced() const = 0;

Q_SIGNALS:
    /// Emitted within setEnabled(), when the value is in effect.
    void enabledChanged();
    /// Emitted within setSchedule(), when the schedule is in effect.
    void scheduleChanged();
    /// Emitted within setSyncOnOpen(), when the value is in effect.
    void syncOnOpenChanged();
    /// Emitted within setSyncOnClose(), when the value is in effect.
    void syncOnCloseChanged();
    /// Emitted on the main thread after the host has changed lastSynced().
    void lastSyncedChanged();
};

/// A set of states, in the order in which they were added.
using QVSyncStates = QList<std::shared_ptr<QVSyncState>>;
