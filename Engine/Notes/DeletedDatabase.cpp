#include "Engine/Notes/DeletedDatabase.h"

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

Expected<void> eraseRows(const ProfileDatabase &profile, qint64 database) {
    // Otherwise each operation that is removed is looked up there.
    return profile.run(QStringLiteral("DELETE FROM compared_places WHERE database = ?"), {database})
        .and_then([&] { return KnownTransactions::forgetDatabase(profile, database); })
        .and_then([&] {
            // With the rows that refer to it.
            return profile.run(QStringLiteral("DELETE FROM databases WHERE id = ?"), {database});
        });
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
