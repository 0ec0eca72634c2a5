#pragma once

#include <chrono>

/// Bounds how long quitting takes. Each part of the program waits only briefly for a disk or a
/// service that does not respond, but there may be several of these.
namespace EndLimit {

/// What the user waits for at most. Counted from begin().
inline constexpr std::chrono::seconds LongestEnd(2);

/// Ends the process with `exitCode`, without any clean-up, if it still exists after LongestEnd:
/// destructors and exit handlers do not run. To be called when everything is saved, and cannot be
/// taken back. Returns at once. Thread-safe.
void begin(int exitCode);

}  // namespace EndLimit
