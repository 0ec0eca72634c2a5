#include "Engine/EngineFuture.h"

std::shared_ptr<PZFuture> EngineFuture::Class::future() const {
    return std::make_shared<EngineFuture>();
}

// Others are called without the mutex held: they may lead back here.
void EngineFuture::cancel() {
    std::vector<std::weak_ptr<PZFuture>> attached;
    {
        const std::lock_guard lock(m_mutex);
        if (m_isCancelled) {
            return;
        }
        m_isCancelled = true;
        attached.swap(m_attached);
        attached.push_back(m_controlled);
    }
    for (const auto &weak : attached) {
        if (const auto future = weak.lock()) {
            future->cancel();
        }
    }
}

bool EngineFuture::isCancelled() const {
    const std::lock_guard lock(m_mutex);
    return m_isCancelled;
}

void EngineFuture::cascadeCancellationToFuture(const std::shared_ptr<PZFuture> &future) {
    {
        const std::lock_guard lock(m_mutex);
        if (!m_isCancelled) {
            m_attached.push_back(future);
            return;
        }
    }
    future->cancel();
}

void EngineFuture::passControlToFuture(const std::shared_ptr<PZFuture> &future) {
    {
        const std::lock_guard lock(m_mutex);
        m_controlled = future;
        if (!m_isCancelled) {
            return;
        }
    }
    future->cancel();
}
