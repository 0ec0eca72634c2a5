#include "Engine/Notes/RemovalForecast.h"

#include <algorithm>

#include "Engine/Notes/OperationTable.h"
#include "Engine/Profile/ProfileDatabase.h"

namespace {

/// The operations that a note loses.
struct Loss {
    qint64 position = 0;
    QString title;
    qint64 operations = 0;
};

/// Returns the losses by note.
Expected<QHash<QString, Loss>> lossesBy(const QSet<OperationId> &superseded,
                                        const ProfileDatabase &profile, qint64 database) {
    Expected<QSqlQuery> current = profile.prepare(
        QStringLiteral("SELECT note_uuid, CAST(substr(title, 1, 200) AS BLOB), position"
                       " FROM operations"
                       " WHERE database = ? AND digest = ? AND note_uuid <> ''"));
    if (!current) {
        return failure(current.error());
    }
    QHash<QString, Loss> losses;
    for (const OperationId &identifier : superseded) {
        const Expected<void> read =
            profile.read(*current, {database, identifier}, [&](const QSqlQuery &row) {
                Loss &loss = losses[row.value(0).toString()];
                loss.title = ProfileDatabase::exactText(row.value(1));
                loss.position = row.value(2).toLongLong();
                ++loss.operations;
            });
        if (!read) {
            return failure(read.error());
        }
    }
    return losses;
}

}  // namespace

void RemovalForecast::add(const Transaction &transaction) {
    const QList<OperationId> superseded = transaction.allSuperseded();
    m_superseded.unite(QSet(superseded.begin(), superseded.end()));
    for (const Operation &operation : transaction.operations) {
        if (!operation.note.isEmpty()) {
            m_added[operation.note].append(operation.id);
        }
    }
}

Expected<QList<RemovalForecast::Note>> RemovalForecast::removedNotes(const ProfileDatabase &profile,
                                                                     qint64 database) const {
    const Expected<QHash<QString, Loss>> losses = lossesBy(m_superseded, profile, database);
    if (!losses) {
        return failure(losses.error());
    }
    QList<std::pair<qint64, Note>> removed;
    for (auto loss = losses->begin(); loss != losses->end(); ++loss) {
        const Expected<bool> survives = keeps(loss.key(), loss->operations, profile, database);
        if (!survives) {
            return failure(survives.error());
        }
        if (!*survives) {
            removed.append({loss->position, {loss.key(), loss->title}});
        }
    }
    std::sort(removed.begin(), removed.end(),
              [](const auto &a, const auto &b) { return a.first < b.first; });
    QList<Note> notes;
    for (const auto &[position, note] : std::as_const(removed)) {
        notes.append(note);
    }
    return notes;
}

Expected<bool> RemovalForecast::keeps(const QString &note, qint64 lost,
                                      const ProfileDatabase &profile, qint64 database) const {
    const Expected<QVariant> count = profile.value(
        QStringLiteral("SELECT count(*) FROM operations WHERE database = ? AND note_uuid = ?"),
        {database, note});
    if (!count) {
        return failure(count.error());
    }
    if (count->toLongLong() > lost) {
        return true;
    }
    const QList<OperationId> added = m_added.value(note);
    for (const OperationId &identifier : added) {
        if (m_superseded.contains(identifier)) {
            continue;
        }
        const Expected<bool> known = OperationTable(profile, database).isSuperseded(identifier);
        if (!known) {
            return failure(known.error());
        }
        if (!*known) {
            return true;
        }
    }
    return false;
}
