#include "Engine/Notes/NoteRows.h"

#include <QtCore/QHash>
#include <QtCore/QSet>
#include <QtCore/QUuid>
#include <algorithm>
#include <limits>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Profile/ProfileDatabase.h"

namespace {

/// Of titles in the list, in characters.
constexpr int LongestTitle = 200;

/// Not localized: all computers must show the same title.
const QString ConflictMark = QStringLiteral(" (conflict)");

constexpr QChar Brace = u'{';

/// Takes the database, and is followed by a condition.
const QString OfDatabase = QStringLiteral("operations WHERE database = ? AND ");

QString inBraces(const QString &UUID) {
    return Brace + UUID + u'}';
}

OperationId identifierOf(const QString &revision) {
    return QByteArray::fromHex(revision.toLatin1());
}

bool comesBefore(const Operation &a, const Operation &b) {
    return a.comesBefore(b);
}

}  // namespace

QString NoteRows::revisionOf(const Operation &operation) {
    return QString::fromLatin1(operation.id.toHex());
}

bool NoteRows::isInBraces(const QString &UUID) {
    return UUID.startsWith(Brace);
}

NoteRows::NoteRows(const ProfileDatabase &profile, qint64 database)
    : m_profile(profile), m_database(database), m_operations(profile, database) {}

Expected<QList<Note>> NoteRows::notes() const {
    return m_operations.select(QStringLiteral("note_uuid <> ''"), {})
        .and_then([](const QList<Operation> &all) {
            QSet<QString> UUIDs;
            for (const Operation &operation : all) {
                UUIDs.insert(operation.note);
            }
            return rowsOf(
                all, [&](const QString &UUID) -> Expected<bool> { return UUIDs.contains(UUID); });
        })
        .map([](const QList<Row> &rows) {
            QList<Note> notes;
            notes.reserve(rows.size());
            for (const Row &row : rows) {
                notes.append(noteOf(row));
            }
            return notes;
        });
}

Note NoteRows::noteOf(const Row &row) {
    const Operation &operation = row.operation;
    const bool isCopy = row.UUID != operation.note;
    const auto modified = operation.modified;
    return {row.UUID,
            isCopy ? operation.title + ConflictMark : operation.title,
            operation.text,
            modified ? QDateTime::fromMSecsSinceEpoch(*modified) : QDateTime(),
            revisionOf(operation),
            row.conflict};
}

Expected<QList<NoteRow>> NoteRows::rows(qint64 from, int count) const {
    QList<NoteRow> rows;
    qint64 next = from;
    while (rows.size() < count) {
        const Expected<QList<NoteRow>> more = nextRows(next, count - static_cast<int>(rows.size()));
        if (!more) {
            return failure(more.error());
        }
        rows.append(*more);
        if (more->isEmpty() || rows.last().position == std::numeric_limits<qint64>::max()) {
            break;
        }
        next = rows.last().position + 1;
    }
    return rows;
}

Expected<QList<NoteRow>> NoteRows::nextRows(qint64 from, int count) const {
    const Expected<QVariant> last =
        m_profile.value(QStringLiteral("SELECT position FROM operations WHERE database = ?"
                                       " AND position >= ? AND note_uuid <> ''"
                                       " ORDER BY position LIMIT 1 OFFSET ?"),
                        {m_database, from, count - 1});
    if (!last) {
        return failure(last.error());
    }
    if (!last->isValid()) {
        return places(OfDatabase + QStringLiteral("position >= ?"), {m_database, from}, count)
            .and_then([this](const auto &found) { return noteRows(found); });
    }
    // The last position may have any number of operations, the others have fewer than `count`.
    return places(OfDatabase + QStringLiteral("position >= ? AND position < ?"),
                  {m_database, from, *last}, count)
        .and_then([this](const auto &found) { return noteRows(found); })
        .and_then([&](const QList<NoteRow> &rows) {
            return rowsAt(last->toLongLong()).map([&](const QList<NoteRow> &lastRows) {
                return rows + lastRows;
            });
        });
}

Expected<QList<NoteRow>> NoteRows::rowsAt(qint64 position) const {
    return places(OfDatabase + QStringLiteral("position = ?"), {m_database, position}, MostRows + 1)
        .and_then([this](const auto &found) { return noteRows(found); });
}

