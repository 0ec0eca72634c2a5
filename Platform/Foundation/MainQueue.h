#pragma once

#include <functional>

#include "Platform/PlatformExport.h"

/// A queue of blocks that run on the application's main thread, one after the other, in the order
/// in which they were queued.
namespace MainQueue {

/// Queues `block`; it runs from the event loop, never within this call. Thread-safe, while an
/// application object exists.
PLATFORM_EXPORT void dispatchAsync(std::function<void()> block);

}  // namespace MainQueue
