#include "Engine/Foundation/MainThreadQueue.h"

#include <QtCore/QMutex>

namespace {

struct Current {
    QMutex mutex;
    MainThreadQueue *queue = nullptr;
};

Current &current() {
    static Current shared;
    return shared;
}

void setCurrent(MainThreadQueue *queue) {
    const QMutexLocker lock(&current().mutex);
    current().queue = queue;
}

}  // namespace

MainThreadQueue::MainThreadQueue() {
    setCurrent(this);
}

MainThreadQueue::~MainThreadQueue() {
    setCurrent(nullptr);
}

void MainThreadQueue::post(std::function<void()> call) {
    const QMutexLocker lock(&current().mutex);
    if (current().queue) {
        QMetaObject::invokeMethod(current().queue, std::move(call), Qt::QueuedConnection);
    }
}
