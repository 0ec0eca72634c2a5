#include "Engine/Notes/DerivedTables.h"

#include "Engine/Notes/KnownTransactions.h"
#include "Engine/Notes/NoteLog.h"

Expected<DerivedTables::Faults> DerivedTables::check(const ProfileDatabase &profile,
                                                     qint64 database) {
    const Expected<bool> isCountSound = NoteLog(profile, database).isCountOfConflictsSound();
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
        faults.isCountWrong ? NoteLog(profile, database).recountConflicts() : Expected<void>();
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
