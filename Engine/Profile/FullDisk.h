#pragma once

#include <QtCore/QString>

class QSqlError;

/// Distinguishes a full disk from other failures. Thread-safe.
namespace FullDisk {

/// Returns whether less than 1 MiB is left on the disk of the file `path`, which is too little for
/// SQLite to open a profile. Blocks for the file system.
bool isFull(const QString &path);

/// Returns whether the failed SQLite operation on the database file `path` lacked space. SQLite
/// reports most of these failures as such, and others as input or output errors; those count if
/// isFull(). Blocks for the file system.
bool isCauseOf(const QSqlError &error, const QString &path);

/// Returns the localized sentences that state that the disk of the profile file `path` is full, and
/// what to do.
QString message(const QString &path);

}  // namespace FullDisk
