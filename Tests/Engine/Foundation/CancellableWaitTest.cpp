#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <future>

#include "Engine/Foundation/CancellableWait.h"
#include "Support/TestMain.h"

namespace {

/// Longer than a test may take: a wait that ends was ended by its event.
constexpr std::chrono::hours Long(1);

class Pipe {
public:
    Pipe() { m_isOpen = pipe2(m_ends.data(), O_CLOEXEC) == 0; }
    ~Pipe() {
        close(m_ends[0]);
        close(m_ends[1]);
    }
    Pipe(const Pipe &) = delete;
    Pipe &operator=(const Pipe &) = delete;
    bool isOpen() const { return m_isOpen; }
    int readingEnd() const { return m_ends[0]; }
    bool write() const { return ::write(m_ends[1], "x", 1) == 1; }

private:
    std::array<int, 2> m_ends{-1, -1};
    bool m_isOpen = false;
};

}  // namespace

class CancellableWaitTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aConditionEndsTheWait() {
        const EngineFuture future;
        std::mutex mutex;
        std::condition_variable_any changed;
        bool isDone = false;
        auto result = std::async(std::launch::async, [&] {
            std::unique_lock lock(mutex);
            return CancellableWait(future, QDeadlineTimer(Long)).until(changed, lock, [&] {
                return isDone;
            });
        });
        {
            const std::lock_guard lock(mutex);
            isDone = true;
        }
        changed.notify_all();
        QVERIFY(result.get());
    }

    void cancellingEndsTheWaitForACondition_data() { addDeadlines(); }
    void cancellingEndsTheWaitForACondition() {
        QFETCH(const QDeadlineTimer, deadline);
        EngineFuture future;
        std::mutex mutex;
        std::condition_variable_any changed;
        auto result = std::async(std::launch::async, [&] {
            std::unique_lock lock(mutex);
            return CancellableWait(future, deadline).until(changed, lock, [] { return false; });
        });
        future.cancel();
        QVERIFY(!result.get());
    }

    void theDeadlineEndsEveryWait() {
        const EngineFuture future;
        const Pipe pipe;
        QVERIFY(pipe.isOpen());
        const CancellableWait wait(future, QDeadlineTimer(1));
        std::mutex mutex;
        std::unique_lock lock(mutex);
        std::condition_variable_any changed;
        QVERIFY(!wait.until(changed, lock, [] { return false; }));
        QVERIFY(!wait.forDescriptor(pipe.readingEnd(), POLLIN));
        QVERIFY(wait.forDeadline());
    }

    void aReadyDescriptorEndsTheWait() {
        const EngineFuture future;
        const Pipe pipe;
        QVERIFY(pipe.isOpen());
        auto result = std::async(std::launch::async, [&] {
            return CancellableWait(future, QDeadlineTimer(Long))
                .forDescriptor(pipe.readingEnd(), POLLIN);
        });
        QVERIFY(pipe.write());
        QVERIFY(result.get());
    }

    void cancellingEndsTheWaitForADescriptor_data() { addDeadlines(); }
    void cancellingEndsTheWaitForADescriptor() {
        QFETCH(const QDeadlineTimer, deadline);
        EngineFuture future;
        const Pipe pipe;
        QVERIFY(pipe.isOpen());
        auto result = std::async(std::launch::async, [&] {
            return CancellableWait(future, deadline).forDescriptor(pipe.readingEnd(), POLLIN);
        });
        future.cancel();
        QVERIFY(!result.get());
    }

    void cancellingEndsTheWaitForTheDeadline() {
        EngineFuture future;
        auto result = std::async(std::launch::async, [&] {
            return CancellableWait(future, QDeadlineTimer(Long)).forDeadline();
        });
        future.cancel();
        QVERIFY(!result.get());
    }

    void aCancelledFutureIsNotWaitedFor() {
        EngineFuture future;
        future.cancel();
        const Pipe pipe;
        QVERIFY(pipe.isOpen() && pipe.write());
        const CancellableWait wait(future, QDeadlineTimer(Long));
        QVERIFY(!wait.forDescriptor(pipe.readingEnd(), POLLIN));
        QVERIFY(!wait.forDeadline());
    }

private:
    static void addDeadlines() {
        QTest::addColumn<QDeadlineTimer>("deadline");
        QTest::newRow("an hour") << QDeadlineTimer(Long);
        QTest::newRow("none") << QDeadlineTimer(QDeadlineTimer::Forever);
    }
};

VELMORA_TEST(CancellableWaitTest)
#include "CancellableWaitTest.moc"
