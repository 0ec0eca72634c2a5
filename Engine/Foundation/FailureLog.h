#pragma once

#include "Platform/Foundation/Expected.h"

/// Writes the error of a failed operation to the application's log, see QVJobLog::logMessage(). Has
/// no effect if `result` has none. Must be called on the main thread.
void logFailureOf(const Expected<void> &result);
