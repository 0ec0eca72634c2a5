#pragma once

#include <QtCore/QString>
#include <atomic>
#include <functional>

#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Stores/StoreOperations.h"
#include "Host/QVSyncStore.h"
#include "Host/QVSyncStoreCheck.h"
#include "Platform/Foundation/Expected.h"
#include "Platform/Foundation/Url.h"

/// Common base of all stores. Each operation runs on a thread of its own (see StoreOperations),
/// each handler is called there exactly once, after its future has finished, and a cancelled
/// operation ends with an error of the code Cancelled. Must be created with std::make_shared on the
/// main thread; the last owner may be any thread.
class EngineStore : public QVSyncStore,
                    public QVCheckableStore,
                    public std::enable_shared_from_this<EngineStore> {
public:
    /// Shares ownership of `location` and of `operations`, which starts the operations of this
    /// store; neither must be null. The store keeps using the URL that the location has now, also
    /// if it is nil.
    EngineStore(const std::shared_ptr<QVSyncLocation> &location,
                std::shared_ptr<StoreOperations> operations);
    /// Releases the location and the operations on the main thread: now if it is called there,
    /// otherwise from the event loop.
    ~EngineStore() override;

    std::shared_ptr<QVSyncLocation> location() const override { return m_location; }
    /// For the contracts of these functions see QVSyncStore. A fetch in a store that is not open
    /// fails with the code StoreUnreachable.
    std::shared_ptr<PZFuture> openWithCompletionHandler(ErrorHandler handler) override;
    std::shared_ptr<PZFuture> fetchDatabasesWithCompletionHandler(
        DatabasesHandler handler) override;
    std::shared_ptr<PZFuture> closeWithCompletionHandler(ErrorHandler handler) override;
    std::shared_ptr<PZFuture> checkWithCompletionHandler(CheckHandler handler) override;

    /// Opens the store: returns an error that says why it cannot be used. Blocks as long as the
    /// kind of location allows; must be called on a worker thread. Does not change whether fetching
    /// is allowed, which openWithCompletionHandler() does.
    virtual Expected<void> open(const EngineFuture &future) = 0;

    /// Returns the turn of StoreOperations::parsing, which all stores of the engine share.
    /// Thread-safe; valid as long as this object.
    Turn &parsing() const { return m_operations->parsing(); }

protected:
    /// The result of fetch().
    struct Fetched {
        QVRemoteDatabases databases;
        /// Why the first of the missing records could not be read although the others were; empty
        /// if all were read.
        std::optional<Error> problem = {};
    };

    /// Returns the URL that the location had when the store was created.
    const Url &URL() const { return m_URL; }
    /// Returns a new database of this store. Never null.
    std::shared_ptr<QVRemoteDatabase> record(const QString &UUID, const QString &name);

    /// Reads the databases. Blocks; called on a worker thread while the store is open. Should
    /// return soon after `future` is cancelled; its result is then ignored.
    virtual Expected<Fetched> fetch(const EngineFuture &future) = 0;
    /// Returns the size of the store in bytes; empty, as by default, if it cannot be known. Fails
    /// if something in the store cannot be read. Called like fetch().
    virtual Expected<std::optional<qint64>> measure(const EngineFuture &future);
    /// Returns an error unless the store can be written, and leaves it as it was. The default
    /// implementation does nothing. Called like fetch().
    virtual Expected<void> probe(const EngineFuture &future);

private:
    /// Finishes `future`. Returns `result`, or an error if the operation was cancelled before or
    /// took too long.
    template <class Value>
    Expected<Value> outcome(Expected<Value> result, EngineFuture &future) const;
    /// Call open() and fetch(), and return the error of a cancelled operation if `future` is
    /// cancelled.
    Expected<void> openUnlessCancelled(const EngineFuture &future);
    Expected<Fetched> fetchUnlessCancelled(const EngineFuture &future);
    /// Calls open(), fetch(), measure() and probe(). Ends at once if one of the first two fails;
    /// the first error is reported.
    QVSyncStoreCheck check(const EngineFuture &future);

    /// Not const only because the destructor moves them to the main thread.
    std::shared_ptr<QVSyncLocation> m_location;
    std::shared_ptr<StoreOperations> m_operations;
    const Url m_URL;
    /// Set by the last open operation that has ended, cleared by closing.
    std::atomic<bool> m_isOpen = false;
};
