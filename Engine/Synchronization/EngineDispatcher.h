#pragma once

#include <QtCore/QSet>
#include <QtCore/QTimer>
#include <chrono>

#include "Application/Interface/QVUnsentChanges.h"
#include "Application/Interface/RemovalDecider.h"
#include "Engine/Locations/EngineSyncState.h"
#include "Engine/Synchronization/SyncJob.h"
#include "Host/QVJobLog.h"
#include "Host/QVSyncDispatcher.h"
#include "Host/QVSyncProgress.h"

class EngineLocationsController;

/// Runs the jobs of each location one at a time, in the order in which they were requested, and
/// those of different locations at the same time, so that a location that does not respond delays
/// no other. A job whose state is disabled is cancelled. Failures and successes are reported in the
/// application's log. Must be used on the main thread.
class EngineDispatcher : public QVSyncDispatcher, public QVUnsentChanges, public RemovalDecider {
    Q_OBJECT
    Q_PROPERTY(QVSyncProgress progress READ progress NOTIFY progressChanged)
public:
    /// None of the arguments is owned; all must outlive this object. `locations` are those from
    /// which the titles of the locations must differ.
    EngineDispatcher(const ProfileDatabase &profile, EngineNoteLibrary &library,
                     const EngineLocationsController &locations);
    /// Cancels the running jobs and waits for their threads; those that have not ended in time are
    /// abandoned, see WorkerThreads. Handlers that were not called yet are not called.
    ~EngineDispatcher() override;

    /// Starts a clean-up. `handler` is called on the main thread, from the event loop.
    void cleanRemoteStoreWithSynchronizationState(const std::shared_ptr<QVSyncState> &state,
                                                  std::function<void()> handler) override;
    /// Synchronizing a database that the profile does not have imports it from the location.
    void performSynchronizationsWithSynchronizationStates(const QVSyncStates &states) override;
    void performSynchronizationsWithSynchronizationStates(const QVSyncStates &states,
                                                          std::function<void()> handler) override;
    void synchronize(const QVSyncStates &states, RemovalDecision decision,
                     std::function<void(const QList<RemovalQuestion> &decided)> handler) override;
    /// Returns the activity of the first job that was not cancelled, also of one that waits only
    /// until a cancelled job has ended. Computed at each call.
    QString activity() const override;
    /// Returns the progress of that job.
    QVSyncProgress progress() const;
    /// Cancels all jobs: waiting ones never start, and running ones, which count no longer as
    /// activity, end soon. Their handlers are called later; that of synchronizeWithStore()
    /// gets an error of the code Cancelled, unless everything was synchronized and small records
    /// were being rewritten, which counts as successful.
    Q_INVOKABLE void stop();
    /// See QVUnsentChanges. Returns false if the state's location was destroyed or is not one of
    /// this engine.
    Expected<bool> hasUnsentChanges(const QVSyncState &state) const override;

    /// Starts a synchronization with a store that belongs to no location. `handler` is called on
    /// the main thread when it has ended, with the error if it failed; it is not called if the
    /// dispatcher is destroyed before.
    void synchronizeWithStore(const StoreSession::Subject &subject,
                              const std::shared_ptr<BlobStore> &store,
                              std::function<void(const Expected<void> &result)> handler);

    /// Cancels the jobs of the location `identifier` like stop(), and leaves the others alone. Has
    /// no effect if there are none.
    void cancelJobsOfLocation(const QString &identifier);
    /// The same for the jobs of the database that stores name `UUID`, which was deleted.
    void cancelJobsOfDatabase(const QString &UUID);

    /// Sets the time without progress after which a job is ended with an error. The default,
    /// StallLimit, is longer than any single access to a server.
    void setStallLimit(std::chrono::milliseconds limit) { m_stallLimit = limit; }
    static constexpr std::chrono::milliseconds StallLimit = std::chrono::minutes(30);

Q_SIGNALS:
    /// Emitted at most ten times a second while a job runs, and once when none does any more.
    void progressChanged();

private:
    /// How a job has ended.
    struct End {
        Expected<void> result = {};
        /// The removal that was decided beforehand and carried out.
        std::optional<RemovalQuestion> decided = {};
    };
    using Handler = std::function<void(const End &end)>;

