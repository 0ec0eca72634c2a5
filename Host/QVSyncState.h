#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QObject>
#include <memory>

#include "Host/HostExport.h"
#include "Host/QVSyncSchedule.h"
#include "Platform/KeyValue/SharedPointer.h"

class QVSyncLocation;

/// How one database synchronizes with one location. It belongs to the location; the pane refers to
/// it. Main thread. Every setter announces its key, equal or not.
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

    /// "@inbox" for the host's inbox.
    virtual QString databaseUUID() const = 0;
    /// The name of the database as the location last knew it.
    virtual QString databaseName() const = 0;
    /// The very object in the locations controller's list; nullptr once the location is gone.
    virtual std::shared_ptr<QVSyncLocation> destination() const = 0;
    /// Whether the database synchronizes with the location at all.
    virtual bool isEnabled() const = 0;
    virtual void setEnabled(bool enabled) = 0;
    /// nullptr: none.
    virtual QVSyncSchedulePtr schedule() const = 0;
    virtual void setSchedule(const QVSyncSchedulePtr &schedule) = 0;
    virtual bool syncOnOpen() const = 0;
    virtual void setSyncOnOpen(bool syncOnOpen) = 0;
    virtual bool syncOnClose() const = 0;
    virtual void setSyncOnClose(bool syncOnClose) = 0;
    /// When a synchronization last succeeded; an invalid date: never.
    virtual QDateTime lastSynced() const = 0;

Q_SIGNALS:
    void enabledChanged();
    void scheduleChanged();
    void syncOnOpenChanged();
    void syncOnCloseChanged();
    void lastSyncedChanged();
};

/// A set of states in a fixed order, that in which they were added.
using QVSyncStates = QList<std::shared_ptr<QVSyncState>>;
