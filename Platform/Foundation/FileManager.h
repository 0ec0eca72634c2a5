#pragma once

#include <QtCore/QString>

#include "Platform/Foundation/Expected.h"
#include "Platform/PlatformExport.h"

/// File system operations that return an error for the user, of SystemErrorDomain. Thread-safe.
/// They block for the time that the file system takes.
namespace FileManager {

/// Creates one directory, which only its owner can access. Returns an error if anything of that
/// name exists already, if the parent directory does not exist, or if the file system refuses. The
/// error's reason is that of the system. The folder is not flushed to the disk.
PLATFORM_EXPORT Expected<void> createDirectory(const QString &path);

}  // namespace FileManager
