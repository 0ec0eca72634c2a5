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
    /// `library` is not owned and must outlive this object, as must QVSyncPlugin::plugin(). Blocks
    /// for the profile, and shows the summary of that moment at once. The plug-in must
    /// not replace its dispatcher or locations controller.
    explicit SynchronizationMonitor(const NoteLibrary *library, QObject *parent = nullptr);

    bool isRunning() const;
    /// Returns whether a job is running and the host offers to stop it.
    bool isStoppable() const;
    /// Cancels all jobs. Has no effect if the host does not offer that. The dispatcher is idle when
    /// this returns, and changed() was emitted.
    void stop();
    /// Returns what is running, as one line for the user; an empty text if nothing is.
    QString activity() const;
    /// Returns how far the running job is. The progress of an idle dispatcher is returned if the
    /// host reports none.
    QVSyncProgress progress() const;
    /// Returns the summary as it was when the last job ended, or something changed while none ran.
    /// It is the former one while a job runs. The reference stays valid, but its contents change.
    const SynchronizationSummary &summary() const { return m_summary; }
    /// Reads the summary again, at once. Blocks for the profile, emits changed(), and may be called
    /// while a job runs.
    void update();
    /// Returns one line for the user: what is running and how far it is, or the summary.
    QString text() const;

Q_SIGNALS:
    /// Emitted after any of these may have changed: up to ten times a second while a job runs,
    /// otherwise from the event loop, once after several changes of notes or names or savings of
    /// locations, when a schedule has fired, and when a new day begins, since the text names the
    /// day.
    void changed();

private:
    /// Observes the databases that were added.
    void observeDatabases();
    /// Updates the summary from the event loop, once for several requests. A request that comes
    /// while a job runs is dropped, because the end of the job updates the summary.
    void updateSoon();

    const NoteLibrary *const m_library;
    QVSyncDispatcher *const m_dispatcher;
    const std::shared_ptr<DayChange> m_dayChange = DayChange::shared();
    KeyValue::Observation m_progressObservation;
    SynchronizationSummary m_summary;
    QTimer m_timer;
};
