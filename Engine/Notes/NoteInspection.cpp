#include "Engine/Notes/NoteInspection.h"

#include "Engine/Notes/LostOperations.h"
#include "Engine/Notes/NoteLog.h"
#include "Engine/Notes/OperationTable.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Profile/ProfileReader.h"
#include "Host/SyncStrings.h"

namespace {

constexpr qsizetype MostTitles = 5;

}  // namespace

Expected<QList<NoteInspection::DamagedOperation>> NoteInspection::damagedOperations(
    const ProfileDatabase &profile, qint64 database) {
    const Expected<QSet<OperationId>> superseded = NoteLog(profile, database).supersededIds();
    if (!superseded) {
        return failure(superseded.error());
    }
    QList<DamagedOperation> damaged;
    const Expected<void> done =
        OperationTable(profile, database).forEach([&](const Operation &operation) {
            const bool isSound = operation.isSound();
            if (!isSound || superseded->contains(operation.id)) {
                damaged.append({operation.id,
                                operation.note.isEmpty() ? QString() : operation.title, !isSound});
            }
        });
    if (!done) {
        return failure(done.error());
    }
    return damaged;
}

Expected<NoteInspection::Findings> NoteInspection::check(const QString &path,
                                                         const std::atomic_bool &isCancelled) {
    // It is not opened: the reader stands for the file.
    const ProfileDatabase file;
    const auto reader = ProfileReader::open(file, path, isCancelled);
    if (!reader) {
        return failure(reader.error());
    }
    QList<qint64> databases;
    const Expected<void> listed =
        file.read(QStringLiteral("SELECT id FROM databases"), {},
                  [&](const QSqlQuery &row) { databases.append(row.value(0).toLongLong()); });
    if (!listed) {
        return failure(listed.error());
    }
    Findings findings;
    for (const qint64 database : std::as_const(databases)) {
        const Expected<QList<DamagedOperation>> damaged = damagedOperations(file, database);
        const Expected<QSet<OperationId>> lost = LostOperations::all(file, database);
        if (!damaged || !lost) {
            return failure(damaged ? lost.error() : damaged.error());
        }
        if (!damaged->isEmpty()) {
            findings.damaged.insert(database, *damaged);
        }
        findings.lost += lost->size();
    }
    return findings;
}

QString NoteInspection::titles(const QList<DamagedOperation> &damaged, const QString &name) {
    QStringList titles;
    for (const DamagedOperation &each : damaged.first(qMin(damaged.size(), MostTitles))) {
        titles.append(
            localizedSyncString("“%1”").arg((each.title.isEmpty() ? name : each.title).left(80)));
    }
    const QString text = titles.join(QStringLiteral(", "));
    const qsizetype more = damaged.size() - MostTitles;
    return more > 0 ? localizedSyncCount("%1 and %2 more", nullptr, more).arg(text).arg(more)
                    : text;
}

QString NoteInspection::text(const Findings &findings) {
    QList<DamagedOperation> all;
    for (const QList<DamagedOperation> &damaged : findings.damaged) {
        all.append(damaged);
    }
    QStringList parts;
    if (!all.isEmpty()) {
        parts.append(titles(all, localizedSyncString("name of a database")));
    }
    if (findings.lost > 0) {
        parts.append(localizedSyncString("lost changes: %1").arg(findings.lost));
    }
    return parts.join(QStringLiteral(", "));
}
