#pragma once

#include <functional>

#include "Platform/PlatformExport.h"

/// A queue of blocks that run on the application's main thread, one after the other, in the order
/// in which they were queued.
namespace MainQueue {

/// Queues `block`, which must not be empty; it runs from the event loop, never within this call,
/// and also in a nested event loop. Returns at once. Blocks that have not run when the event loop
/// ends are dropped, without being destroyed. Objects that a block refers to must be kept alive by
/// it or checked in it. Thread-safe, while an application object exists.
PLATFORM_EXPORT void dispatchAsync(std::function<void()> block);

}  // namespace MainQueue
