#pragma once

#include "Platform/Foundation/Error.h"

/// The domain of the application's own errors, which have no codes.
inline const QString ApplicationErrorDomain = QStringLiteral("Velmora");

/// Returns an error of the application. `description` is one or more complete sentences in the
/// user's language that also name the next step; `reason` is the underlying cause and may be empty.
/// Thread-safe.
inline Error applicationError(const QString &description, const QString &reason = {}) {
    return {.domain = ApplicationErrorDomain,
            .localizedDescription = description,
            .localizedFailureReason = reason};
}
