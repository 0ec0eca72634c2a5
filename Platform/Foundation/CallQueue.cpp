#include "Platform/Foundation/CallQueue.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <mutex>
#include <utility>

namespace {

/// Guards the calls of all queues, so that it exists before any of them. It is held for a few
/// instructions only.
std::mutex mutex;

}  // namespace

CallQueue::CallQueue(QObject *parent) : QObject(parent) {}

CallQueue::~CallQueue() {
    std::deque<std::function<void()>> dropped;
    const std::lock_guard lock(mutex);
    dropped.swap(m_calls);
}

void CallQueue::post(std::function<void()> call) {
    {
        const std::lock_guard lock(mutex);
        m_calls.push_back(std::move(call));
    }
    // The event carries nothing: it stands for one call.
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

void CallQueue::customEvent(QEvent * /*event*/) {
    std::function<void()> call;
    {
        const std::lock_guard lock(mutex);
        call = std::move(m_calls.front());
        m_calls.pop_front();
    }
    call();
}
