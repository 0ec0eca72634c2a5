#pragma once

#include "Host/QVApplication.h"
#include "Platform/Foundation/Expected.h"

/// Presents the error of `result`, if there is one. Returns whether `result` is a success. Must be
/// called on the main thread while there is an application object. Does not wait for the user.
inline bool presentIfFailed(const Expected<void> &result) {
    if (!result) {
        NSApp()->presentError(result.error());
    }
    return result.has_value();
}
