#pragma once

#include <QtCore/QString>
#include <optional>

#include "Platform/Foundation/Error.h"
#include "Platform/PlatformExport.h"

/// Changes to the file system that answer in words. Any thread.
namespace FileManager {

/// The domain of its errors; their codes are those of errno(3).
inline const QString ErrorDomain = QStringLiteral("POSIXErrorDomain");

/// Makes one directory, with the permissions that are usual for the user. An error where anything
/// of that name exists or the directory above does not.
PLATFORM_EXPORT std::optional<Error> createDirectory(const QString &path);

}  // namespace FileManager
