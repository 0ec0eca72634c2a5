#include <sys/syscall.h>

#include <atomic>
#include <future>
#include <latch>
#include <thread>

#include "Engine/Foundation/WorkerThreads.h"
#include "Support/FailingSystemCall.h"
#include "Support/Failure.h"
#include "Support/TestMain.h"

using namespace std::chrono_literals;

class WorkerThreadsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void workRunsOnOtherThreads() {
        std::promise<std::thread::id> thread;
        WorkerThreads threads;
        QVERIFY(threads.start([&] { thread.set_value(std::this_thread::get_id()); }));
        QVERIFY(thread.get_future().get() != std::this_thread::get_id());
    }

    void noWorkDelaysOther() {
        constexpr int Count = 50;
        // Each waits for all others.
        std::latch running(Count);
        WorkerThreads threads;
        for (int i = 0; i < Count; ++i) {
            QVERIFY(threads.start([&] { running.arrive_and_wait(); }));
        }
        QVERIFY(threads.waitForDone(60s));
        QVERIFY(running.try_wait());
    }

    void workCanStartWork() {
        std::atomic<int> started = 0;
        WorkerThreads threads;
        QVERIFY(threads.start([&] {
            ++started;
            static_cast<void>(threads.start([&] { ++started; }));
        }));
        QVERIFY(threads.waitForDone(60s));
        QCOMPARE(started.load(), 2);
    }

    void objectsOfAWorkAreReleasedBeforeItIsDone() {
        WorkerThreads threads;
        auto owned = std::make_shared<int>(0);
        const std::weak_ptr<int> observed = owned;
        QVERIFY(threads.start([owned = std::move(owned)] {}));
        QVERIFY(threads.waitForDone(60s));
        QVERIFY(observed.expired());
    }

    void runningWorkIsNotDone() {
        std::promise<void> released;
        WorkerThreads threads;
        QVERIFY(threads.start([&] { released.get_future().wait(); }));
        QVERIFY(!threads.waitForDone(1ms));
        released.set_value();
        QVERIFY(threads.waitForDone(60s));
        QVERIFY(threads.waitForDone(0ms));
    }

    void workThatGetsNoThreadIsAnError() {
        WorkerThreads threads;
        std::atomic<bool> hasRun = false;
        Expected<void> started;
        runWithFailingSystemCall(SYS_clone3, EAGAIN,
                                 [&] { started = threads.start([&] { hasRun = true; }); });
        QVERIFY(!started);
        QVERIFY(!description(started).isEmpty());
        QVERIFY(threads.waitForDone(0ms));
        QVERIFY(!hasRun);
        QVERIFY(threads.start([&] { hasRun = true; }));
        QVERIFY(threads.waitForDone(60s));
        QVERIFY(hasRun);
    }

    void workThatDoesNotEndIsAbandoned() {
        const auto released = std::make_shared<std::promise<void>>();
        std::promise<void> ended;
        auto threads = std::make_unique<WorkerThreads>();
        QVERIFY(threads->start([future = released->get_future().share(), &ended] {
            future.wait();
            ended.set_value();
        }));
        QVERIFY(!WorkerThreads::isAbandonedWorkRunning());
        threads->end();
        QVERIFY(threads->waitForDone(0ms));
        QVERIFY(WorkerThreads::isAbandonedWorkRunning());
        std::atomic<bool> hasRun = false;
        QVERIFY(threads->start([&] { hasRun = true; }));
        QVERIFY(threads->waitForDone(60s));
        QVERIFY(hasRun);
        threads.reset();
        released->set_value();
        ended.get_future().wait();
        QTRY_VERIFY(!WorkerThreads::isAbandonedWorkRunning());
    }
};

VELMORA_TEST(WorkerThreadsTest)
#include "WorkerThreadsTest.moc"
