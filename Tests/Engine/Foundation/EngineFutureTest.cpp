#include <latch>
#include <thread>

#include "Engine/Foundation/EngineFuture.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

std::shared_ptr<EngineFuture> newFuture() {
    return std::make_shared<EngineFuture>();
}

}  // namespace

class EngineFutureTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void comesPendingFromItsClass() {
        const TestHost host;
        const auto future = PZFuture::future();
        QVERIFY(future && !future->isCancelled());
        QVERIFY(PZFuture::future() != future);
    }

    void cancellingTwiceIsHarmless() {
        const auto future = newFuture();
        future->cancel();
        future->cancel();
        QVERIFY(future->isCancelled());
    }

    void cancellingReachesWhatIsAttached() {
        const auto future = newFuture();
        const auto attached = newFuture();
        const auto second = newFuture();
        future->cascadeCancellationToFuture(attached);
        future->cascadeCancellationToFuture(second);
        attached->cancel();
        QVERIFY(!future->isCancelled());
        future->cancel();
        QVERIFY(second->isCancelled());
    }

    void attachingToACancelledOneCancelsAtOnce() {
        const auto future = newFuture();
        future->cancel();
        const auto attached = newFuture();
        future->cascadeCancellationToFuture(attached);
        QVERIFY(attached->isCancelled());
        const auto successor = newFuture();
        future->passControlToFuture(successor);
        QVERIFY(successor->isCancelled());
    }

    void cancellingAfterTheEndIsHarmless() {
        const auto future = newFuture();
        future->finish();
        future->cancel();
        QVERIFY(!future->isCancelled());
    }

    void cancellingAFinishedOneStillReachesWhatIsAttached() {
        const auto future = newFuture();
        const auto attached = newFuture();
        future->cascadeCancellationToFuture(attached);
        future->finish();
        future->cancel();
        QVERIFY(attached->isCancelled());
    }

    void afterPassingControlItStandsForTheOtherOperation() {
        const auto future = newFuture();
        const auto attached = newFuture();
        future->cascadeCancellationToFuture(attached);
        future->finish();
        const auto successor = newFuture();
        future->passControlToFuture(successor);
        QVERIFY(!successor->isCancelled());
        future->cancel();
        QVERIFY(successor->isCancelled());
        QVERIFY(future->isCancelled());
        QVERIFY(attached->isCancelled());
    }

    void aRingOfFuturesIsCancelledOnceAndFreed() {
        std::weak_ptr<EngineFuture> watched;
        {
            const auto first = newFuture();
            const auto second = newFuture();
            watched = first;
            first->cascadeCancellationToFuture(second);
            second->passControlToFuture(first);
            first->cascadeCancellationToFuture(first);
            second->cancel();
            QVERIFY(first->isCancelled() && second->isCancelled());
        }
        QVERIFY(watched.expired());
    }

    void attachedFuturesMayDieFirst() {
        const auto future = newFuture();
        future->cascadeCancellationToFuture(newFuture());
        future->cancel();
        QVERIFY(future->isCancelled());
    }

    void everyFutureAttachedWhileOthersCancelIsCancelled() {
        for (int round = 0; round < 200; ++round) {
            const auto future = newFuture();
            const auto first = newFuture();
            const auto second = newFuture();
            std::latch start(3);
            std::thread attaching([&] {
                start.arrive_and_wait();
                future->cascadeCancellationToFuture(first);
            });
            std::thread passing([&] {
                start.arrive_and_wait();
                future->passControlToFuture(second);
            });
            start.arrive_and_wait();
            future->cancel();
            attaching.join();
            passing.join();
            QVERIFY(first->isCancelled() && second->isCancelled());
        }
    }

    void aRingCancelledFromTwoSidesAtOnceIsCancelledAltogether() {
        for (int round = 0; round < 200; ++round) {
            const auto first = newFuture();
            const auto second = newFuture();
            first->cascadeCancellationToFuture(second);
            second->passControlToFuture(first);
            std::latch start(2);
            std::thread other([&] {
                start.arrive_and_wait();
                second->cancel();
            });
            start.arrive_and_wait();
            first->cancel();
            other.join();
            QVERIFY(first->isCancelled() && second->isCancelled());
        }
    }

    void anOperationThatEndsWhileItIsCancelledHandsTheCancellationOn() {
        for (int round = 0; round < 200; ++round) {
            const auto future = newFuture();
            const auto attached = newFuture();
            future->cascadeCancellationToFuture(attached);
            std::latch start(2);
            std::thread ending([&] {
                start.arrive_and_wait();
                future->finish();
            });
            start.arrive_and_wait();
            future->cancel();
            ending.join();
            QVERIFY(attached->isCancelled());
            const bool wasCancelled = future->isCancelled();
            future->cancel();
            QCOMPARE(future->isCancelled(), wasCancelled);
        }
    }

    void whoWaitsForAnAttachedFutureMayLetItGoWhileOthersCancel() {
        for (int round = 0; round < 200; ++round) {
            const auto future = newFuture();
            auto attached = newFuture();
            future->passControlToFuture(attached);
            std::latch start(2);
            std::thread releasing([&] {
                start.arrive_and_wait();
                attached.reset();
            });
            start.arrive_and_wait();
            future->cancel();
            releasing.join();
            QVERIFY(future->isCancelled());
        }
    }
};

VELMORA_TEST(EngineFutureTest)
#include "EngineFutureTest.moc"
