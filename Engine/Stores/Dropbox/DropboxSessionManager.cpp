#include "Engine/Stores/Dropbox/DropboxSessionManager.h"

#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Stores/Dropbox/DropboxSession.h"
#include "Platform/Foundation/MainQueue.h"

DropboxSessionManager::DropboxSessionManager(const DropboxAuthorization::Limits &limits)
    : m_limits(limits) {}

DropboxSessionManager::~DropboxSessionManager() {
    for (const Run &run : std::as_const(m_runs)) {
        run.future->cancel();
    }
    m_threads.end();
    const QList<quint64> waiting = m_runs.keys();
    for (const quint64 number : waiting) {
        finish(number, failure(operationCancelled()));
    }
}

std::shared_ptr<QVDropboxSession> DropboxSessionManager::sessionWithURL(const Url &URL) {
    return std::make_shared<DropboxSession>(*this, URL);
}

void DropboxSessionManager::authorize(const std::shared_ptr<PZFuture> &future, Handler handler) {
    const auto operation = std::make_shared<EngineFuture>();
    future->passControlToFuture(operation);
    const quint64 number = ++m_lastNumber;
    m_runs.insert(number, {operation, std::move(handler)});
    // An abandoned authorization may outlive this object, which only the main thread looks at.
    const auto finishLater = [this, lifetime = std::weak_ptr(m_lifetime),
                              number](const Expected<DropboxAuthorization::SignIn> &signIn) {
        MainQueue::dispatchAsync([this, lifetime, number, signIn] {
            if (!lifetime.expired()) {
                finish(number, signIn);
            }
        });
    };
    const Expected<void> started = m_threads.start([limits = m_limits, operation, finishLater] {
        finishLater(DropboxAuthorization(limits).run(*operation));
    });
    if (!started) {
        finishLater(failure(started.error()));
    }
}

void DropboxSessionManager::finish(quint64 number,
                                   const Expected<DropboxAuthorization::SignIn> &signIn) {
    const Run run = m_runs.take(number);
    if (run.future->isCancelled()) {
        run.handler(failure(operationCancelled()));
        return;
    }
    run.future->finish();
    run.handler(signIn);
}
