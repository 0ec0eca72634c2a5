#pragma once

#include <QtCore/QString>
#include <atomic>

#include "Platform/Foundation/Expected.h"

/// Inspects the files of a profile without changing a byte, so that a file of another program or of
/// a newer version is never opened for writing. Thread-safe.
namespace ProfileInspection {

/// Marks a database file as a profile (SQLite's application_id): "Velm" in ASCII.
inline constexpr int ApplicationId = 0x56656c6d;
/// The version of the tables that this program reads and writes (SQLite's user_version).
inline constexpr int SchemaVersion = 5;
/// The oldest version that ProfileDatabase::open can upgrade.
inline constexpr int OldestSchemaVersion = 1;

/// Checks whether the existing database file at `path` can be used as a profile.
///
/// Returns an error that describes the reason if it cannot: of the code ProfileDamaged if the file
/// is damaged, and ProfileUnusable if it is read-only, of an unsupported version, or of another
/// program, or cannot be read now, for example because it is locked or the disk reports an error.
/// An empty database is damaged too, unless its folder contains nothing else than what an
/// interrupted first start leaves. Reads the whole file, so it may block for some seconds; fails
/// soon after `isCancelled`, which may be null, has become true.
Expected<void> check(const QString &path, const std::atomic_bool *isCancelled = nullptr);

}  // namespace ProfileInspection
