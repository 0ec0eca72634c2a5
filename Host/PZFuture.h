#pragma once

#include <memory>

#include "Host/ClassRegistry.h"

/// A handle that cancels an operation in progress. Has shared ownership. Thread-safe. A future must
/// not be null where one is passed.
class HOST_EXPORT PZFuture {
public:
    /// Registered as "PZFuture".
    class HOST_EXPORT Class : public HostClass {
    public:
        virtual std::shared_ptr<PZFuture> future() const = 0;
    };
    /// Returns a new, pending future.
    static std::shared_ptr<PZFuture> future();

    virtual ~PZFuture();

    /// Cancels this future and the futures attached to it. Returns without waiting for their
    /// operations to end. Has no effect on a future that is cancelled already, and none on the own
    /// operation of one that has finished.
    virtual void cancel() = 0;
    virtual bool isCancelled() const = 0;
    /// Attaches `future`: cancelling this future cancels it too. If this future is cancelled
    /// already, `future` is cancelled within this call. The attached future is kept alive until
    /// this future is cancelled or destroyed or `future` has finished, unless it already keeps
    /// this one alive.
    virtual void cascadeCancellationToFuture(const std::shared_ptr<PZFuture> &future) = 0;
    /// Hands this future over to the operation of `future`, which is attached as above: this future
    /// is pending again if it had finished, and cancelling it cancels that operation.
    virtual void passControlToFuture(const std::shared_ptr<PZFuture> &future) = 0;
};
