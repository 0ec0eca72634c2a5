#pragma once

#include <QtCore/QString>

/// Changes of files that survive a power failure. The functions block for the disk, and return
/// whether they have succeeded; errno then says why not. Thread-safe.
namespace DurableFile {

/// Creates the empty file `path`, which only its owner can read and write. Fails if it exists.
bool create(const QString &path);
/// Writes the contents of the file or folder `path` to the disk.
bool flush(const QString &path);
/// Renames a file and writes its folder to the disk. Replaces the file `to`.
bool rename(const QString &from, const QString &to);
/// Copies a file to the new file `to`, which only its owner can read and write, and writes it to
/// the disk. A failure may leave an incomplete file.
bool copy(const QString &from, const QString &to);

}  // namespace DurableFile
