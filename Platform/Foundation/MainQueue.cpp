#include "Platform/Foundation/MainQueue.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QMutex>
#include <QtCore/QThread>
#include <deque>

namespace {

/// Lives on the main thread. The events it gets carry nothing: each stands for one queued block.
class Runner : public QObject {
public:
    Runner() { moveToThread(QCoreApplication::instance()->thread()); }

    void append(std::function<void()> block) {
        {
            const QMutexLocker lock(&m_mutex);
            m_blocks.push_back(std::move(block));
        }
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }

protected:
    void customEvent(QEvent * /*event*/) override {
        std::function<void()> block;
        {
            const QMutexLocker lock(&m_mutex);
            block = std::move(m_blocks.front());
            m_blocks.pop_front();
        }
        block();
    }

private:
    QMutex m_mutex;
    std::deque<std::function<void()>> m_blocks;
};

}  // namespace

void MainQueue::dispatchAsync(std::function<void()> block) {
    // Never destroyed: threads may still use it while the process ends.
    static auto &runner = *new Runner;
    runner.append(std::move(block));
}
