#pragma once

#include <memory>

#include "Host/ClassRegistry.h"

/// A handle by which an operation under way can be cancelled. Shared; any thread may call anything.
class HOST_EXPORT PZFuture {
public:
    /// Registered as "PZFuture".
    class HOST_EXPORT Class : public HostClass {
    public:
        virtual std::shared_ptr<PZFuture> future() const = 0;
    };
    /// A new, pending future.
    static std::shared_ptr<PZFuture> future();

    virtual ~PZFuture();

    /// Cancels this and whatever is attached to it. Harmless when it is cancelled or finished
    /// already.
    virtual void cancel() = 0;
    virtual bool isCancelled() const = 0;
    /// From now on cancelling this cancels `future` too; at once where this is cancelled already.
    virtual void cascadeCancellationToFuture(const std::shared_ptr<PZFuture> &future) = 0;
    /// This now stands for the operation of `future`: cancelling it cancels that one.
    virtual void passControlToFuture(const std::shared_ptr<PZFuture> &future) = 0;
};
