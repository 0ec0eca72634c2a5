#include <QtCore/QThread>
#include <algorithm>
#include <memory>
#include <thread>

#include "Platform/Foundation/CallQueue.h"
#include "Support/TestMain.h"

class CallQueueTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void callsRunOnTheThreadOfTheQueueInTheirOrder() {
        constexpr int Count = 1000;
        CallQueue queue;
        QList<int> calls;
        bool isOnThread = true;
        std::jthread other([&] {
            for (int i = 0; i < Count; ++i) {
                queue.post([&, i] {
                    calls.append(i);
                    isOnThread = isOnThread && QThread::currentThread() == thread();
                });
            }
        });
        QTRY_COMPARE(calls.size(), Count);
        QVERIFY(std::is_sorted(calls.begin(), calls.end()));
        QVERIFY(isOnThread);
    }

    void aCallIsNotRunWithinPost() {
        CallQueue queue;
        bool isCalled = false;
        queue.post([&] { isCalled = true; });
        QVERIFY(!isCalled);
        QTRY_VERIFY(isCalled);
    }

    void aCallMayPostAnother() {
        CallQueue queue;
        int calls = 0;
        queue.post([&] { queue.post([&] { ++calls; }); });
        QTRY_COMPARE(calls, 1);
    }

    void aCallMayDestroyTheQueue() {
        auto queue = std::make_unique<CallQueue>();
        CallQueue &posting = *queue;
        const auto owned = std::make_shared<int>(0);
        posting.post([&] { queue.reset(); });
        posting.post([owned] { QFAIL("This call was dropped."); });
        QTRY_VERIFY(!queue);
        QCOMPARE(owned.use_count(), 1);
    }

    void callsThatHaveNotBegunAreDroppedWithTheQueue() {
        auto queue = std::make_unique<CallQueue>();
        bool isCalled = false;
        const auto owned = std::make_shared<int>(0);
        queue->post([&isCalled, owned] { isCalled = true; });
        queue.reset();
        QCOMPARE(owned.use_count(), 1);
        QCoreApplication::processEvents();
        QVERIFY(!isCalled);
    }
};

VELMORA_TEST(CallQueueTest)
#include "CallQueueTest.moc"
