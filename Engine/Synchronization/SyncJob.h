#pragma once

#include <QtCore/QElapsedTimer>
#include <chrono>
#include <memory>
#include <vector>

#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Foundation/WorkerThreads.h"
#include "Engine/Synchronization/CleanSession.h"
#include "Engine/Synchronization/SyncSession.h"

/// Opens a store and runs sessions with it one after the other. A synchronization that has read or
/// written records is followed by a session that rewrites small records; if that fails, the
/// synchronization has succeeded nevertheless, with a problem. The store is accessed on a worker
/// thread, the profile on the main thread; the steps alternate, so that the main thread is never
/// blocked for long. Must be owned by a std::shared_ptr; all functions must be called on the main
/// thread.
class SyncJob : public std::enable_shared_from_this<SyncJob> {
public:
    /// A clean-up synchronizes first.
    enum class Kind { Synchronization, CleanUp };

    /// `profile` and `library` are not owned and must exist until the job has ended or was
    /// abandoned. The job shares ownership of `store`. `decision` is what the user has decided
    /// about the notes that an earlier job would have removed.
    SyncJob(Kind kind, const ProfileDatabase &profile, EngineNoteLibrary &library,
            const StoreSession::Subject &subject, std::shared_ptr<BlobStore> store,
            const SyncSession::Decision &decision = {});

    /// Starts the job and returns at once. `handler` is called once, later, on the main thread,
    /// when the job has succeeded or failed; it is not called if the job is destroyed or abandoned
    /// before. Must be called once. `threads` is not owned and must exist until then.
    void start(WorkerThreads &threads, std::function<void()> handler);
    /// Makes a running job end soon with an error of the code Cancelled; while it rewrites small
    /// records, it ends without one, because everything was synchronized. `handler` is still
    /// called. What was written until then stays, and a later job continues from it. Has no effect
    /// on a job that has ended; one that is started afterwards ends at once.
    void cancel();
    /// Makes a running job end like cancel(), but with an error of the code StoreUnreachable, if
    /// progress() has returned the same for `limit` now. To be called now and then; the time is
    /// noticed from the first call on. A single access to a store of a server takes less time.
    void cancelIfStalled(std::chrono::milliseconds limit);
    /// Cancels the job and ends it on the main thread: `handler` is not called any more, and the
    /// profile is not used. A running access to the store may still go on.
    void abandon();

    Kind kind() const { return m_kind; }
    const StoreSession::Subject &subject() const { return m_subject; }
    const std::shared_ptr<BlobStore> &store() const { return m_store; }
    /// Returns an error if the job has failed. It has succeeded if it has ended without one. Valid
    /// in the handler and afterwards.
    const Expected<void> &result() const { return m_result; }
    /// Returns the problems with single records of the store, after the job has ended.
    const Problems &problems() const { return m_problems; }
    /// Returns how far the current session is, also the one that rewrites small records; the
    /// activity is empty. The phase is Preparing while the store is opened.
    QVSyncProgress progress() const;
    /// Return the numbers of changes of notes that the synchronization has read from the store and
    /// written to it, after the job has ended.
    qint64 received() const { return m_received; }
    qint64 sent() const { return m_sent; }
    /// Returns the removal that the user has to decide about, if the job has failed with an error
    /// of the code RemovalUndecided.
    const std::optional<StoreSession::Removal> &undecidedRemoval() const {
        return m_undecidedRemoval;
    }

private:
    /// Lets the session use the profile.
    Expected<void> accessProfile();
    /// Ends the use of the profile by the running step soon.
    void interrupt();
    /// Chooses the session of the next step, or none. Fails if the job was cancelled, unless the
    /// session has yet to record what it has done.
    Expected<void> chooseSession();
    /// Starts the next step, or ends the job if there is none or an error occurred.
    void continueJob();
    /// Opens the store and performs the first step of the first session: at the same time, if the
    /// store is faster then. An error of opening takes precedence. Called on a worker thread.
    Expected<void> begin();
    /// Runs `work` on a worker thread, then finishStep() on the main thread.
    void runOnThread(const std::function<Expected<void>()> &work);
    void end();
    /// Continues the current session on the main thread, unless the step failed.
    void finishStep(const Expected<void> &result);
    /// Returns the result of a step, with the cause if the job took too long.
    Expected<void> explained(const Expected<void> &result) const;
    /// Returns the next session that is not done, or null. Adds merges of small records after a
    /// synchronization that has read or written records or finds many of them.
    StoreSession *nextSession();
    bool isMergeDue() const;
    /// Returns `reason` as a problem: with its code, and a text for the user that everything was
    /// synchronized.
    Error compactionFailed(const Error &reason) const;

    const Kind m_kind;
    const ProfileDatabase &m_profile;
    EngineNoteLibrary &m_library;
    const StoreSession::Subject m_subject;
    const std::shared_ptr<BlobStore> m_store;
    const std::shared_ptr<EngineFuture> m_future = std::make_shared<EngineFuture>();
    /// Empty after the job has ended.
    std::vector<std::shared_ptr<StoreSession>> m_sessions;
    Problems m_problems;
    qint64 m_received = 0;
    qint64 m_sent = 0;
    std::optional<StoreSession::Removal> m_undecidedRemoval;
    /// The session that is continued; null before the start and after the end.
    StoreSession *m_session = nullptr;
    /// The first session and the last of those that merge small records; null after the end.
    const SyncSession *m_synchronization = nullptr;
    CleanSession *m_merge = nullptr;
    int m_merges = 0;
    /// What the last call of cancelIfStalled() has seen, and how long ago that was new; invalid
    /// before the first one.
    QVSyncProgress m_seenProgress;
    QElapsedTimer m_timeOfProgress;
    Expected<void> m_result;
    WorkerThreads *m_threads = nullptr;
    /// Empty after the job has ended or was abandoned.
    std::function<void()> m_handler;
};
