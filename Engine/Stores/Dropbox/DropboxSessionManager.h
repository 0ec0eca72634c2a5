#pragma once

#include <QtCore/QHash>

#include "Engine/Foundation/WorkerThreads.h"
#include "Engine/Stores/Dropbox/DropboxAuthorization.h"
#include "Host/QVDropboxSessionManager.h"
#include "Platform/Foundation/CallQueue.h"

class EngineFuture;

/// Runs the authorizations of all sessions, each on its own thread. Must be used on the main
/// thread.
class DropboxSessionManager : public QVDropboxSessionManager {
public:
    /// Receives the account that the user has signed in to, whose tokens are not stored yet.
    using Handler = std::function<void(const Expected<DropboxAuthorization::SignIn> &signIn)>;

    explicit DropboxSessionManager(const DropboxAuthorization::Limits &limits = {});
    /// Cancels the authorizations that are running, blocks until their threads have ended, and
    /// calls the pending handlers with an error of the code Cancelled.
    ~DropboxSessionManager() override;
    DropboxSessionManager(const DropboxSessionManager &) = delete;
    DropboxSessionManager &operator=(const DropboxSessionManager &) = delete;

    std::shared_ptr<QVDropboxSession> sessionWithURL(const Url &URL) override;

    /// Starts an authorization, see QVDropboxSession. `handler` is never called from within this
    /// call. A cancelled future stays cancelled: later authorizations with it end at once.
    void authorize(const std::shared_ptr<PZFuture> &future, Handler handler);

private:
    /// A running authorization.
    struct Run {
        std::shared_ptr<EngineFuture> future;
        Handler handler;
    };

    /// Calls the handler of the authorization `number`, once.
    void finish(quint64 number, const Expected<DropboxAuthorization::SignIn> &signIn);

    const DropboxAuthorization::Limits m_limits;
    quint64 m_lastNumber = 0;
    QHash<quint64, Run> m_runs;
    /// Receives the results of the threads; calls that are still queued are dropped when it is
    /// destroyed.
    CallQueue m_mainThread;
    WorkerThreads m_threads;
};
