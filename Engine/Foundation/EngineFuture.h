#pragma once

#include <QtCore/QtGlobal>
#include <atomic>
#include <mutex>
#include <optional>
#include <stop_token>
#include <vector>

#include "Host/PZFuture.h"
#include "Platform/Foundation/Error.h"

/// The engine's future: cancels the operation that it stands for and the futures attached to it. An
/// operation observes its cancellation without polling through `cancellation()`. Must be owned by a
/// std::shared_ptr if it is attached to another future. Thread-safe. No lock is held while another
/// future or a callback is called; one lock, held for a short time, guards all futures of the
/// process.
class EngineFuture : public PZFuture {
public:
    /// Cancels this future unless its operation has finished, and in any case the attached ones.
    /// The callbacks registered with `cancellation()` run before the attached futures are
    /// cancelled. Idempotent. Returns when the callbacks have run on this thread; does not wait for
    /// the operation. It may be called within a callback.
    void cancel() override;
    /// Returns whether this future was cancelled before its operation finished. Fast, so loops may
    /// call it in each step.
    bool isCancelled() const override;
    /// Shares the ownership of `future` until this future is cancelled or, at the latest,
    /// destroyed; finished futures are released earlier. If `future` is this future or already
    /// keeps it alive, it is attached without ownership, so that rings are freed. If this future is
    /// cancelled already, `future` is cancelled within this call and not kept. O(n) for all futures
    /// that `future` keeps alive. `future` must not be null, and must be owned by a
    /// std::shared_ptr.
    void cascadeCancellationToFuture(const std::shared_ptr<PZFuture> &future) override;
    /// Attaches `future` as `cascadeCancellationToFuture` does. If this future's own operation had
    /// finished, this future can be cancelled again. A future that was cancelled stays so.
    void passControlToFuture(const std::shared_ptr<PZFuture> &future) override;

    /// Marks the operation as finished: `isCancelled` does not change any more and no callback
    /// runs, unless control is passed to another future. Futures attached to this one are still
    /// cancelled with it. Must be called by the operation itself, before its handler, so that a
    /// late cancel() has no effect on what the handler reports. Idempotent. Returns whether it was
    /// not cancelled before.
    bool finish();

    /// Adds `count` to the progress of the operation: what it has received and verified, so that a
    /// server cannot fake it by sending slowly. The unit is a record of a database; a measured
    /// folder counts as several. Called by the operation itself, which may have access to this
    /// future only to observe its cancellation.
    void advance(qint64 count) const { m_progress += count; }
    /// Returns the sum of the progress so far; 0 if the operation reports none.
    qint64 progress() const { return m_progress; }
    /// Cancels this future because its operation takes too long, unless it has finished or was
    /// cancelled before.
    void cancelOverdue();
    /// Returns whether cancelOverdue() has cancelled this future. Its operation then reports that
    /// it took too long instead of that it was cancelled.
    bool isOverdue() const;
    /// Cancels this future because its operation cannot be started for `reason`, which the
    /// operation then reports.
    void cancelUnstarted(const Error &reason);
    /// Returns the reason with which cancelUnstarted() was called; empty if it was not.
    std::optional<Error> startFailure() const;

    /// Returns the token that is notified when this future is cancelled. A std::stop_callback made
    /// with it runs its function exactly once: in `cancel`, on the thread that calls it, or at once
    /// in its constructor if this future is cancelled already. It must return soon and must not
    /// throw. Its destructor unregisters the function and waits for it if it runs on another
    /// thread, so it must not be destroyed with a lock held that the function needs. The token may
    /// outlive this future. See CancellableWait for waiting.
    std::stop_token cancellation() const { return m_cancellation.get_token(); }

private:
    /// A future attached to this one.
    struct Attachment {
        /// Null if the future is not owned.
        std::shared_ptr<PZFuture> owned;
        std::weak_ptr<PZFuture> future;
    };
    using Attachments = std::vector<Attachment>;

    void attach(const std::shared_ptr<PZFuture> &future);
    bool keepsAlive(const EngineFuture &other) const;
    bool hasNothingToCancel() const;

    const std::stop_source m_cancellation;
    bool m_isCancelled = false;
    bool m_isFinished = false;
    bool m_isOverdue = false;
    std::optional<Error> m_startFailure;
    mutable std::atomic<qint64> m_progress = 0;
    Attachments m_attachments;
};
