#pragma once

#include <memory>
#include <mutex>
#include <vector>

#include "Host/PZFuture.h"

/// A future of the engine. What is attached to it is not kept alive: an operation under way keeps
/// its own.
class EngineFuture : public PZFuture {
public:
    class Class : public PZFuture::Class {
    public:
        std::shared_ptr<PZFuture> future() const override;
    };

    void cancel() override;
    bool isCancelled() const override;
    void cascadeCancellationToFuture(const std::shared_ptr<PZFuture> &future) override;
    void passControlToFuture(const std::shared_ptr<PZFuture> &future) override;

private:
    mutable std::mutex m_mutex;
    bool m_isCancelled = false;
    std::vector<std::weak_ptr<PZFuture>> m_attached;
    std::weak_ptr<PZFuture> m_controlled;
};
