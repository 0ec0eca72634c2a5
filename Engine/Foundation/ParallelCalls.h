#pragma once

#include <QtCore/QtGlobal>
#include <functional>

/// Calls that wait for a network, several at a time.
namespace ParallelCalls {

/// Calls `call` with each number from 0 to `count` - 1, at most `most` at a time, on the current
/// thread and on threads of its own. Blocks until all calls have returned. `call` must be
/// thread-safe and must not throw. With `most` 1, calls it in order on the current thread only; if
/// the system starts no further thread, it does with fewer.
void run(qsizetype count, int most, const std::function<void(qsizetype number)> &call);

}  // namespace ParallelCalls
