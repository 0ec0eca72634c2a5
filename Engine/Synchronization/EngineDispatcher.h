#pragma once

#include "Engine/Synchronization/SyncJob.h"
#include "Host/QVSyncDispatcher.h"

/// Runs up to four jobs at a time, in the order in which they were asked for, but only one for any
/// database and one for any location. What goes wrong and what went well is told in the
/// application's log.
class EngineDispatcher : public QVSyncDispatcher {
    Q_OBJECT
public:
    /// Both must outlive this.
    EngineDispatcher(const ProfileDatabase &profile, EngineNoteLibrary &library);
    /// Cancels what runs and waits for it; handlers that were not called are dropped.
    ~EngineDispatcher() override;

    void cleanRemoteStoreWithSynchronizationState(const std::shared_ptr<QVSyncState> &state,
                                                  std::function<void()> handler) override;
    void performSynchronizationsWithSynchronizationStates(const QVSyncStates &states) override;
    void performSynchronizationsWithSynchronizationStates(const QVSyncStates &states,
                                                          std::function<void()> handler) override;
    QString activity() const override;

    /// Synchronizes with a store that is no location; `handler` is called on the main thread when
    /// that has ended, with why it failed.
    void synchronizeWithStore(const StoreSession::Subject &subject,
                              const std::shared_ptr<BlobStore> &store,
                              std::function<void(const std::optional<Error> &error)> handler);

    /// Cancels the jobs of the location `identifier`: those that run end soon, and those that wait
    /// never start. Their handlers are called later, with an error of the code Cancelled.
    void cancelJobsOfLocation(const QString &identifier);

private:
    struct Entry {
        std::shared_ptr<SyncJob> job;
        /// The title of the location.
        QString title;
        /// nullptr where the store is no location.
        std::shared_ptr<QVSyncState> state;
        QList<std::function<void(const std::optional<Error> &error)>> handlers;
    };

    void enqueue(SyncJob::Kind kind, const std::shared_ptr<QVSyncState> &state,
                 const std::function<void()> &handler);
    /// Calls `handler` from the event loop, unless this object is destroyed before.
    void postHandler(std::function<void()> handler);
    void startWaiting();
    bool isBusy(const StoreSession::Subject &subject) const;
    void ended(const SyncJob *job);
    QString nameOf(const StoreSession::Subject &subject) const;
    void report(const Entry &entry);
    void rememberSynchronized(QVSyncState &state);

    const ProfileDatabase &m_profile;
    EngineNoteLibrary &m_library;
    QThreadPool m_pool;
    QList<Entry> m_waiting;
    QList<Entry> m_running;
};
