#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <tuple>
#include <utility>

#include "HostCheck/Checking.h"

/// A handler whose calls are counted, with the values of the first one. The count is final once the
/// host has destroyed all copies of the handler, since it cannot call it any more. Handlers are
/// made and their results read on the main thread; the host may call them on any. A host may also
/// call one after this object is destroyed, which does no harm.
template <class... Values>
class Handler {
    /// Shared with the copies of the handler.
    struct Calls {
        std::atomic<int> count = 0;
        std::atomic<int> onMainThread = 0;
        /// Calls on the main thread while the host was being called.
        std::atomic<int> withinCall = 0;
        std::atomic<bool> isCalling = true;
        const std::thread::id mainThread = std::this_thread::get_id();
        /// Guards `values`, the arguments of the first call.
        std::mutex mutex;
        std::optional<std::tuple<Values...>> values;
    };
    /// Wakes the thread that waits for the end of the handler.
    struct Token {
        Token() = default;
        ~Token() { Checking::wakeUp(); }
        Token(const Token &) = delete;
        Token &operator=(const Token &) = delete;
    };

public:
    /// Returns the handler to be passed to the host, whose copies all count as the same one. Must
    /// be called once.
    auto function() {
        return [calls = m_calls, token = std::exchange(m_token, nullptr)](const Values &...values) {
            const bool isOnMainThread = std::this_thread::get_id() == calls->mainThread;
            calls->onMainThread += isOnMainThread ? 1 : 0;
            calls->withinCall += isOnMainThread && calls->isCalling ? 1 : 0;
            if (calls->count == 0) {
                const std::lock_guard lock(calls->mutex);
                calls->values.emplace(values...);
            }
            ++calls->count;
            Checking::wakeUp();
        };
    }
    /// Calls on this thread from now on are within a function of the host.
    void willCall() { m_calls->isCalling = true; }
    /// Calls from now on are not within one, as they are when the handler is made.
    void didReturn() { m_calls->isCalling = false; }

    /// Waits until the handler was called or destroyed. Throws Broken if it is not called.
    void requireCall() {
        didReturn();
        const bool isEnded = Checking::wait([this] { return wasCalled() || m_released.expired(); });
        Checking::require(isEnded && wasCalled(), "a handler was never called");
    }
    /// Waits for the end of all calls. Throws Broken if there is none. A host that keeps the
    /// handler after the call gets the time of an event.
    void requireEnd() {
        requireCall();
        constexpr std::chrono::milliseconds grace(500);
        Checking::wait([&] { return m_released.expired(); }, grace);
    }
    /// Does the same, and throws Broken unless there was exactly one call.
    void requireOneCall() {
        requireEnd();
        Checking::require(m_calls->count == 1, "a handler was called more than once");
    }
    /// Return whether there was a call, one on the main thread, and one on that thread while a
    /// function of the host was being called. May be called at any time.
    bool wasCalled() const { return m_calls->count > 0; }
    bool wasCalledOnMainThread() const { return m_calls->onMainThread > 0; }
    bool wasCalledWithinCall() const { return m_calls->withinCall > 0; }
    /// Returns the values of the first call, after requireCall(). Valid as long as this object.
    const std::tuple<Values...> &values() const { return *m_calls->values; }

private:
    const std::shared_ptr<Calls> m_calls = std::make_shared<Calls>();
    std::shared_ptr<Token> m_token = std::make_shared<Token>();
    const std::weak_ptr<Token> m_released = m_token;
};
