#include <array>
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

    void onlyAnOperationThatRunsIsOverdue() {
        const auto running = newFuture();
        const auto attached = newFuture();
        running->cascadeCancellationToFuture(attached);
        running->cancelOverdue();
        QVERIFY(running->isCancelled() && running->isOverdue());
        QVERIFY(attached->isCancelled() && !attached->isOverdue());
        const auto cancelled = newFuture();
        cancelled->cancel();
        cancelled->cancelOverdue();
        QVERIFY(!cancelled->isOverdue());
        const auto finished = newFuture();
        const auto other = newFuture();
        finished->cascadeCancellationToFuture(other);
        finished->finish();
        finished->cancelOverdue();
        QVERIFY(!finished->isCancelled() && !finished->isOverdue());
        QVERIFY(!other->isCancelled());
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

    void aRingOfFuturesIsFreedWithoutBeingCancelled() {
        std::weak_ptr<EngineFuture> watched;
        std::weak_ptr<EngineFuture> last;
        {
            const auto first = newFuture();
            const auto second = newFuture();
            const auto third = newFuture();
            watched = first;
            last = third;
            first->cascadeCancellationToFuture(first);
            first->cascadeCancellationToFuture(second);
            second->cascadeCancellationToFuture(third);
            third->passControlToFuture(first);
        }
        QVERIFY(watched.expired());
        QVERIFY(last.expired());
    }

    void everyFutureOfARingCancelsTheOthers() {
        for (int i = 0; i < 3; ++i) {
            const std::array ring{newFuture(), newFuture(), newFuture()};
            ring[0]->cascadeCancellationToFuture(ring[1]);
            ring[1]->cascadeCancellationToFuture(ring[2]);
            ring[2]->cascadeCancellationToFuture(ring[0]);
            ring[static_cast<size_t>(i)]->cancel();
            QVERIFY(ring[0]->isCancelled() && ring[1]->isCancelled() && ring[2]->isCancelled());
        }
    }

    void attachedFuturesLiveUntilTheyAreCancelled() {
        const auto future = newFuture();
        const auto operation = newFuture();
        std::weak_ptr<EngineFuture> watched;
        {
            const auto between = newFuture();
            watched = between;
            between->cascadeCancellationToFuture(operation);
            future->cascadeCancellationToFuture(between);
        }
        QVERIFY(!watched.expired());
        future->cancel();
        QVERIFY(operation->isCancelled());
        QVERIFY(watched.expired());
    }

    void attachedFuturesDieWithTheOneTheyAreAttachedTo() {
        auto future = newFuture();
        const std::weak_ptr<EngineFuture> watched = [&] {
            const auto attached = newFuture();
            future->passControlToFuture(attached);
            return attached;
        }();
        QVERIFY(!watched.expired());
        future.reset();
        QVERIFY(watched.expired());
    }

    void finishedFuturesAreReleasedWhenTheNextIsAttached() {
        const auto future = newFuture();
        const std::weak_ptr<EngineFuture> watched = [&] {
            const auto attached = newFuture();
            future->cascadeCancellationToFuture(attached);
            attached->finish();
            return attached;
        }();
        future->passControlToFuture(newFuture());
        QVERIFY(watched.expired());
    }

    void aCallbackRunsOnceOnTheThreadThatCancels() {
        const auto future = newFuture();
        const auto attached = newFuture();
        future->cascadeCancellationToFuture(attached);
        QList<std::thread::id> callers;
        const std::stop_callback registration(attached->cancellation(),
                                              [&] { callers.append(std::this_thread::get_id()); });
        QVERIFY(callers.isEmpty());
        std::thread::id canceller;
        std::thread cancelling([&] {
            canceller = std::this_thread::get_id();
            future->cancel();
            future->cancel();
        });
        cancelling.join();
        QCOMPARE(callers.size(), 1);
        QVERIFY(callers.first() == canceller);
    }

    void aCallbackRunsAtOnceIfTheFutureIsCancelledAlready() {
        const auto future = newFuture();
        future->cancel();
        bool hasRun = false;
        const std::stop_callback registration(future->cancellation(), [&] { hasRun = true; });
        QVERIFY(hasRun);
    }

    void aCallbackDoesNotRunAfterItsRegistrationHasEnded() {
        const auto future = newFuture();
        bool hasRun = false;
        {
            const std::stop_callback registration(future->cancellation(), [&] { hasRun = true; });
        }
        future->cancel();
        QVERIFY(!hasRun);
    }

    void aCallbackDoesNotRunOnceTheOperationHasFinished() {
        const auto future = newFuture();
        bool hasRun = false;
        const std::stop_callback registration(future->cancellation(), [&] { hasRun = true; });
        future->finish();
        future->cancel();
        QVERIFY(!hasRun);
        future->passControlToFuture(newFuture());
        future->cancel();
        QVERIFY(hasRun);
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

    void aWaitingThreadMayReleaseAnAttachedFutureWhileOthersCancel() {
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
