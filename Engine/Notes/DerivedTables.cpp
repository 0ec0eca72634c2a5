#include "Engine/Notes/DerivedTables.h"

#include "Engine/Notes/KnownTransactions.h"
#include "Engine/Profile/ProfileDatabase.h"

namespace {

/// Takes the database.
const QString ConflictsCounted = QStringLiteral(
    "SELECT count(*) FROM (SELECT 1 FROM operations WHERE database = ?"
    " AND note_uuid <> '' GROUP BY note_uuid HAVING count(*) > 1)");

}  // namespace

Expected<DerivedTables::Faults> DerivedTables::check(const ProfileDatabase &profile,
                                                     qint64 database) {
    const Expected<bool> isCountSound = isCountOfConflictsSound(profile, database);
    if (!isCountSound) {
        return failure(isCountSound.error());
    }
    const Expected<QStringList> stores = KnownTransactions::recordedStores(profile, database);
    if (!stores) {
        return failure(stores.error());
    }
    Faults faults{.isCountWrong = !*isCountSound, .stores = {}};
    for (const QString &store : *stores) {
        const Expected<bool> isSound = KnownTransactions(profile, store, database).isRecordSound();
        if (!isSound) {
            return failure(isSound.error());
        }
        if (!*isSound) {
            faults.stores.append(store);
        }
    }
    return faults;
}

Expected<void> DerivedTables::repair(const ProfileDatabase &profile, qint64 database,
                                     const Faults &faults) {
    Expected<void> repaired =
        faults.isCountWrong ? recountConflicts(profile, database) : Expected<void>();
    for (const QString &store : faults.stores) {
        const KnownTransactions known(profile, store, database);
        Expected<bool> isForgotten = false;
        while (repaired && !*isForgotten) {
            isForgotten = known.restartRecording();
            repaired = isForgotten.map([](bool) {});
        }
    }
    return repaired;
}

Expected<qint64> DerivedTables::countOfConflicts(const ProfileDatabase &profile, qint64 database) {
    return profile
        .value(QStringLiteral("SELECT coalesce((SELECT conflicts FROM counts WHERE database = ?),"
                              " (%1))")
                   .arg(ConflictsCounted),
               {database, database})
        .map([](const QVariant &count) { return count.toLongLong(); });
}

Expected<bool> DerivedTables::isCountOfConflictsSound(const ProfileDatabase &profile,
                                                      qint64 database) {
    return profile
        .value(QStringLiteral("SELECT (SELECT conflicts FROM counts WHERE database = ?) IS (%1)")
                   .arg(ConflictsCounted),
               {database, database})
        .map([](const QVariant &isSound) { return isSound.toBool(); });
}

Expected<void> DerivedTables::recountConflicts(const ProfileDatabase &profile, qint64 database) {
    return profile.run(
        QStringLiteral("INSERT OR REPLACE INTO counts (database, conflicts) VALUES (?, (%1))")
            .arg(ConflictsCounted),
        {database, database});
}
