#include "Engine/EngineStore.h"

#include <QtCore/QThreadPool>

#include "Engine/EngineError.h"
#include "Engine/EngineFuture.h"
#include "Platform/Foundation/Localization.h"

namespace {
Error cancelled() {
    return engineError(EngineErrorCode::Cancelled,
                       localizedSyncString("The operation was cancelled."));
}
}  // namespace

std::shared_ptr<PZFuture> EngineStore::openWithCompletionHandler(ErrorHandler handler) {
    auto future = std::make_shared<EngineFuture>();
    QThreadPool::globalInstance()->start(
        [store = shared_from_this(), future, handler = std::move(handler)] {
            handler(future->isCancelled() ? cancelled() : store->open());
        });
    return future;
}

std::shared_ptr<PZFuture> EngineStore::fetchDatabasesWithCompletionHandler(
    DatabasesHandler handler) {
    auto future = std::make_shared<EngineFuture>();
    QThreadPool::globalInstance()->start(
        [store = shared_from_this(), future, handler = std::move(handler)] {
            const Fetched fetched = future->isCancelled() ? Fetched{std::nullopt, cancelled()}
                                                          : store->fetchDatabases();
            handler(fetched.databases, fetched.error);
        });
    return future;
}

std::shared_ptr<PZFuture> EngineStore::closeWithCompletionHandler(ErrorHandler handler) {
    auto future = std::make_shared<EngineFuture>();
    QThreadPool::globalInstance()->start(
        [store = shared_from_this(), handler = std::move(handler)] { handler(store->close()); });
    return future;
}
