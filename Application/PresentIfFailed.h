#pragma once

#include "Host/QVApplication.h"
#include "Platform/Foundation/Expected.h"

/// Shows the error of `result` to the user if there is one. Returns whether `result` is a success.
/// Must be called on the main thread.
inline bool presentIfFailed(const Expected<void> &result) {
    if (!result) {
        NSApp()->presentError(result.error());
    }
    return result.has_value();
}
