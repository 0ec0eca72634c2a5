#pragma once

#include <QtCore/QString>
#include <chrono>

// What the application and the engine agree on about profiles.

/// The name of the database in the folder of a profile. A folder without it is not a profile.
inline const QString ProfileDatabaseName = QStringLiteral("profile.sqlite");

/// Time in which the removal of a location, or the deletion of a database, can be undone. The
/// application offers to undo it as long, and the engine keeps what belongs to the location, such
/// as its password, or to the database.
inline constexpr std::chrono::minutes RemovalUndoTime{10};
