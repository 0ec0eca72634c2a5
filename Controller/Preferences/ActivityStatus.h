#pragma once

#include <QtCore/QPointer>

#include "Host/QVSyncDispatcher.h"
#include "Host/QVSyncProgress.h"
#include "Platform/KeyValue/KeyValue.h"

/// What the status line of the pane shows of the dispatcher. An object of the pane's form, which
/// creates it by its class name (see Nib) and binds its keys. Must be used on the main thread.
///
/// It works with every host: what QVSyncProgress adds to a dispatcher is looked up by name and left
/// out if the host does not offer it.
class ActivityStatus : public QObject {
    Q_OBJECT
    /// Not owned; may be null, and becomes null when the dispatcher is destroyed.
    Q_PROPERTY(QVSyncDispatcher *dispatcher READ dispatcher WRITE setDispatcher)
    /// What the dispatcher is doing and, if the host offers it, how far it is: "Synchronizing
    /// “Projects” with “Home”… 120 of 400". While the dispatcher is idle, what it has done last, if
    /// that is to be shown; otherwise the SynchronizationTextKey of the application, if it has one.
    Q_PROPERTY(QString text READ text NOTIFY changed)
    /// Whether a job is running.
    Q_PROPERTY(bool running READ isRunning NOTIFY changed)
    /// Whether a job is running and the host offers to stop it.
    Q_PROPERTY(bool stoppable READ isStoppable NOTIFY changed)
    /// The progress in percent, from 0 to 100. 0 if the extent is not known.
    Q_PROPERTY(int value READ value NOTIFY changed)
    /// 100, or 0 if the extent is not known, for which QProgressBar shows a busy indicator.
    Q_PROPERTY(int maximum READ maximum NOTIFY changed)
public:
    /// Without a dispatcher until the form sets it. `parent` may be null.
    explicit ActivityStatus(QObject *parent = nullptr);

    /// Null if none was set or it is destroyed.
    QVSyncDispatcher *dispatcher() const { return m_dispatcher; }
    /// Observes `dispatcher` instead of the former one and emits changed(). Null is allowed; the
    /// dispatcher is not owned.
    void setDispatcher(QVSyncDispatcher *dispatcher);
    /// Each call reads the dispatcher, so it is up to date before changed() is emitted.
    QString text() const;
    bool isRunning() const;
    bool isStoppable() const;
    int value() const;
    int maximum() const;

    /// Cancels all jobs, see QVSyncProgress. Must be called only while `stoppable` is true. Returns
    /// at once; changed() is emitted when the dispatcher announces that it is idle.
    Q_SLOT void stop();

Q_SIGNALS:
    /// Emitted for all keys together, each time the dispatcher announces its activity or its
    /// progress, which it limits to about ten times per second, and when the dispatcher is set.
    void changed();

private:
    /// Returns the progress; that of an idle dispatcher if the host offers none.
    QVSyncProgress progress() const;

    QPointer<QVSyncDispatcher> m_dispatcher;
    KeyValue::Observation m_progressObservation;
    KeyValue::Observation m_activityObservation;
    KeyValue::Observation m_idleTextObservation;
};
