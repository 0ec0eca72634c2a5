#pragma once

#include <QtCore/QString>
#include <optional>

class QSqlError;

/// Distinguishes a full disk from other failures. Thread-safe.
namespace FullDisk {

/// Returns the number of bytes that are free for the user on the disk of `path`, a file or folder;
/// empty if the file system does not know it. Blocks for the file system.
std::optional<qint64> freeBytes(const QString &path);

/// Returns whether less than 1 MiB is left on the disk of the file `path`, which is too little for
/// SQLite to open a profile; false if that is unknown. Blocks for the file system.
bool isFull(const QString &path);

/// Returns whether the failed SQLite operation on the database file `path` lacked space. SQLite
/// reports most of these failures as such, and others as input or output errors; those count if
/// isFull(). Blocks for the file system.
bool isCauseOf(const QSqlError &error, const QString &path);

/// Returns the localized sentences that state that the disk of the profile file `path` is full, and
/// what to do.
QString message(const QString &path);

}  // namespace FullDisk
