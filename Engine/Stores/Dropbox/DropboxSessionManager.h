#pragma once

#include <QtCore/QHash>
#include <memory>
#include <variant>

#include "Engine/Foundation/WorkerThreads.h"
#include "Engine/Stores/Dropbox/DropboxAuthorization.h"
#include "Host/QVDropboxSessionManager.h"

class EngineFuture;

/// Runs the authorizations of all sessions, each on its own thread. It does not know which account
/// a location expects, see DropboxSession. Must be used on the main thread.
class DropboxSessionManager : public QVDropboxSessionManager {
public:
    /// Receives the account that the user has signed in to, whose tokens are not stored yet.
    using Handler = std::function<void(const Expected<DropboxAuthorization::SignIn> &signIn)>;

    /// `limits` apply to every authorization. Starts no thread.
    explicit DropboxSessionManager(const DropboxAuthorization::Limits &limits = {});
    /// Cancels the authorizations that are running, which takes effect at once unless the system
    /// does not respond, waits for their threads (see WorkerThreads::end()), and calls the pending
    /// handlers with an error of the code Cancelled, within this call. They must not start another
    /// authorization.
    ~DropboxSessionManager() override;
    DropboxSessionManager(const DropboxSessionManager &) = delete;
    DropboxSessionManager &operator=(const DropboxSessionManager &) = delete;

    std::shared_ptr<QVDropboxSession> sessionWithURL(const Url &URL) override;

    /// Starts an authorization, see QVDropboxSession, and passes control of `future`, which must
    /// not be null, to it. `handler`, which must not be empty, is called once, on the main thread,
    /// and never from within this call. A cancelled future stays cancelled: later authorizations
    /// with it end at once. If the future is cancelled before the handler is called, the handler
    /// receives an error of the code Cancelled, even if the user has signed in meanwhile.
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
    /// Results that arrive on the main thread after its end are dropped.
    const std::shared_ptr<std::monostate> m_lifetime = std::make_shared<std::monostate>();
    WorkerThreads m_threads;
};
