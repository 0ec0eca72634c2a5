#include "Engine/Notes/DeletedDatabase.h"

#include <QtCore/QDeadlineTimer>

#include "Engine/Notes/KnownTransactions.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Profile/ProfileSettings.h"

namespace {

/// As in DeletedDatabase::Condition.
const QString DeletedPrefix = QStringLiteral("deletedDatabase ");

/// Returns the id of the row; an invalid value if there is none that may be erased.
Expected<QVariant> idOf(const ProfileDatabase &profile, const QString &UUID) {
    return profile.value(
        QStringLiteral("SELECT id FROM databases WHERE uuid = ? AND ") + DeletedDatabase::Condition,
        {UUID});
}

/// To be called first: otherwise each operation that is removed is looked up there.
Expected<void> forgetComparisons(const ProfileDatabase &profile, qint64 database) {
    return profile.run(QStringLiteral("DELETE FROM compared_places WHERE database = ?"),
                       {database});
}

Expected<void> eraseRows(const ProfileDatabase &profile, qint64 database) {
    return forgetComparisons(profile, database)
        .and_then([&] { return KnownTransactions::forgetDatabase(profile, database); })
        .and_then([&] {
            // With the rows that refer to it.
            return profile.run(QStringLiteral("DELETE FROM databases WHERE id = ?"), {database});
        });
}

/// Returns a statement that deletes some of `rows` of the table, whose primary key is stated.
QString deletionFrom(const QString &table, const QString &key, const QString &rows) {
    return QStringLiteral("DELETE FROM %1 WHERE (%2) IN (SELECT %2 FROM %3 LIMIT ?)")
        .arg(table, key, rows);
}

/// Returns the rows of a table that is sorted by places first, without reading those of other
/// databases.
QString rowsOfAllPlaces(const QString &table) {
    return QStringLiteral(
               "(WITH RECURSIVE places (known) AS (SELECT min(place) FROM %1 UNION ALL"
               " SELECT (SELECT min(place) FROM %1 WHERE place > known) FROM places"
               " WHERE known IS NOT NULL)"
               " SELECT %1.* FROM places CROSS JOIN %1 ON place = known AND database = ?)")
        .arg(table);
}

/// Returns statements that delete some of the rows of a database, with placeholders for its id and
/// for how many.
QStringList deletions() {
    const QString ofDatabase = QStringLiteral("%1 WHERE database = ?");
    const QString id = QStringLiteral("id");
    const QString operations = QStringLiteral("operations");
    const QString superseded = QStringLiteral("superseded");
    const QString versions = QStringLiteral("versions");
    const QString known = QStringLiteral("known_transactions");
    const QString unwritten = QStringLiteral("unwritten");
    return {
        deletionFrom(unwritten, QStringLiteral("place, database, is_superseded, digest"),
                     rowsOfAllPlaces(unwritten)),
        // No record is known whose operations are not there.
        deletionFrom(known, QStringLiteral("place, database, name"), rowsOfAllPlaces(known)),
        deletionFrom(operations, id, ofDatabase.arg(operations)),
        deletionFrom(superseded, QStringLiteral("database, digest"), ofDatabase.arg(superseded)),
        deletionFrom(versions, id, ofDatabase.arg(versions))};
}

/// Executes one of those statements until the deadline. Returns whether no such row is left.
Expected<bool> eraseUntil(const ProfileDatabase &profile, const QString &deletion, qint64 database,
                          const QDeadlineTimer &deadline) {
    // A row may be large.
    constexpr qint64 MostAtOnce = 256;
    for (qint64 rows = 1;; rows = qMin(2 * rows, MostAtOnce)) {
        const Expected<QVariant> deleted = profile.run(deletion, {database, rows}).and_then([&] {
            return profile.value(QStringLiteral("SELECT changes()"));
        });
        if (!deleted) {
            return failure(deleted.error());
        }
        if (deleted->toLongLong() < rows || deadline.hasExpired()) {
            return deleted->toLongLong() < rows;
        }
    }
}

/// The same for all of those statements.
Expected<bool> eraseAllUntil(const ProfileDatabase &profile, qint64 database,
                             const QDeadlineTimer &deadline) {
    for (const QString &deletion : deletions()) {
        Expected<bool> done = eraseUntil(profile, deletion, database, deadline);
        if (!done || !*done) {
            return done;
        }
    }
    return true;
}

}  // namespace

Expected<void> DeletedDatabase::mark(const ProfileDatabase &profile, const QString &UUID) {
    return ProfileSettings::set(profile, DeletedPrefix + UUID, true);
}

Expected<void> DeletedDatabase::unmark(const ProfileDatabase &profile, const QString &UUID) {
    return ProfileSettings::remove(profile, DeletedPrefix + UUID);
}

Expected<QStringList> DeletedDatabase::marked(const ProfileDatabase &profile) {
    return ProfileSettings::values(profile, DeletedPrefix).map([](const auto &marks) {
        return QStringList(marks.keys());
    });
}

Expected<void> DeletedDatabase::erase(const ProfileDatabase &profile, const QString &UUID) {
    return idOf(profile, UUID).and_then([&](const QVariant &id) {
        return (id.isValid() ? eraseRows(profile, id.toLongLong()) : Expected<void>())
            .and_then([&] { return unmark(profile, UUID); });
    });
}

Expected<bool> DeletedDatabase::eraseSome(const ProfileDatabase &profile, const QString &UUID,
                                          std::chrono::milliseconds duration) {
    const QDeadlineTimer deadline(duration);
    bool isLast = true;
    const Expected<void> done = profile.write([&] {
        return idOf(profile, UUID)
            .and_then([&](const QVariant &id) -> Expected<bool> {
                return !id.isValid() ? Expected<bool>(true)
                                     : forgetComparisons(profile, id.toLongLong()).and_then([&] {
                                           return eraseAllUntil(profile, id.toLongLong(), deadline);
                                       });
            })
            .and_then([&](bool none) {
                isLast = none;
                return none ? erase(profile, UUID) : Expected<void>();
            });
    });
    return done.map([&] { return isLast; });
}
