#include "Engine/Foundation/EngineFuture.h"

#include <utility>

void EngineFuture::cancel() {
    Attached attached;
    {
        const std::lock_guard lock(m_mutex);
        if (m_isCancelled) {
            return;
        }
        m_isCancelled = !m_isFinished;
        attached.swap(m_attached);
    }
    for (const std::weak_ptr<PZFuture> &future : attached) {
        if (const std::shared_ptr<PZFuture> living = future.lock()) {
            living->cancel();
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
        m_isFinished = false;
    }
    cascadeCancellationToFuture(future);
}

void EngineFuture::finish() {
    const std::lock_guard lock(m_mutex);
    m_isFinished = true;
}
