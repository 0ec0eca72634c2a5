#pragma once

#include <QtCore/QTimer>

#include "Application/SynchronizationSummary.h"
#include "Host/QVSyncProgress.h"
#include "Platform/Foundation/DayChange.h"
#include "Platform/KeyValue/KeyValue.h"

class NoteLibrary;
class QVSyncDispatcher;

/// What the synchronization of the open profile does and how it stands, for the windows. Must be
/// used on the main thread.
class SynchronizationMonitor : public QObject {
    Q_OBJECT
public:
    /// `library` is not owned and must outlive this object, as must QVSyncPlugin::plugin().
    explicit SynchronizationMonitor(const NoteLibrary *library, QObject *parent = nullptr);

    bool isRunning() const;
    /// Returns whether a job is running and the host offers to stop it.
    bool isStoppable() const;
    /// Cancels all jobs. Has no effect if the host does not offer that.
    void stop();
    /// Returns how far the running job is.
    QVSyncProgress progress() const;
    /// Returns the summary as it was when the last job ended, or something changed while none ran.
    const SynchronizationSummary &summary() const { return m_summary; }
    /// Reads the summary again, at once.
    void update();
    /// Returns one line for the user: what is running and how far it is, or the summary.
    QString text() const;

Q_SIGNALS:
    /// Emitted after any of these has changed.
    void changed();

private:
    /// Observes the databases that were added.
    void observeDatabases();
    /// Updates the summary soon, once for several requests, unless a job runs.
    void updateSoon();

    const NoteLibrary *const m_library;
    QVSyncDispatcher *const m_dispatcher;
    const std::shared_ptr<DayChange> m_dayChange = DayChange::shared();
    KeyValue::Observation m_progressObservation;
    SynchronizationSummary m_summary;
    QTimer m_timer;
};
