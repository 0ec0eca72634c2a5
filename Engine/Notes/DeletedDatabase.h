#pragma once

#include <QtCore/QStringList>
#include <chrono>

#include "Engine/Profile/SteppedDeletion.h"
#include "Platform/Foundation/Expected.h"

class ProfileDatabase;

/// Databases that the user has deleted. The profile records that a database is deleted, and still
/// contains it until it is erased. Databases are named by their local UUIDs; the inbox is never
/// deleted. Must be used on the main thread. All functions block for the profile and return an
/// error of the code ProfileNotWritten if it cannot be read or written.
namespace DeletedDatabase {

/// A setting of the profile whose key is this and the UUID of a database marks it as deleted.
inline const QString MarkPrefix = QStringLiteral("deletedDatabase ");
/// An SQL expression: whether the row of the table "databases" is that of a deleted database.
inline const QString Condition =
    QStringLiteral(
        "(NOT is_inbox AND EXISTS (SELECT 1 FROM settings WHERE key = '%1' || databases.uuid))")
        .arg(MarkPrefix);

/// Record, durably, that the database is deleted, or no longer deleted. Idempotent.
Expected<void> mark(const ProfileDatabase &profile, const QString &UUID);
Expected<void> unmark(const ProfileDatabase &profile, const QString &UUID);
/// Returns the UUIDs that are marked, of databases that are not erased yet.
Expected<QStringList> marked(const ProfileDatabase &profile);
/// Erases a database that is marked, with its notes, their versions, and all that is known of its
/// stores, and the mark. Has no effect without a mark. Must be called within a transaction. O(n).
Expected<void> erase(const ProfileDatabase &profile, const QString &UUID);
/// Erases a part of such a database, in a transaction of its own that takes about `duration`, and
/// with the last part the mark. Returns whether nothing is left. Until then the profile contains a
/// database that is marked and has lost some of its notes.
Expected<bool> eraseSome(const ProfileDatabase &profile, const QString &UUID,
                         std::chrono::milliseconds duration = SteppedDeletion::StepDuration);

}  // namespace DeletedDatabase
