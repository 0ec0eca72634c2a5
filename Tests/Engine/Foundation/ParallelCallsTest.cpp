#include "Engine/Foundation/ParallelCalls.h"

#include <QtTest/QTest>
#include <barrier>
#include <mutex>
#include <set>
#include <thread>

#include "Support/TestMain.h"

class ParallelCallsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void eachNumberIsUsedOnce_data() {
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("most");
        QTest::newRow("none") << 0 << 8;
        QTest::newRow("fewer than threads") << 3 << 8;
        QTest::newRow("more than threads") << 1000 << 8;
        QTest::newRow("one at a time") << 10 << 1;
    }
    void eachNumberIsUsedOnce() {
        QFETCH(int, count);
        QFETCH(int, most);
        std::mutex mutex;
        QList<qsizetype> numbers;
        ParallelCalls::run(count, most, [&](qsizetype number) {
            const std::lock_guard lock(mutex);
            numbers.append(number);
        });
        if (most > 1) {
            std::sort(numbers.begin(), numbers.end());
        }
        QList<qsizetype> expected(count);
        std::iota(expected.begin(), expected.end(), 0);
        QCOMPARE(numbers, expected);
    }

    void callsRunAtTheSameTime() {
        constexpr int atOnce = 8;
        std::mutex mutex;
        std::set<std::thread::id> threads;
        // Each call waits until eight have begun.
        std::barrier barrier(atOnce);
        ParallelCalls::run(2 * atOnce, atOnce, [&](qsizetype) {
            barrier.arrive_and_wait();
            const std::lock_guard lock(mutex);
            threads.insert(std::this_thread::get_id());
        });
        QCOMPARE(threads.size(), size_t(atOnce));
        QVERIFY(threads.contains(std::this_thread::get_id()));
    }

    void oneAtATimeNeedsNoThread() {
        std::set<std::thread::id> threads;
        ParallelCalls::run(5, 1, [&](qsizetype) { threads.insert(std::this_thread::get_id()); });
        QCOMPARE(threads, std::set{std::this_thread::get_id()});
    }
};

VELMORA_TEST(ParallelCallsTest)
#include "ParallelCallsTest.moc"
