#pragma once

#include <functional>
#include <memory>

#include "Platform/PlatformExport.h"

/// Counts running work and calls a block when none is left. Copies share the same group, which
/// lives as long as one of them or a queued block. Thread-safe. The blocks run on the main thread,
/// from its event loop, never within a call of these functions.
class PLATFORM_EXPORT DispatchGroup {
public:
    /// Creates a new group without work.
    DispatchGroup();

    /// Adds one unit of work. Each call must be balanced by one leave(), on any thread. If one is
    /// missing, the block of notify() is never called; if there is one too many, the count becomes
    /// negative, with the same result.
    void enter() const;
    /// Removes one unit of work, and queues the block of notify() if it was the last one.
    void leave() const;
    /// Queues `block` on the main queue. It counts as work of this group until it has returned.
    /// `block` must not be empty. If it throws, the work does not end.
    void dispatchAsync(std::function<void()> block) const;
    /// Queues `block` on the main queue as soon as there is no work, at once if there is none now.
    /// It is called once. A second call before that replaces the block. Work that is added between
    /// queuing and calling the block does not delay it. An empty block removes the present one.
    void notify(std::function<void()> block) const;

private:
    struct State;
    std::shared_ptr<State> m_state;
};
