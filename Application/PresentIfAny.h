#pragma once

#include <optional>

#include "Host/QVApplication.h"
#include "Platform/Foundation/Expected.h"

/// Shows the error to the person, if there is one.
inline void presentIfAny(const std::optional<Error> &error) {
    if (error) {
        NSApp()->presentError(*error);
    }
}

/// Shows the error of `result` to the user, if it failed.
inline void presentIfAny(const Expected<void> &result) {
    if (!result) {
        NSApp()->presentError(result.error());
    }
}
