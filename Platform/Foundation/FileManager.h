#pragma once

#include <QtCore/QStringList>
#include <filesystem>

#include "Platform/Foundation/Expected.h"
#include "Platform/PlatformExport.h"

/// File system operations that return an error for the user, of SystemErrorDomain. Thread-safe.
/// They block for the time that the file system takes.
namespace FileManager {

/// Creates one directory, which only its owner can access. Returns an error if anything of that
/// name exists already, if the parent directory does not exist, or if the file system refuses. The
/// error's reason is that of the system. The folder is not flushed to the disk.
PLATFORM_EXPORT Expected<void> createDirectory(const QString &path);

/// Returns whether there is a file, folder or symbolic link `path`. Returns an error if that cannot
/// be determined, for example because a folder above cannot be searched, where QFileInfo would
/// return that there is none. The error's reason is that of the system.
PLATFORM_EXPORT Expected<bool> exists(const QString &path);

/// Returns the size of the file `path` in bytes, or 0 if there is none. Returns an error if that
/// cannot be determined, where QFileInfo would return 0. The error's reason is that of the system.
PLATFORM_EXPORT Expected<qint64> size(const QString &path);

/// Returns the names of the entries of the folder `path` that have the type `type`, in no order;
/// none if the folder does not exist. A symbolic link has a type of its own. Returns an error if
/// the folder or the type of an entry cannot be read; QDir would leave them out. The error's reason
/// is that of the system.
PLATFORM_EXPORT Expected<QStringList> names(const QString &path, std::filesystem::file_type type);

/// Removes the file or symbolic link `path`. Has no effect if there is none. Fails if it is a
/// folder. The error's reason is that of the system.
PLATFORM_EXPORT Expected<void> removeFile(const QString &path);

/// Removes the folder `path` and all that it contains. Symbolic links are removed, not followed.
/// Has no effect if there is none. After an error a part may have been removed. The error's reason
/// is that of the system.
PLATFORM_EXPORT Expected<void> removeFolder(const QString &path);

}  // namespace FileManager
