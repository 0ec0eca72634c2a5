#pragma once

#include <mutex>
#include <vector>

#include "Host/PZFuture.h"

/// What is attached is held weakly: whoever runs an operation keeps its future alive until the
/// operation has ended, so that futures attached to each other neither leak nor cancel for ever.
/// No lock is held while another future is called.
class EngineFuture : public PZFuture {
public:
    void cancel() override;
    /// Whether this one was cancelled before its operation had ended.
    bool isCancelled() const override;
    void cascadeCancellationToFuture(const std::shared_ptr<PZFuture> &future) override;
    void passControlToFuture(const std::shared_ptr<PZFuture> &future) override;

    /// The operation has ended by itself: from now on cancelling is harmless.
    void finish();

private:
    using Attached = std::vector<std::weak_ptr<PZFuture>>;

    mutable std::mutex m_mutex;
    bool m_isCancelled = false;
    bool m_isFinished = false;
    Attached m_attached;
};