Expected<QList<NoteRows::Place>> NoteRows::places(const QString &source, const QVariantList &values,
                                                  int most) const {
    QList<Place> places;
    const Expected<void> done = m_profile.read(
        QStringLiteral("SELECT digest, note_uuid, CAST(substr(title, 1, %1) AS BLOB), modified,"
                       " position, id FROM %2 AND note_uuid <> ''"
                       // An index has this order.
                       " ORDER BY position, note_uuid, id LIMIT %3")
            .arg(QString::number(LongestTitle), source, QString::number(most)),
        values, [&](const QSqlQuery &row) {
            Operation operation;
            operation.id = row.value(0).toByteArray();
            operation.note = row.value(1).toString();
            operation.title = ProfileDatabase::exactText(row.value(2));
            const QVariant modified = row.value(3);
            operation.modified =
                modified.isNull() ? std::nullopt : std::optional(modified.toLongLong());
            places.append({operation, row.value(4).toLongLong(), row.value(5).toLongLong()});
        });
    if (!done) {
        return failure(done.error());
    }
    return places;
}

Expected<QStringList> NoteRows::notesAt(qint64 position) const {
    QStringList notes;
    const QString next = QStringLiteral(
        "(SELECT min(note_uuid) FROM operations WHERE database = ?"
        " AND position = ? AND note_uuid > %1)");
    const Expected<void> done = m_profile.read(
        // Reads one row for each note, however many edits that has.
        QStringLiteral("WITH RECURSIVE found (note) AS (VALUES (%1) UNION ALL"
                       " SELECT %2 FROM found WHERE note IS NOT NULL)"
                       " SELECT note FROM found WHERE note IS NOT NULL")
            .arg(next.arg(QStringLiteral("''")), next.arg(QStringLiteral("found.note"))),
        {m_database, position, m_database, position},
        [&](const QSqlQuery &row) { notes.append(row.value(0).toString()); });
    if (!done) {
        return failure(done.error());
    }
    return notes;
}

Expected<QList<NoteRows::Place>> NoteRows::somePlaces(qint64 position, const QString &note,
                                                      int most) const {
    const int half = qMax(1, most / 2);
    // The edit that shows as the note, and the last and the first ones that have arrived: among
    // these are the user's own, and those from before somebody has sent so many.
    return places(
        QStringLiteral(
            "operations NOT INDEXED WHERE id IN (SELECT * FROM (SELECT id FROM operations WHERE "
            "database = ?"
            "  AND note_uuid = ? ORDER BY modified DESC, digest DESC LIMIT 1)"
            " UNION SELECT * FROM (SELECT id FROM operations WHERE database = ? AND position = ?"
            "  AND note_uuid = ? ORDER BY id DESC LIMIT ?)"
            " UNION SELECT * FROM (SELECT id FROM operations WHERE database = ? AND position = ?"
            "  AND note_uuid = ? ORDER BY id LIMIT ?))"),
        {m_database, note, m_database, position, note, half, m_database, position, note, half},
        2 * half + 1);
}

Expected<QList<NoteRow>> NoteRows::someRowsAt(qint64 position) const {
    const Expected<QStringList> notes = notesAt(position);
    if (!notes) {
        return failure(notes.error());
    }
    const int most = MostRows / qMax(1, static_cast<int>(notes->size()));
    QList<Place> some;
    for (const QString &note : *notes) {
        const Expected<QList<Place>> edits = somePlaces(position, note, most);
        if (!edits) {
            return failure(edits.error());
        }
        some.append(*edits);
    }
    return noteRows(position, some);
}

Expected<bool> NoteRows::hasMoreEdits(const QString &note, qsizetype count) const {
    return m_profile
        .value(QStringLiteral("SELECT 1 FROM operations WHERE database = ? AND note_uuid = ?"
                              " LIMIT 1 OFFSET ?"),
               {m_database, note, count})
        .map([](const QVariant &found) { return found.isValid(); });
}

Expected<QList<NoteRow>> NoteRows::noteRows(const QList<Place> &places) const {
    QList<NoteRow> found;
    found.reserve(places.size());
    for (auto first = places.begin(); first != places.end();) {
        const qint64 position = first->position;
        const auto end = std::find_if(
            first, places.end(), [&](const Place &place) { return place.position != position; });
        if (end - first == 1) {
            found.append({noteOf({first->operation.note, first->operation, {}}), position});
            first = end;
            continue;
        }
        const Expected<QList<NoteRow>> rows = end - first > MostRows
                                                  ? someRowsAt(position)
                                                  : noteRows(position, QList<Place>(first, end));
        if (!rows) {
            return failure(rows.error());
        }
        found.append(*rows);
        first = end;
    }
    return found;
}

