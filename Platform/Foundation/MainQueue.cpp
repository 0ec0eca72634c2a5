#include "Platform/Foundation/MainQueue.h"

#include <QtCore/QCoreApplication>

#include "Platform/Foundation/CallQueue.h"

namespace {

CallQueue *newQueue() {
    auto *queue = new CallQueue;
    queue->moveToThread(QCoreApplication::instance()->thread());
    return queue;
}

}  // namespace

void MainQueue::dispatchAsync(std::function<void()> block) {
    // Never destroyed: threads may still use it while the process ends.
    static auto &queue = *newQueue();
    queue.post(std::move(block));
}
