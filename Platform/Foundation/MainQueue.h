#pragma once

#include <functional>

#include "Platform/PlatformExport.h"

/// Blocks that run on the application's main thread, one after the other, in the order in which
/// they came.
namespace MainQueue {

/// Queues `block`; it runs from the event loop, never within this call. Any thread, while there is
/// an application object.
PLATFORM_EXPORT void dispatchAsync(std::function<void()> block);

}  // namespace MainQueue