Expected<QList<NoteRow>> NoteRows::noteRows(qint64 position, QList<Place> places) const {
    std::sort(places.begin(), places.end(),
              [](const Place &a, const Place &b) { return a.id < b.id; });
    QList<Operation> operations;
    operations.reserve(places.size());
    for (const Place &place : std::as_const(places)) {
        operations.append(place.operation);
    }
    return rowsOf(operations, [this](const QString &UUID) { return hasNote(UUID); })
        .map([&](const QList<Row> &rows) {
            QList<NoteRow> found;
            found.reserve(rows.size());
            for (const Row &row : rows) {
                found.append({noteOf(row), position});
            }
            return found;
        });
}

Expected<Note> NoteRows::completeNote(const Note &note) const {
    return m_operations.find(identifierOf(note.revision))
        .and_then([&](const std::optional<Operation> &found) -> Expected<Note> {
            if (!found) {
                return failure(engineError(EngineErrorCode::InvalidDatabase,
                                           "The note “%1” has changed meanwhile. Select it again.",
                                           note.title.left(80)));
            }
            return noteOf({note.UUID, *found, note.conflict});
        });
}

Expected<QList<NoteRows::Row>> NoteRows::rowsOf(const QList<Operation> &operations,
                                                const HasNote &hasNote) {
    QHash<QString, QList<Operation>> editsByNote;
    QStringList notes;
    for (const Operation &operation : operations) {
        QList<Operation> &edits = editsByNote[operation.note];
        if (edits.isEmpty()) {
            notes.append(operation.note);
        }
        edits.append(operation);
    }
    QList<Row> rows;
    rows.reserve(operations.size());
    for (const QString &note : std::as_const(notes)) {
        QList<Operation> &edits = editsByNote[note];
        std::sort(edits.begin(), edits.end(), comesBefore);
        const QString conflict = edits.size() > 1 ? note : QString();
        rows.append({note, edits.first(), conflict});
        for (const Operation &copy : edits.mid(1)) {
            const Expected<QString> UUID = UUIDOfCopy(copy, hasNote);
            if (!UUID) {
                return failure(UUID.error());
            }
            rows.append({*UUID, copy, conflict});
        }
    }
    return rows;
}

Expected<QString> NoteRows::UUIDOfCopy(const Operation &copy, const HasNote &hasNote) {
    const QString UUID = copy.UUIDOfCopy();
    // A note has this UUID only if it was created on purpose. No note has one in braces.
    return hasNote(UUID).map([&](bool isTaken) { return isTaken ? inBraces(UUID) : UUID; });
}

Expected<bool> NoteRows::hasNote(const QString &UUID) const {
    return m_profile
        .value(QStringLiteral("SELECT 1 FROM operations WHERE database = ? AND note_uuid = ?"
                              " LIMIT 1"),
               {m_database, UUID})
        .map([](const QVariant &found) { return found.isValid(); });
}

Expected<OperationId> NoteRows::editOf(const Note &note) const {
    if (note.revision.isEmpty()) {
        return shownAs(note.UUID);
    }
    return identifierOf(note.revision);
}

Expected<OperationId> NoteRows::shownAs(const QString &noteUUID) const {
    if (noteUUID.isEmpty()) {
        return OperationId();
    }
    const Expected<std::optional<Operation>> shown = m_operations.first(noteUUID);
    if (!shown) {
        return failure(shown.error());
    }
    if (*shown) {
        return (*shown)->id;
    }
    return copyShownAs(QUuid(noteUUID));
}

Expected<OperationId> NoteRows::copyShownAs(const QUuid &UUID) const {
    OperationId found;
    QString note;
    QUuid space;
    const Expected<void> done = m_profile.read(
        // An index has these columns, in this order.
        QStringLiteral("SELECT note_uuid, digest FROM operations WHERE database = ? AND note_uuid"
                       " IN (SELECT note_uuid FROM operations WHERE database = ?"
                       "  AND note_uuid <> '' GROUP BY note_uuid HAVING count(*) > 1)"
                       " ORDER BY note_uuid DESC, modified DESC, digest DESC"),
        {m_database, m_database}, [&](const QSqlQuery &row) {
            const QString rowNote = row.value(0).toString();
            // The first one shows as the note.
            if (rowNote != note) {
                note = rowNote;
                space = QUuid(note);
                return;
            }
            const OperationId identifier = row.value(1).toByteArray();
            if (Operation::UUIDOfCopy(space, identifier) == UUID) {
                found = identifier;
            }
        });
    return done.map([&] { return found; });
}
