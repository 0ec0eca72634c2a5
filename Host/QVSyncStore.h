#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "Host/PZFuture.h"
#include "Host/QVRemoteDatabase.h"
#include "Platform/Foundation/Error.h"

class QVSyncLocation;

/// Access to what lies at a location. Shared; any thread may call. Each handler is called exactly
/// once, on a thread of the store's choosing, also when the operation is cancelled; the store keeps
/// itself alive until then.
class HOST_EXPORT QVSyncStore {
public:
    using ErrorHandler = std::function<void(const std::optional<Error> &error)>;
    /// Both may be there at once: a partial result.
    using DatabasesHandler = std::function<void(const std::optional<QVRemoteDatabases> &databases,
                                                const std::optional<Error> &error)>;

    virtual ~QVSyncStore();

    /// The location that made this store.
    virtual std::shared_ptr<QVSyncLocation> location() const = 0;
    /// Opens the store; it must be open before anything is fetched.
    virtual std::shared_ptr<PZFuture> openWithCompletionHandler(ErrorHandler handler) = 0;
    /// Reads which databases the store holds.
    virtual std::shared_ptr<PZFuture> fetchDatabasesWithCompletionHandler(
        DatabasesHandler handler) = 0;
    virtual std::shared_ptr<PZFuture> closeWithCompletionHandler(ErrorHandler handler) = 0;
};
