#pragma once

#include <functional>
#include <memory>

#include "Platform/PlatformExport.h"

/// Counts work under way and tells when none is left. A handle: copies stand for the same group.
/// Any thread.
class PLATFORM_EXPORT DispatchGroup {
public:
    DispatchGroup();

    /// Each `enter` is answered by one `leave`, from any thread.
    void enter() const;
    void leave() const;
    /// Queues `block` on the main queue as work of this group.
    void dispatchAsync(std::function<void()> block) const;
    /// Queues `block` on the main queue as soon as no work is under way. Called once for a group.
    void notify(std::function<void()> block) const;

private:
    struct State;
    std::shared_ptr<State> m_state;
};
