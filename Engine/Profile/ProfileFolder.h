#pragma once

#include <QtCore/QStringList>

#include "Engine/Foundation/EngineError.h"
#include "Platform/Foundation/Expected.h"

/// The contents of a profile folder besides the rows of the database. Thread-safe; all functions
/// block for the file system. A folder that cannot be read is an error of the code ProfileUnusable,
/// never an empty folder.
namespace ProfileFolder {

/// The name of the folder with the sync store of a new profile.
inline const QString SyncStoresName = QStringLiteral("Sync Stores");

/// Returns the path of the write-ahead log that SQLite makes for the database at the path
/// `database`, whether it exists or not.
inline QString logOf(const QString &database) {
    return database + QStringLiteral("-wal");
}
/// Returns the names of the files that SQLite makes for the database, whether they exist or not.
QStringList databaseFiles();

/// Returns whether a profile can be made in the folder `directory`: it does not exist, or is empty
/// apart from a lock file. A folder with a database is not listed.
Expected<bool> isUnused(const QString &directory);

/// Returns whether the existing folder `directory` contains only what an interrupted first start
/// leaves: files of the database, a lock file, and folders without files for the sync store.
Expected<bool> isUnusedSinceCreation(const QString &directory);

/// Returns the error with the code `code` for `folder`, which is one of the profile's and cannot be
/// read. `reason` is that of the system.
Error unreadable(const QString &folder, const QString &reason, EngineErrorCode code);

/// Removes what isUnusedSinceCreation() describes, apart from the lock file. Never removes a folder
/// that contains a file.
void removeNewProfile(const QString &directory);

}  // namespace ProfileFolder
