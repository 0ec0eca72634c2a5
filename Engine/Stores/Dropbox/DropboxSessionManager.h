#pragma once

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QThreadPool>

#include "Engine/Stores/Dropbox/DropboxAuthorization.h"
#include "Host/QVDropboxSessionManager.h"

class EngineFuture;

/// Runs the authorizations of all sessions, each on a thread of its own. Main thread.
class DropboxSessionManager : public QVDropboxSessionManager {
public:
    explicit DropboxSessionManager(const DropboxAuthorization::Limits &limits = {});
    /// Cancels what still runs, and calls the handlers that wait.
    ~DropboxSessionManager() override;
    DropboxSessionManager(const DropboxSessionManager &) = delete;
    DropboxSessionManager &operator=(const DropboxSessionManager &) = delete;

    std::shared_ptr<QVDropboxSession> sessionWithURL(const Url &URL) override;

    /// As QVDropboxSession has it. `handler` is never called before this returns. A future that is
    /// cancelled stays so: with it, every later authorization ends at once.
    void authorize(const std::shared_ptr<PZFuture> &future, QVDropboxSession::Handler handler);

private:
    struct Run {
        std::shared_ptr<EngineFuture> future;
        QVDropboxSession::Handler handler;
    };

    void finish(quint64 number, const Expected<QString> &address);

    const DropboxAuthorization::Limits m_limits;
    quint64 m_lastNumber = 0;
    QHash<quint64, Run> m_runs;
    /// What is queued for it runs here, and goes with it.
    QObject m_mainThread;
    QThreadPool m_threads;
};
