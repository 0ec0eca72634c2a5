#include "Engine/Stores/EngineStore.h"

#include <QtCore/QThread>
#include <utility>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Stores/EngineRemoteDatabase.h"
#include "Host/QVSyncLocation.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/MainQueue.h"

EngineStore::EngineStore(const std::shared_ptr<QVSyncLocation> &location,
                         std::shared_ptr<StoreOperations> operations)
    : m_location(location), m_operations(std::move(operations)), m_URL(location->URL()) {}

EngineStore::~EngineStore() {
    // The last owner may be a thread of the pool, but locations and the pool itself must be
    // destroyed on the main thread.
    if (QThread::currentThread() != m_location->thread()) {
        MainQueue::dispatchAsync([location = std::exchange(m_location, nullptr),
                                  operations = std::exchange(m_operations, nullptr)] {});
    }
}

template <class Value>
Expected<Value> EngineStore::outcome(Expected<Value> result, EngineFuture &future) const {
    const bool isCancelled = !future.finish();
    if (const std::optional<Error> reason = future.startFailure()) {
        return failure(*reason);
    }
    if (isCancelled && future.isOverdue()) {
        return failure(tookTooLong(URL().stringWithoutPassword()));
    }
    if (isCancelled && result) {
        return failure(operationCancelled());
    }
    return result;
}

std::shared_ptr<PZFuture> EngineStore::openWithCompletionHandler(ErrorHandler handler) {
    return m_operations->start([store = shared_from_this(),
                                handler = std::move(handler)](EngineFuture &future) {
        const Expected<void> opened = store->outcome(store->openUnlessCancelled(future), future);
        store->m_isOpen = opened.has_value();
        handler(opened ? std::nullopt : std::optional(opened.error()));
    });
}

std::shared_ptr<PZFuture> EngineStore::fetchDatabasesWithCompletionHandler(
    DatabasesHandler handler) {
    return m_operations->start(
        [store = shared_from_this(), handler = std::move(handler)](EngineFuture &future) {
            const Expected<Fetched> fetched =
                store->outcome(store->fetchUnlessCancelled(future), future);
            if (fetched) {
                handler(fetched->databases, fetched->problem);
            } else {
                handler(std::nullopt, fetched.error());
            }
        });
}

std::shared_ptr<PZFuture> EngineStore::closeWithCompletionHandler(ErrorHandler handler) {
    return m_operations->start(
        [store = shared_from_this(), handler = std::move(handler)](EngineFuture &future) {
            store->m_isOpen = false;
            const Expected<void> closed = store->outcome(Expected<void>(), future);
            handler(closed ? std::nullopt : std::optional(closed.error()));
        });
}

std::shared_ptr<PZFuture> EngineStore::checkWithCompletionHandler(CheckHandler handler) {
    return m_operations->start(
        [store = shared_from_this(), handler = std::move(handler)](EngineFuture &future) {
            QVSyncStoreCheck found = store->check(future);
            store->m_isOpen = false;
            if (const auto ended = store->outcome(Expected<void>(), future); !ended) {
                found = {};
                found.error = ended.error();
            }
            handler(found);
        });
}

Expected<std::optional<qint64>> EngineStore::measure(const EngineFuture & /*future*/) {
    return std::nullopt;
}

Expected<void> EngineStore::probe(const EngineFuture & /*future*/) {
    return {};
}

QVSyncStoreCheck EngineStore::check(const EngineFuture &future) {
    QVSyncStoreCheck found;
    const Expected<void> opened = openUnlessCancelled(future);
    if (!opened) {
        found.error = opened.error();
        return found;
    }
    m_isOpen = true;
    const Expected<Fetched> fetched = fetchUnlessCancelled(future);
    if (!fetched) {
        found.error = fetched.error();
        return found;
    }
    found.databases = fetched->databases.size();
    const Expected<std::optional<qint64>> size = measure(future);
    found.size = size.value_or(std::nullopt);
    found.error = fetched->problem || size ? fetched->problem : size.error();
    found.isReadable = !found.error;
    const Expected<void> written = probe(future);
    found.isWritable = written.has_value();
    if (!written && found.isReadable) {
        found.error = written.error();
    }
    return found;
}

std::shared_ptr<QVRemoteDatabase> EngineStore::record(const QString &UUID, const QString &name) {
    return EngineRemoteDatabase::database(UUID, name, shared_from_this());
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
                                   localizedSyncString("The sync store is not open. Try again.")));
    }
    Expected<Fetched> fetched = fetch(future);
    if (future.isCancelled()) {
        return failure(operationCancelled());
    }
    return fetched;
}
