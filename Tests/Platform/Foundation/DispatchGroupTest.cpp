#include "Platform/Foundation/DispatchGroup.h"

#include <thread>

#include "Platform/Foundation/MainQueue.h"
#include "Support/TestMain.h"

class DispatchGroupTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void blocksOfTheMainQueueRunLaterInTheirOrder() {
        QList<int> order;
        MainQueue::dispatchAsync([&] { order.append(1); });
        MainQueue::dispatchAsync([&] {
            order.append(2);
            MainQueue::dispatchAsync([&] { order.append(4); });
        });
        MainQueue::dispatchAsync([&] { order.append(3); });
        QVERIFY(order.isEmpty());
        QTRY_COMPARE(order, QList<int>({1, 2, 3, 4}));
    }

    void blocksFromOtherThreadsRunOnTheMainThread() {
        QThread *ranOn = nullptr;
        std::thread([&] {
            MainQueue::dispatchAsync([&] { ranOn = QThread::currentThread(); });
        }).join();
        QTRY_COMPARE(ranOn, QCoreApplication::instance()->thread());
    }

    void anEmptyGroupNotifiesFromTheMainQueue() {
        bool isNotified = false;
        const DispatchGroup group;
        group.notify([&] { isNotified = true; });
        QVERIFY(!isNotified);
        QTRY_VERIFY(isNotified);
    }

    void aGroupNotifiesOnceAfterAllItsWork() {
        int notified = 0;
        QList<int> order;
        const DispatchGroup group;
        group.enter();
        group.enter();
        group.dispatchAsync([&] { order.append(1); });
        group.notify([&] {
            ++notified;
            order.append(2);
        });
        group.leave();
        QTRY_COMPARE(order, QList<int>{1});
        std::thread([&] { group.leave(); }).join();
        QTRY_COMPARE(order, QList<int>({1, 2}));
        QCoreApplication::processEvents();
        QCOMPARE(notified, 1);
    }

    void workOfManyThreadsIsAwaited() {
        constexpr int count = 8;
        std::atomic<int> done = 0;
        int doneAtNotification = -1;
        const DispatchGroup group;
        std::vector<std::thread> threads;
        for (int i = 0; i < count; ++i) {
            group.enter();
            threads.emplace_back([&, group] {
                ++done;
                group.leave();
            });
        }
        group.notify([&] { doneAtNotification = done; });
        for (std::thread &thread : threads) {
            thread.join();
        }
        QTRY_COMPARE(doneAtNotification, count);
    }
};

VELMORA_TEST(DispatchGroupTest)
#include "DispatchGroupTest.moc"
