#pragma once

#include <QtCore/QThreadPool>

#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Synchronization/StoreSession.h"

/// Opens a store, runs sessions with it one after the other, and closes it: the work on a thread of
/// a pool, the rest on the main thread, where everything here is called. Always shared.
class SyncJob : public std::enable_shared_from_this<SyncJob> {
public:
    enum class Kind { Synchronization, CleanUp };

    /// `profile` and `library` must outlive the pool's threads.
    SyncJob(Kind kind, const ProfileDatabase &profile, EngineNoteLibrary &library,
            const StoreSession::Subject &subject, std::shared_ptr<BlobStore> store);

    /// `handler` is called once, later, when the job has ended, well or not; not at all where the
    /// engine goes before.
    void start(QThreadPool &pool, std::function<void()> handler);
    /// Lets it end soon, with an error of the code Cancelled.
    void cancel() { m_future->cancel(); }

    Kind kind() const { return m_kind; }
    const StoreSession::Subject &subject() const { return m_subject; }
    /// Why it failed, once it has ended.
    const std::optional<Error> &error() const { return m_error; }
    /// What is wrong with single records of the store.
    QList<Error> problems() const;

private:
    void goOn();
    void runOnThread(const std::function<std::optional<Error>()> &work);
    void settle(const std::optional<Error> &error);

    const Kind m_kind;
    const StoreSession::Subject m_subject;
    const std::shared_ptr<BlobStore> m_store;
    const std::shared_ptr<EngineFuture> m_future = std::make_shared<EngineFuture>();
    std::vector<std::unique_ptr<StoreSession>> m_sessions;
    /// nullptr until the store is open.
    StoreSession *m_session = nullptr;
    std::optional<Error> m_error;
    QThreadPool *m_pool = nullptr;
    std::function<void()> m_handler;
};
