#include "Engine/Stores/EngineStore.h"

#include <QtCore/QThread>
#include <QtCore/QThreadPool>
#include <mutex>
#include <set>
#include <utility>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Stores/EngineRemoteDatabase.h"
#include "Host/QVSyncLocation.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/MainQueue.h"

namespace {

/// Interval in milliseconds in which endAll() cancels operations started by handlers.
constexpr int LongestUncancelled = 100;

/// The futures of running operations. Thread-safe.
class RunningOperations {
public:
    void add(const std::shared_ptr<PZFuture> &future) {
        const std::lock_guard lock(m_mutex);
        m_futures.insert(future);
    }
    void remove(const std::shared_ptr<PZFuture> &future) {
        const std::lock_guard lock(m_mutex);
        m_futures.erase(future);
    }
    void cancel() {
        std::set<std::shared_ptr<PZFuture>> futures;
        {
            const std::lock_guard lock(m_mutex);
            futures = m_futures;
        }
        for (const auto &future : futures) {
            future->cancel();
        }
    }

private:
    std::mutex m_mutex;
    std::set<std::shared_ptr<PZFuture>> m_futures;
};

RunningOperations &runningOperations() {
    static RunningOperations running;
    return running;
}

std::shared_ptr<PZFuture> start(std::function<void(EngineFuture &future)> operation) {
    const auto future = std::make_shared<EngineFuture>();
    runningOperations().add(future);
    QThreadPool::globalInstance()->start([future, operation = std::move(operation)] {
        operation(*future);
        runningOperations().remove(future);
    });
    return future;
}

}  // namespace

EngineStore::EngineStore(const std::shared_ptr<QVSyncLocation> &location)
    : m_location(location), m_URL(location->URL()) {}

EngineStore::~EngineStore() {
    // The last owner may be a worker thread, but locations must be destroyed on the main thread.
    if (QThread::currentThread() != m_location->thread()) {
        MainQueue::dispatchAsync([location = std::exchange(m_location, nullptr)] {});
    }
}

std::shared_ptr<PZFuture> EngineStore::openWithCompletionHandler(ErrorHandler handler) {
    return start([store = shared_from_this(), handler = std::move(handler)](EngineFuture &future) {
        const Expected<void> opened = store->openUnlessCancelled(future);
        store->m_isOpen = opened.has_value();
        future.finish();
        handler(opened ? std::nullopt : std::optional(opened.error()));
    });
}

std::shared_ptr<PZFuture> EngineStore::fetchDatabasesWithCompletionHandler(
    DatabasesHandler handler) {
    return start([store = shared_from_this(), handler = std::move(handler)](EngineFuture &future) {
        const Expected<Fetched> fetched = store->fetchUnlessCancelled(future);
        future.finish();
        if (fetched) {
            handler(fetched->databases, fetched->problem);
        } else {
            handler(std::nullopt, fetched.error());
        }
    });
}

std::shared_ptr<PZFuture> EngineStore::closeWithCompletionHandler(ErrorHandler handler) {
    return start([store = shared_from_this(), handler = std::move(handler)](EngineFuture &future) {
        store->m_isOpen = false;
        future.finish();
        handler({});
    });
}

void EngineStore::endAll() {
    // Repeated, since the handler of one operation may start the next.
    do {
        runningOperations().cancel();
    } while (!QThreadPool::globalInstance()->waitForDone(LongestUncancelled));
}

std::shared_ptr<QVRemoteDatabase> EngineStore::record(const QString &UUID, const QString &name) {
    return std::make_shared<EngineRemoteDatabase>(UUID, name, shared_from_this());
}

Expected<void> EngineStore::openUnlessCancelled(const EngineFuture &future) {
    if (future.isCancelled()) {
        return failure(operationCancelled());
    }
    Expected<void> opened = open(future);
    if (opened && future.isCancelled()) {
        return failure(operationCancelled());
    }
    return opened;
}

Expected<EngineStore::Fetched> EngineStore::fetchUnlessCancelled(const EngineFuture &future) {
    if (future.isCancelled()) {
        return failure(operationCancelled());
    }
    if (!m_isOpen) {
        return failure(engineError(EngineErrorCode::StoreUnreachable,
                                   localizedSyncString("The sync store is not open.")));
    }
    Expected<Fetched> fetched = fetch(future);
    if (future.isCancelled()) {
        return failure(operationCancelled());
    }
    return fetched;
}
