#pragma once

#include <memory>

#include "Host/ClassRegistry.h"

/// A handle through which an operation can be cancelled. It carries no result: results go to the
/// handler of the operation. Shared ownership; releasing a future does not cancel its operation.
/// Every function is thread-safe, returns at once, and may be called from within a handler.
class HOST_EXPORT PZFuture {
public:
    /// The class object, see HostClass.
    class HOST_EXPORT Class : public HostClass {
    public:
        /// The name under which a host registers the class object.
        static constexpr QLatin1StringView Name{"PZFuture"};
        /// Implements PZFuture::future().
        virtual std::shared_ptr<PZFuture> future() const = 0;
    };
    /// Returns a new future that is neither cancelled nor attached to an operation. Never null.
    /// Raises an AssertionFailure if the host has no class "PZFuture".
    static std::shared_ptr<PZFuture> future();

    virtual ~PZFuture();

    /// Cancels this future and every future attached to it; returns without waiting for their
    /// operations to end. An operation that is cancelled still calls its handler once, with an
    /// error that says so, but not from within this call. Idempotent; has no effect on the own
    /// operation of a future that has finished.
    virtual void cancel() = 0;
    /// Returns whether cancel() was called before the operation had finished. Once true, it stays
    /// true.
    virtual bool isCancelled() const = 0;
    /// Attaches `future`: cancelling this future also cancels `future`, but not the reverse. If
    /// this future is cancelled already, `future` is cancelled within this call. The attached
    /// future is kept alive until this future is cancelled or destroyed, unless it already keeps
    /// this one alive: a ring of futures is allowed and does not leak. A host may release it as
    /// soon as it has finished. `future` must not be null.
    virtual void cascadeCancellationToFuture(const std::shared_ptr<PZFuture> &future) = 0;
    /// Hands this future over to the operation of `future`, which is attached as above: this future
    /// is pending again if it had finished, and cancelling it cancels that operation. `future` must
    /// not be null.
    virtual void passControlToFuture(const std::shared_ptr<PZFuture> &future) = 0;
};
