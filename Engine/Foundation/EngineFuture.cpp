#include "Engine/Foundation/EngineFuture.h"

#include <algorithm>
#include <utility>

namespace {

/// Guards the members of all futures, since looking for rings visits several of them. It is held
/// for a few instructions only.
std::mutex mutex;

}  // namespace

void EngineFuture::cancel() {
    Attachments attachments;
    bool isCancelledNow = false;
    {
        const std::lock_guard lock(mutex);
        isCancelledNow = !m_isCancelled && !m_isFinished;
        m_isCancelled = m_isCancelled || isCancelledNow;
        attachments.swap(m_attachments);
    }
    if (isCancelledNow) {
        m_cancellation.request_stop();
    }
    for (const Attachment &attachment : attachments) {
        if (const std::shared_ptr<PZFuture> future = attachment.future.lock()) {
            future->cancel();
        }
    }
}

bool EngineFuture::isCancelled() const {
    const std::lock_guard lock(mutex);
    return m_isCancelled;
}

void EngineFuture::cascadeCancellationToFuture(const std::shared_ptr<PZFuture> &future) {
    {
        const std::lock_guard lock(mutex);
        if (!m_isCancelled) {
            attach(future);
            return;
        }
    }
    future->cancel();
}

void EngineFuture::passControlToFuture(const std::shared_ptr<PZFuture> &future) {
    {
        const std::lock_guard lock(mutex);
        m_isFinished = false;
    }
    cascadeCancellationToFuture(future);
}

void EngineFuture::cancelOverdue() {
    {
        const std::lock_guard lock(mutex);
        if (m_isFinished) {
            return;
        }
        m_isOverdue = m_isOverdue || !m_isCancelled;
    }
    cancel();
}

bool EngineFuture::isOverdue() const {
    const std::lock_guard lock(mutex);
    return m_isOverdue;
}

void EngineFuture::cancelUnstarted(const Error &reason) {
    {
        const std::lock_guard lock(mutex);
        m_startFailure = reason;
    }
    cancel();
}

std::optional<Error> EngineFuture::startFailure() const {
    const std::lock_guard lock(mutex);
    return m_startFailure;
}

bool EngineFuture::finish() {
    const std::lock_guard lock(mutex);
    m_isFinished = true;
    return !m_isCancelled;
}

void EngineFuture::attach(const std::shared_ptr<PZFuture> &future) {
    std::erase_if(m_attachments, [](const Attachment &attachment) {
        const auto *const ours = dynamic_cast<const EngineFuture *>(attachment.owned.get());
        return attachment.future.expired() || (ours && ours->hasNothingToCancel());
    });
    const auto *const ours = dynamic_cast<const EngineFuture *>(future.get());
    const bool wouldCloseARing = ours && ours->keepsAlive(*this);
    m_attachments.push_back({wouldCloseARing ? nullptr : future, future});
}

bool EngineFuture::keepsAlive(const EngineFuture &other) const {
    return this == &other ||
           std::any_of(m_attachments.begin(), m_attachments.end(),
                       [&](const Attachment &attachment) {
                           const auto *const ours =
                               dynamic_cast<const EngineFuture *>(attachment.owned.get());
                           return ours && ours->keepsAlive(other);
                       });
}

bool EngineFuture::hasNothingToCancel() const {
    return (m_isFinished || m_isCancelled) && m_attachments.empty();
}
