#pragma once

#include <QtCore/QString>

#include "Platform/Foundation/Error.h"
#include "Platform/PlatformExport.h"

/// The domain of errors of the operating system, whose codes are those of errno(3).
inline const QString SystemErrorDomain = QStringLiteral("POSIXErrorDomain");

/// Returns the error for the errno value `number`. `description` is its message: complete sentences
/// in the user's language. The reason is the system's text for `number`. Thread-safe.
PLATFORM_EXPORT Error systemError(int number, const QString &description);
/// Returns whether `error` is of SystemErrorDomain and says that a disk is full or a quota is used
/// up. Thread-safe.
PLATFORM_EXPORT bool isDiskFull(const Error &error);
