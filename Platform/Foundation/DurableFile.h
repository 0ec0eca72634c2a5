#pragma once

#include <QtCore/QString>

#include "Platform/PlatformExport.h"

/// Changes of files that survive a power failure. The functions block for the disk, and return
/// whether they have succeeded; errno then says why not. Thread-safe.
namespace DurableFile {

/// Creates the empty file `path`, which only its owner can read and write. Fails if it exists.
PLATFORM_EXPORT bool create(const QString &path);
/// Writes `contents` to the file `path`, which only its owner can read and write. Replaces an
/// existing file; a failure leaves that as it was. A file with the suffix ".new" must not be in
/// use.
PLATFORM_EXPORT bool write(const QString &path, const QByteArray &contents);
/// Writes the contents of the file or folder `path` to the disk.
PLATFORM_EXPORT bool flush(const QString &path);
/// Renames a file and writes its folder to the disk. Replaces the file `to`.
PLATFORM_EXPORT bool rename(const QString &from, const QString &to);
/// Copies a file to the new file `to`, which only its owner can read and write, and writes it to
/// the disk. A failure may leave an incomplete file.
PLATFORM_EXPORT bool copy(const QString &from, const QString &to);

}  // namespace DurableFile