    /// A job that is waiting or running.
    struct Entry {
        std::shared_ptr<SyncJob> job;
        /// The title of the location, or the path of a store without location.
        QString title;
        /// Null if the store belongs to no location.
        std::shared_ptr<QVSyncState> state;
        QList<Handler> handlers;
        /// Invalid while the job waits.
        QDateTime started = {};
        /// Whether the running job was cancelled. Its store is in use until it ends.
        bool isCancelled = false;
        /// Whether the user has decided what the job removes.
        bool isDecided = false;
        /// The question that `decision` has answered before this job was started.
        std::optional<RemovalQuestion> decided = {};
        /// What the user has decided for the case that the job would remove many notes.
        RemovalDecision decision = RemovalDecision::Later;
    };

    /// Adds a job, or only `handler` and `decision` if such a job is already waiting. Calls
    /// `handler` later, without a job, if the state is disabled or has no location of this engine.
    void enqueue(SyncJob::Kind kind, const std::shared_ptr<QVSyncState> &state,
                 const Handler &handler, RemovalDecision decision = RemovalDecision::Later);
    /// Cancels the jobs of the states that were disabled after they were requested.
    void cancelDisabledJobs();
    /// Cancels the jobs for which `isCancelled` returns true: running ones end soon, and waiting
    /// ones never start.
    void cancelJobs(const std::function<bool(const Entry &)> &isCancelled);
    /// Calls `handler` from the event loop, unless this object is destroyed before.
    void postHandler(std::function<void()> handler);
    /// Returns the running job that was started first and was not cancelled. If there is none,
    /// returns the first one that waits until a cancelled job has ended; null if there is none
    /// either.
    const Entry *firstActive() const;
    void announceActivity();
    /// Announces the progress if it has changed, now or when the timer ends, which limits how often
    /// that is done.
    void announceProgress();
    /// Starts the job, or lets it wait until the others of its store have ended.
    void add(const Entry &entry);
    /// Starts the next job of `store` unless one is running, and announces the activity.
    void startNext(const QString &store);
    /// Reports the result of `job`, starts the next one, and calls the job's handlers.
    void ended(const SyncJob *job);
    /// Returns the name of the database, as far as it is known.
    QString nameOf(const StoreSession::Subject &subject) const;
    /// Writes the problems and the result of a job to the application's log.
    void report(const Entry &entry);
    /// Completes `report`, which names the database and the location, and logs it.
    void reportEnd(const Entry &entry, QVJobReport report);
    /// Asks the user about the notes that the failed job would have removed, unless a question
    /// about that database is open or its answer waits to be carried out, and starts a
    /// synchronization with the decision.
    void askAboutRemoval(const Entry &entry, const StoreSession::Removal &removal);
    RemovalQuestion questionAbout(const Entry &entry, const StoreSession::Removal &removal) const;
    /// Synchronizes again, with what the user has decided. Returns the new job, which is not added
    /// yet; empty if nothing remains to be done.
    std::optional<Entry> decided(const Entry &entry, const SyncSession::Decision &decision) const;
    /// Presents an error if some of these notes, which the user keeps, are gone from the database.
    void presentGoneNotes(const QString &databaseUUID, const QStringList &notes) const;
    /// Presents an error if some of these notes, which the user removes, are still there after the
    /// synchronization with that decision.
    void presentRemainingNotes(const QString &databaseUUID, const QStringList &notes) const;
    /// Returns how many of the notes a database has, 0 if there is no such database.
    Expected<qsizetype> countOf(const QString &databaseUUID, const QStringList &notes) const;
    /// Sets and saves the result of a job, and the date if it was a successful synchronization. A
    /// cancelled job has no result.
    void rememberResult(const Entry &entry);
    QVSyncResult resultOf(const Entry &entry, const QDateTime &date) const;
    /// Returns what has failed, and why, for the user. The job must have failed.
    QString failureOf(const Entry &entry) const;
    /// Writes what a job has changed of `state`. A failure is logged.
    void saveResult(const EngineSyncState &state);

    const ProfileDatabase &m_profile;
    EngineNoteLibrary &m_library;
    const EngineLocationsController &m_locations;
    WorkerThreads m_threads;
    /// The waiting jobs, in order, by store.
    QHash<QString, QList<Entry>> m_waiting;
    QList<Entry> m_running;
    /// Runs after an announcement of the progress, and while a job runs.
    QTimer m_progressTimer;
    QVSyncProgress m_announcedProgress;
    std::chrono::milliseconds m_stallLimit = StallLimit;
    /// See QVSyncProgress::outcome.
    QString m_outcome;
    /// An open question about a removal.
    struct Asked {
        QString store;
        /// Distinguishes it from earlier questions, which may be open, too.
        quint64 number = 0;
    };
    /// What the user is asked, by the UUID of the database.
    QHash<QString, Asked> m_asked;
    quint64 m_lastNumber = 0;
};
