#include "Engine/Notes/DeletedDatabase.h"

#include <QtCore/QDeadlineTimer>

#include "Engine/Notes/KnownTransactions.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Profile/ProfileSettings.h"
#include "Engine/Profile/SteppedDeletion.h"

namespace {

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
    return {SteppedDeletion::statement(unwritten,
                                       QStringLiteral("place, database, is_superseded, digest"),
                                       rowsOfAllPlaces(unwritten)),
            // No record is known whose operations are not there.
            SteppedDeletion::statement(known, QStringLiteral("place, database, name"),
                                       rowsOfAllPlaces(known)),
            SteppedDeletion::statement(operations, id, ofDatabase.arg(operations)),
            SteppedDeletion::statement(superseded, QStringLiteral("database, digest"),
                                       ofDatabase.arg(superseded)),
            SteppedDeletion::statement(versions, id, ofDatabase.arg(versions))};
}

}  // namespace

Expected<void> DeletedDatabase::mark(const ProfileDatabase &profile, const QString &UUID) {
    return ProfileSettings::set(profile, MarkPrefix + UUID, true);
}

Expected<void> DeletedDatabase::unmark(const ProfileDatabase &profile, const QString &UUID) {
    return ProfileSettings::remove(profile, MarkPrefix + UUID);
}

Expected<QStringList> DeletedDatabase::marked(const ProfileDatabase &profile) {
    return ProfileSettings::values(profile, MarkPrefix).map([](const auto &marks) {
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
                                           return SteppedDeletion::runUntil(deadline, profile,
                                                                            deletions(), {id});
                                       });
            })
            .and_then([&](bool none) {
                isLast = none;
                return none ? erase(profile, UUID) : Expected<void>();
            });
    });
    return done.map([&] { return isLast; });
}
