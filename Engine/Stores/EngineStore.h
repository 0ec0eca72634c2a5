#pragma once

#include <QtCore/QString>
#include <atomic>
#include <functional>

#include "Engine/Foundation/EngineFuture.h"
#include "Host/QVSyncStore.h"
#include "Platform/Foundation/Expected.h"
#include "Platform/Foundation/Url.h"

/// What all stores share: operations run on worker threads, each handler is called there once, and
/// a cancelled operation ends with an error of the code Cancelled. Always shared; made on the main
/// thread.
class EngineStore : public QVSyncStore, public std::enable_shared_from_this<EngineStore> {
public:
    explicit EngineStore(const std::shared_ptr<QVSyncLocation> &location);
    ~EngineStore() override;

    std::shared_ptr<QVSyncLocation> location() const override { return m_location; }
    std::shared_ptr<PZFuture> openWithCompletionHandler(ErrorHandler handler) override;
    std::shared_ptr<PZFuture> fetchDatabasesWithCompletionHandler(
        DatabasesHandler handler) override;
    std::shared_ptr<PZFuture> closeWithCompletionHandler(ErrorHandler handler) override;

    /// What opening does, at once: says why the store cannot be used. Blocks; on a worker thread.
    virtual Expected<void> open(const EngineFuture &future) = 0;

    /// Cancels every operation of any store and waits until none runs any more: before the code
    /// goes.
    static void endAll();

protected:
    struct Fetched {
        QVRemoteDatabases databases;
        /// What is wrong with single records, although the others were read; empty if nothing is.
        std::optional<Error> problem = {};
    };

    /// That of the location when the store was made.
    const Url &URL() const { return m_URL; }
    std::shared_ptr<QVRemoteDatabase> record(const QString &UUID, const QString &name);

    /// What a kind of store does; called on a worker thread. `future` says whether to go on.
    virtual Expected<Fetched> fetch(const EngineFuture &future) = 0;

private:
    Expected<void> openUnlessCancelled(const EngineFuture &future);
    Expected<Fetched> fetchUnlessCancelled(const EngineFuture &future);

    std::shared_ptr<QVSyncLocation> m_location;
    const Url m_URL;
    std::atomic<bool> m_isOpen = false;
};
