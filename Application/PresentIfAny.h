#pragma once

#include <optional>

#include "Host/QVApplication.h"

/// Shows the error to the person, if there is one.
inline void presentIfAny(const std::optional<Error> &error) {
    if (error) {
        NSApp()->presentError(*error);
    }
}
