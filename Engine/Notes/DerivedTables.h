#pragma once

#include <QtCore/QStringList>

#include "Platform/Foundation/Expected.h"

class ProfileDatabase;

/// Checks what triggers of the profile have derived about one database: the number of its conflicts
/// (table "counts"), and what each store lacks ("compared_places" and "unwritten").
///
/// Errors have the code ProfileNotWritten, or Cancelled if a ProfileReader is cancelled.
namespace DerivedTables {

/// What differs from what counting and comparing finds.
struct Faults {
    bool isCountWrong = false;
    /// The stores that lack something that is not recorded.
    QStringList stores;
    bool isEmpty() const { return !isCountWrong && stores.isEmpty(); }
};

/// Checks the database whose row has the id `database`. Compares everything, so it may block for
/// some seconds. Must be called on the main thread, or with a ProfileReader.
Expected<Faults> check(const ProfileDatabase &profile, qint64 database);
/// Counts again, and forgets what is recorded about these stores, so that the next synchronization
/// with each of them compares everything. Must be called on the main thread, within a transaction
/// of the profile.
Expected<void> repair(const ProfileDatabase &profile, qint64 database, const Faults &faults);

/// Returns the number of notes with conflicting edits in this database, as the profile has recorded
/// it. O(1). Like the next function, must be called on the main thread, or with a ProfileReader.
Expected<qint64> countOfConflicts(const ProfileDatabase &profile, qint64 database);
/// Returns whether that is what counting finds. O(n).
Expected<bool> isCountOfConflictsSound(const ProfileDatabase &profile, qint64 database);
/// Counts the conflicts and records their number. O(n). Must be called on the main thread, within a
/// transaction of the profile.
Expected<void> recountConflicts(const ProfileDatabase &profile, qint64 database);

}  // namespace DerivedTables
