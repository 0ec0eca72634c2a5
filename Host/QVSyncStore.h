#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "Host/PZFuture.h"
#include "Host/QVRemoteDatabase.h"
#include "Platform/Foundation/Error.h"

class QVSyncLocation;

/// Gives access to the contents of a location. Shared ownership; a store keeps itself alive until
/// its running operations have ended.
///
/// Every operation returns its future at once and runs on a worker thread. Its handler, which must
/// not be empty, is called there exactly once, possibly before the operation has returned its
/// future. If the future is cancelled, the handler receives an error that says so. If the system
/// cannot start a thread, the handler receives an error on the main thread. Handlers may start
/// other operations but must not wait for the main thread, which waits for them when the host
/// closes its profile. Every function is thread-safe, but operations of one store should follow
/// each other: closing neither waits for nor cancels an operation that is running.
///
/// A store that needs a user name and a password uses those that UrlCredentialStorage::shared() has
/// for its address, in which the pane stores them. It sends a password in a way that others on the
/// network can read only if UnencryptedPasswords::areAccepted().
class HOST_EXPORT QVSyncStore {
public:
    /// Receives the error, or std::nullopt if the operation succeeded.
    using ErrorHandler = std::function<void(const std::optional<Error> &error)>;
    /// Receives the databases, or an error, or both: then the result is partial, and the error says
    /// why the first of the missing databases could not be read.
    using DatabasesHandler = std::function<void(const std::optional<QVRemoteDatabases> &databases,
                                                const std::optional<Error> &error)>;

    virtual ~QVSyncStore();

    /// Returns the location that created this store. Never null. The store uses the address that
    /// the location had at that time.
    virtual std::shared_ptr<QVSyncLocation> location() const = 0;
    /// Opens the store: checks that it can be reached and used. May ask the user, for example about
    /// a certificate. A store that failed to open is not open and may be opened again, as may one
    /// that was closed. A store that is open may be opened again: it stays open unless this fails.
    /// If the store is closed while this runs, it is open again if this succeeds.
    virtual std::shared_ptr<PZFuture> openWithCompletionHandler(ErrorHandler handler) = 0;
    /// Reads the list of databases in the store. Fails if the store is not open, also after it was
    /// closed. Changes nothing in the store.
    virtual std::shared_ptr<PZFuture> fetchDatabasesWithCompletionHandler(
        DatabasesHandler handler) = 0;
    /// Closes the store. Succeeds also if the store is not open. Optional: a store that is released
    /// while it is open leaves nothing behind.
    virtual std::shared_ptr<PZFuture> closeWithCompletionHandler(ErrorHandler handler) = 0;
};
