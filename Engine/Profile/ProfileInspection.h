#pragma once

#include <QtCore/QString>
#include <atomic>

#include "Platform/Foundation/Expected.h"

class ReadOnlyConnection;

/// Inspects the files of a profile without changing a byte, so that a file of another program or of
/// a newer version is never opened for writing. Thread-safe.
namespace ProfileInspection {

/// Marks a database file as a profile (SQLite's application_id): "Velm" in ASCII.
inline constexpr int ApplicationId = 0x56656c6d;
/// The statement that returns the version of the tables of a profile.
inline const QString VersionStatement = QStringLiteral("PRAGMA user_version");
/// The version that this program reads and writes.
inline constexpr int SchemaVersion = 7;
/// The oldest version that ProfileDatabase::open can upgrade.
inline constexpr int OldestSchemaVersion = 1;

/// Returns the error of a damaged database file at `path`.
Error damage(const QString &path);

/// Returns the error, of the code ProfileUnreadable, of a database file at `path` whose disk
/// reports an error.
Error unreadable(const QString &path);

/// Returns whether SQLite's check of a database has returned `problem` instead of failing, because
/// the disk reports an error.
bool isInputOutputError(const QString &problem);

/// Returns an error of the code ProfileDamaged if the file of the open database at `path` is
/// damaged, or IndexesDamaged if only an index does not contain what its table does, so that rows
/// may not be found. Other errors are those of check(). Reads everything, and looks up each row in
/// each index.
Expected<void> checkIntegrity(const QString &path, const ReadOnlyConnection &database);

/// Checks whether the existing database file at `path` can be used as a profile.
///
/// Returns an error that describes the reason if it cannot: of the code ProfileDamaged if the file
/// is damaged, IndexesDamaged if only indexes are, ProfileDiskFull if there is no room for what
/// SQLite writes while it reads, ProfileUnreadable if the disk reports an error, and
/// ProfileUnusable if it is read-only, of an unsupported version, or of another program, or cannot
/// be read now, for example because it is locked. An empty database is damaged too, unless
/// its folder contains nothing else than what an interrupted first start leaves. Reads the whole
/// file, so it may block for some seconds.
Expected<void> check(const QString &path);

/// As check(), but accepts a database and a folder that are read-only. Fails soon after
/// `isCancelled`, which may be null, has become true.
Expected<void> checkReadable(const QString &path, const std::atomic_bool *isCancelled = nullptr);

}  // namespace ProfileInspection
