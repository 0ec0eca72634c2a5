#pragma once

#include <QtCore/QString>
#include <optional>

#include "Platform/Foundation/Error.h"

/// Looks at a profile's files without changing a byte of them, so that nothing is opened for
/// writing that this program does not understand.
namespace ProfileInspection {

/// "Velm" in ASCII: marks a database file as a profile (SQLite's application_id).
inline constexpr int ApplicationId = 0x56656c6d;
/// The number of the tables' arrangement (SQLite's user_version).
inline constexpr int SchemaVersion = 2;
/// Profiles from this one on are brought up to date when they are opened.
inline constexpr int OldestSchemaVersion = 1;

/// Why the existing database file at `path` cannot be used as a profile: unreadable, read-only,
/// damaged, of another version, of another program. An empty database, as an interrupted first
/// start leaves it, can be.
std::optional<Error> obstacle(const QString &path);

}  // namespace ProfileInspection
