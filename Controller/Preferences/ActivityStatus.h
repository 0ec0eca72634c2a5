#pragma once

#include <QtCore/QPointer>

#include "Host/QVSyncDispatcher.h"
#include "Host/QVSyncProgress.h"
#include "Platform/KeyValue/KeyValue.h"

/// What the status line of the pane shows of the dispatcher. An object of the pane's form. Must be
/// used on the main thread.
class ActivityStatus : public QObject {
    Q_OBJECT
    /// Not owned; may be null.
    Q_PROPERTY(QVSyncDispatcher *dispatcher READ dispatcher WRITE setDispatcher)
    /// What the dispatcher is doing and, if the host offers it, how far it is: "Synchronizing
    /// “Projects” with “Home”… 120 of 400". Empty while the dispatcher is idle.
    Q_PROPERTY(QString text READ text NOTIFY changed)
    /// Whether a job is running.
    Q_PROPERTY(bool running READ isRunning NOTIFY changed)
    /// Whether a job is running and the host offers to stop it.
    Q_PROPERTY(bool stoppable READ isStoppable NOTIFY changed)
    /// The progress in percent of `maximum`, which is 0 if the extent is not known.
    Q_PROPERTY(int value READ value NOTIFY changed)
    Q_PROPERTY(int maximum READ maximum NOTIFY changed)
public:
    using QObject::QObject;

    QVSyncDispatcher *dispatcher() const { return m_dispatcher; }
    void setDispatcher(QVSyncDispatcher *dispatcher);
    QString text() const;
    bool isRunning() const;
    bool isStoppable() const;
    int value() const;
    int maximum() const;

    /// Cancels all jobs. Must be called only while this is offered.
    Q_SLOT void stop();

Q_SIGNALS:
    void changed();

private:
    /// Returns the progress; that of an idle dispatcher if the host offers none.
    QVSyncProgress progress() const;

    QPointer<QVSyncDispatcher> m_dispatcher;
    KeyValue::Observation m_progressObservation;
    KeyValue::Observation m_activityObservation;
};
