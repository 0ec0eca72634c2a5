#include "HostCheck/FuturePromises.h"

#include <thread>

#include "Host/PZFuture.h"
#include "HostCheck/Checking.h"

using namespace Checking;

namespace FuturePromises {
namespace {

constexpr char Header[] = "Host/PZFuture.h";

std::shared_ptr<PZFuture> requiredFuture() {
    auto future = PZFuture::future();
    require(future != nullptr, "no future was made");
    return future;
}

void futuresAreNew() {
    const auto future = requiredFuture();
    require(future != requiredFuture(), "the same future is made twice");
    require(!future->isCancelled(), "a new future is cancelled");
}

void cancelledFutureStaysCancelled() {
    const auto future = requiredFuture();
    future->cancel();
    require(future->isCancelled(), "it is not cancelled");
    future->cancel();
    require(future->isCancelled(), "it is not cancelled any more when it is cancelled again");
}

void attachedFutureIsCancelled() {
    const auto future = requiredFuture();
    const auto attached = requiredFuture();
    const auto other = requiredFuture();
    future->cascadeCancellationToFuture(attached);
    future->cascadeCancellationToFuture(other);
    require(!attached->isCancelled(), "attaching a future cancels it");
    future->cancel();
    require(attached->isCancelled() && other->isCancelled(), "an attached future is not cancelled");
}

void ownerIsNotCancelled() {
    const auto future = requiredFuture();
    const auto attached = requiredFuture();
    future->cascadeCancellationToFuture(attached);
    attached->cancel();
    require(!future->isCancelled(),
            "cancelling an attached future cancels that to which it is attached");
}

void lateFutureIsCancelled() {
    const auto future = requiredFuture();
    const auto attached = requiredFuture();
    future->cancel();
    future->cascadeCancellationToFuture(attached);
    require(attached->isCancelled(),
            "a future is not cancelled that is attached to a cancelled one");
}

void attachedFutureIsKept() {
    auto future = requiredFuture();
    auto attached = requiredFuture();
    const std::weak_ptr<PZFuture> kept(attached);
    future->cascadeCancellationToFuture(attached);
    attached = nullptr;
    require(!kept.expired(), "an attached future is not kept alive");
    future = nullptr;
    require(kept.expired(), "an attached future is kept alive too long");
}

void cancelledFutureKeepsNothing() {
    const auto future = requiredFuture();
    auto attached = requiredFuture();
    const std::weak_ptr<PZFuture> released(attached);
    future->cascadeCancellationToFuture(attached);
    future->cancel();
    attached = nullptr;
    require(released.expired(), "a cancelled future keeps an attached one alive");
}

void ringIsReleased() {
    auto first = requiredFuture();
    auto second = requiredFuture();
    const std::weak_ptr<PZFuture> released(first);
    first->cascadeCancellationToFuture(second);
    second->cascadeCancellationToFuture(first);
    first = nullptr;
    second = nullptr;
    if (const auto leaked = released.lock()) {
        leaked->cancel();
        throw Broken{"a ring of futures is never destroyed"};
    }
}

void ringIsCancelled() {
    const auto first = requiredFuture();
    const auto second = requiredFuture();
    first->cascadeCancellationToFuture(second);
    second->cascadeCancellationToFuture(first);
    second->cancel();
    require(first->isCancelled() && second->isCancelled(), "a future of the ring is not cancelled");
}

void controlIsPassed() {
    const auto future = requiredFuture();
    const auto next = requiredFuture();
    future->passControlToFuture(next);
    require(!future->isCancelled() && !next->isCancelled(), "passing control cancels a future");
    future->cancel();
    require(next->isCancelled(), "the future that has control is not cancelled");
}

void cancelledFuturePassesCancellation() {
    const auto future = requiredFuture();
    const auto next = requiredFuture();
    future->cancel();
    future->passControlToFuture(next);
    require(next->isCancelled(), "a cancelled future passes control to one that is not cancelled");
}

void otherThreadsCancel() {
    const auto future = requiredFuture();
    std::thread([&] { future->cancel(); }).join();
    require(future->isCancelled(), "a future is not cancelled from another thread");
}

constexpr HostPromise Promises[] = {
    {"PZFuture.future", Header,
     "Returns a new future that is neither cancelled nor attached to an operation. Never null.",
     &futuresAreNew},
    {"PZFuture.cancel", Header,
     "Cancels this future and every future attached to it; returns without waiting for their "
     "operations to end.",
     &attachedFutureIsCancelled},
    {"PZFuture.cancel (threads)", Header,
     "Every function is thread-safe, returns at once, and may be called from within a handler.",
     &otherThreadsCancel},
    {"PZFuture.isCancelled", Header, "Once true, it stays true.", &cancelledFutureStaysCancelled},
    {"PZFuture.cascadeCancellationToFuture", Header,
     "Attaches `future`: cancelling this future also cancels `future`, but not the reverse.",
     &ownerIsNotCancelled},
    {"PZFuture.cascadeCancellationToFuture (cancelled)", Header,
     "If this future is cancelled already, `future` is cancelled within this call.",
     &lateFutureIsCancelled},
    {"PZFuture.cascadeCancellationToFuture (kept)", Header,
     "The attached future is kept alive until this future is cancelled or destroyed, unless it "
     "already keeps this one alive:",
     &attachedFutureIsKept},
    {"PZFuture.cascadeCancellationToFuture (released)", Header,
     "The attached future is kept alive until this future is cancelled or destroyed",
     &cancelledFutureKeepsNothing},
    {"PZFuture.cascadeCancellationToFuture (ring)", Header,
     "a ring of futures is allowed and does not leak.", &ringIsReleased},
    {"PZFuture.cascadeCancellationToFuture (cancelled ring)", Header,
     "a ring of futures is allowed and does not leak.", &ringIsCancelled},
    {"PZFuture.passControlToFuture", Header,
     "Hands this future over to the operation of `future`, which is attached as above: this future "
     "is pending again if it had finished, and cancelling it cancels that operation.",
     &controlIsPassed},
    {"PZFuture.passControlToFuture (cancelled)", Header,
     "Hands this future over to the operation of `future`, which is attached as above:",
     &cancelledFuturePassesCancellation},
};

}  // namespace

QList<HostPromise> all() {
    return {std::begin(Promises), std::end(Promises)};
}

}  // namespace FuturePromises
