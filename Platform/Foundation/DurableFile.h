#pragma once

#include <QtCore/QString>

#include "Platform/Foundation/Expected.h"
#include "Platform/PlatformExport.h"

/// Changes of files that survive a power failure. The functions block for the disk. They fail with
/// the error of the system, see SystemErrorDomain. No file is created through a symbolic link.
/// Paths may be relative. Thread-safe for different files.
namespace DurableFile {

/// Creates the empty file `path`, which only its owner can read and write. Fails if it exists. It
/// is not durable until flush() was called for it and its folder.
PLATFORM_EXPORT Expected<void> create(const QString &path);
/// Writes `contents` to the file `path`, which only its owner can read and write. Replaces an
/// existing file; a failure leaves that as it was, unless only its folder could not be written to
/// the disk: the file then has the new contents, which a power failure may undo. The file `path`
/// with the suffix ".new" is removed and used; it must not be in use.
PLATFORM_EXPORT Expected<void> write(const QString &path, const QByteArray &contents);
/// Writes the contents of the file or folder `path` to the disk (fsync(2)). Of a folder, these are
/// its entries, not its files.
PLATFORM_EXPORT Expected<void> flush(const QString &path);
/// Renames a file within a file system and writes the folder of `to` to the disk. Replaces the file
/// `to` atomically. If it fails, the file may have been renamed.
PLATFORM_EXPORT Expected<void> rename(const QString &from, const QString &to);
/// Copies a file to the new file `to`, which only its owner can read and write, and writes it to
/// the disk; its folder is not. Fails if `to` exists. A failure may leave an incomplete file.
PLATFORM_EXPORT Expected<void> copy(const QString &from, const QString &to);

}  // namespace DurableFile
