#include "Engine/Notes/NoteLog.h"

#include <QtCore/QHash>
#include <QtCore/QUuid>
#include <algorithm>
#include <limits>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/ExactText.h"

namespace {

/// Of titles in the list, in characters.
constexpr int LongestTitle = 200;

/// Not localized: all computers must show the same title.
const QString ConflictMark = QStringLiteral(" (conflict)");

/// A column of identifiers must not be NULL.
QByteArray blob(const OperationId &identifier) {
    return identifier.isNull() ? QByteArray("") : identifier;
}

/// Returns `text` with unpaired surrogates replaced, as encoding a transaction would replace them.
QString wellFormed(const QString &text) {
    return text.isValidUtf16() ? text : ExactText::fromUtf8(text.toUtf8());
}

std::optional<qint64> soundMilliseconds(const QDateTime &date) {
    const qint64 sinceEpoch = date.toMSecsSinceEpoch();
    return date.isValid() && Operation::isDate(sinceEpoch) ? std::optional(sinceEpoch)
                                                           : std::nullopt;
}

QString revisionOf(const Operation &operation) {
    return QString::fromLatin1(operation.id.toHex());
}

constexpr QChar Brace = u'{';

QString inBraces(const QString &UUID) {
    return Brace + UUID + u'}';
}

bool holds(const Operation &operation, const Note &note) {
    return operation.note == note.UUID && operation.title == note.title &&
           operation.text == note.text && operation.modified == soundMilliseconds(note.modified);
}

/// Whether `longer` is `text` with something inserted at one place.
bool isContained(const QString &text, const QString &longer) {
    const auto [end, endInLonger] =
        std::mismatch(text.begin(), text.end(), longer.begin(), longer.end());
    return longer.size() >= text.size() &&
           longer.endsWith(QStringView(text).mid(end - text.begin()));
}

/// Whether no word of `operation` is lost if `note` replaces it, as while a user types.
bool isContained(const Operation &operation, const Note &note) {
    return operation.note == note.UUID && isContained(operation.title, note.title) &&
           isContained(operation.text, note.text);
}

qsizetype roughSize(const Operation &operation) {
    constexpr qsizetype members = 200;
    constexpr qsizetype identifier = 35;
    return members + operation.title.size() + operation.text.size() +
           operation.supersedes.size() * identifier;
}

/// The most operations that an answer to a removal follows in a chain. A store can supersede a long
/// chain, since all its operations follow from the first one, and each costs a digest of its text.
constexpr int MostRenewals = 3;

/// The columns of the table "operations" for which the digest stands.
const QStringList ContentColumns{QStringLiteral("note_uuid"),  QStringLiteral("title"),
                                 QStringLiteral("text"),       QStringLiteral("modified"),
                                 QStringLiteral("supersedes"), QStringLiteral("salt")};

/// Takes the database, and is followed by a condition.
const QString OfDatabase = QStringLiteral("operations WHERE database = ? AND ");

/// Takes the database.
const QString ConflictsCounted = QStringLiteral(
    "SELECT count(*) FROM (SELECT 1 FROM operations WHERE database = ?"
    " AND note_uuid <> '' GROUP BY note_uuid HAVING count(*) > 1)");

QString selection(const QString &condition, const QString &order = QStringLiteral("position, id")) {
    return QStringLiteral("SELECT %1 FROM operations WHERE database = ? AND %2 ORDER BY %3")
        .arg(NoteLog::OperationColumns, condition, order);
}

Expected<void> checkNote(const Note &note) {
    if (!Operation::isUUID(note.UUID)) {
        return failure(
            engineError(EngineErrorCode::InvalidDatabase,
                        "“%1” is not a valid identifier of a note. Please report this as "
                        "an error of Velmora.",
                        note.UUID));
    }
    if (note.title.toUtf8().size() + note.text.toUtf8().size() > Operation::NoteLimit) {
        return failure(engineError(
            EngineErrorCode::InvalidDatabase,
            "The note “%1” is too long to be synchronized. Divide it into several notes.",
            note.title.left(80)));
    }
    return {};
}

/// Whether both are edits of one note.
bool areConflicting(const Operation &one, const Operation &other) {
    return one.id != other.id && one.note == other.note && !one.note.isEmpty();
}

bool comesBefore(const Operation &a, const Operation &b) {
    return a.comesBefore(b);
}

}  // namespace

Expected<qint64> NoteLog::insertDatabase(const ProfileDatabase &profile, const QString &UUID,
                                         const QString &name) {
    return profile
        .value(QStringLiteral("INSERT INTO databases (uuid, name)"
                              " VALUES (?, CAST(? AS TEXT)) RETURNING id"),
               {UUID, ProfileDatabase::exactText(name)})
        .map([](const QVariant &id) { return id.toLongLong(); });
}

Operation NoteLog::operationIn(const QSqlQuery &row) {
    const QVariant modified = row.value(4);
    return {row.value(0).toByteArray(),
            row.value(1).toString(),
            ProfileDatabase::exactText(row.value(2)),
            ProfileDatabase::exactText(row.value(3)),
            modified.isNull() ? std::nullopt : std::optional(modified.toLongLong()),
            Operation::unpacked(row.value(5).toByteArray()),
            row.value(6).toByteArray()};
}

NoteLog::NoteLog(const ProfileDatabase &profile, qint64 database, qint64 lastAtOpening)
    : m_profile(profile),
      m_database(database),
      m_lastAtOpening(lastAtOpening),
      m_history(profile, database) {}

Expected<QList<Note>> NoteLog::notes() const {
    const Expected<QList<Row>> all = rows();
    if (!all) {
        return failure(all.error());
    }
    QList<Note> notes;
    notes.reserve(all->size());
    for (const Row &row : *all) {
        notes.append(noteOf(row));
    }
    return notes;
}

Note NoteLog::noteOf(const Row &row) {
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

Expected<QList<NoteRow>> NoteLog::noteRows(qint64 from, int count) const {
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

Expected<QList<NoteRow>> NoteLog::nextRows(qint64 from, int count) const {
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
            return noteRowsAt(last->toLongLong()).map([&](const QList<NoteRow> &lastRows) {
                return rows + lastRows;
            });
        });
}

Expected<QList<NoteRow>> NoteLog::noteRowsAt(qint64 position) const {
    return places(OfDatabase + QStringLiteral("position = ?"), {m_database, position}, MostRows + 1)
        .and_then([this](const auto &found) { return noteRows(found); });
}

Expected<QList<NoteLog::Place>> NoteLog::places(const QString &source, const QVariantList &values,
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

Expected<QStringList> NoteLog::notesAt(qint64 position) const {
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

Expected<QList<NoteLog::Place>> NoteLog::somePlaces(qint64 position, const QString &note,
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

Expected<QList<NoteRow>> NoteLog::someRowsAt(qint64 position) const {
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

Expected<bool> NoteLog::hasMoreEdits(const QString &note, qsizetype count) const {
    return m_profile
        .value(QStringLiteral("SELECT 1 FROM operations WHERE database = ? AND note_uuid = ?"
                              " LIMIT 1 OFFSET ?"),
               {m_database, note, count})
        .map([](const QVariant &found) { return found.isValid(); });
}

Expected<QList<NoteRow>> NoteLog::noteRows(const QList<Place> &places) const {
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

Expected<QList<NoteRow>> NoteLog::noteRows(qint64 position, QList<Place> places) const {
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

Expected<Note> NoteLog::completeNote(const Note &note) const {
    return operation(QByteArray::fromHex(note.revision.toLatin1()))
        .and_then([&](const std::optional<Operation> &found) -> Expected<Note> {
            if (!found) {
                return failure(engineError(EngineErrorCode::InvalidDatabase,
                                           "The note “%1” has changed meanwhile. Select it again.",
                                           note.title.left(80)));
            }
            return noteOf({note.UUID, *found, note.conflict});
        });
}

Expected<bool> NoteLog::hasNote(const QString &UUID) const {
    return m_profile
        .value(QStringLiteral("SELECT 1 FROM operations WHERE database = ? AND note_uuid = ?"
                              " LIMIT 1"),
               {m_database, UUID})
        .map([](const QVariant &found) { return found.isValid(); });
}

Expected<void> NoteLog::save(Note &note) const {
    Note saved{note.UUID, wellFormed(note.title), wellFormed(note.text), note.modified,
               note.revision};
    if (saved.UUID.isEmpty() || saved.UUID.startsWith(Brace)) {
        saved.UUID = QUuid::createUuid().toString(QUuid::WithoutBraces);
    }
    if (Expected<void> checked = checkNote(saved); !checked) {
        return checked;
    }
    const Expected<Operation> current =
        seenAs(note).and_then([&](const OperationId &seenId) { return writeEdit(saved, seenId); });
    if (!current) {
        return failure(current.error());
    }
    saved.revision = revisionOf(*current);
    note = saved;
    return {};
}

Expected<Operation> NoteLog::writeEdit(const Note &note, const OperationId &seen) const {
    const Expected<std::optional<Operation>> current = operation(seen);
    if (!current) {
        return failure(current.error());
    }
    if (*current && holds(**current, note) && (*current)->isSound()) {
        return **current;
    }
    const QList<OperationId> replaced = seen.isEmpty() ? QList<OperationId>() : QList{seen};
    const Expected<QList<OperationId>> superseded = predecessors(replaced);
    if (!superseded) {
        return failure(superseded.error());
    }
    const Expected<bool> unsent = isUnsent(seen);
    if (!unsent) {
        return failure(unsent.error());
    }
    const bool isDispensable = *unsent && *current && isContained(**current, note);
    Operation edit = Operation::make(note.UUID, note.title, note.text,
                                     soundMilliseconds(note.modified), *superseded);
    return replace(replaced, edit, isDispensable ? Keeping::Drop : Keeping::Keep).map([&] {
        return edit;
    });
}

Expected<bool> NoteLog::remove(const Note &note) const {
    const Expected<std::optional<Operation>> seen = seenOperation(note);
    if (!seen) {
        return failure(seen.error());
    }
    if (!*seen) {
        return false;
    }
    const OperationId identifier = (*seen)->id;
    return isUnsent(identifier)
        .and_then(
            [&](bool unsent) { return unsent ? erase({identifier}) : supersede({identifier}); })
        .map([] { return true; });
}

Expected<void> NoteLog::resolveConflict(Note &kept, const Note &removed) const {
    const Expected<std::optional<Operation>> one = seenOperation(kept);
    const Expected<std::optional<Operation>> other = seenOperation(removed);
    if (!one || !other) {
        return failure(one ? other.error() : one.error());
    }
    if (!*one || !*other || !areConflicting(**one, **other)) {
        return failure(engineError(EngineErrorCode::InvalidDatabase,
                                   "The edits of “%1” have changed meanwhile, so none was removed."
                                   " Compare them again, then decide.",
                                   kept.title.left(80)));
    }
    const Expected<Operation> resolved = resolution(**one, **other);
    if (!resolved) {
        return failure(resolved.error());
    }
    return erase({(*one)->id}, Keeping::Drop)
        .and_then([&] { return replace({(*other)->id}, *resolved); })
        .and_then([&] { return markAllSent(); })
        .map([&] { kept.revision = revisionOf(*resolved); });
}

Expected<Operation> NoteLog::resolution(const Operation &kept, const Operation &removed) const {
    const Expected<QList<OperationId>> superseded = predecessors({kept.id, removed.id});
    if (!superseded) {
        return failure(superseded.error());
    }
    const Operation resolved = kept.resolving(*superseded);
    return isSuperseded(resolved.id).map([&](bool isKnown) {
        // The result of the same decision on another computer was replaced or removed there.
        return isKnown
                   ? Operation::make(kept.note, kept.title, kept.text, kept.modified, *superseded)
                   : resolved;
    });
}

Expected<std::optional<Operation>> NoteLog::seenOperation(const Note &note) const {
    return seenAs(note).and_then(
        [&](const OperationId &identifier) { return operation(identifier); });
}

Expected<OperationId> NoteLog::seenAs(const Note &note) const {
    if (note.revision.isEmpty()) {
        return shownAs(note.UUID);
    }
    return QByteArray::fromHex(note.revision.toLatin1());
}

Expected<QString> NoteLog::name() const {
    return first({}).map([](const std::optional<Operation> &operation) {
        return operation ? operation->title : QString();
    });
}

Expected<void> NoteLog::setName(const QString &name) const {
    const Expected<QList<OperationId>> names = operationIds({});
    if (!names) {
        return failure(names.error());
    }
    const QList<OperationId> seen = names->first(qMin(names->size(), Operation::SupersedesLimit));
    return predecessors(seen).and_then([&](const QList<OperationId> &superseded) {
        // What does not fit into the operation is sent as superseded without it.
        const Operation operation =
            Operation::make({}, wellFormed(name), {}, QDateTime::currentMSecsSinceEpoch(),
                            superseded.first(qMin(superseded.size(), Operation::SupersedesLimit)));
        return replace(seen, operation).and_then([&] { return supersede(superseded); });
    });
}

Expected<void> NoteLog::merge(const Transaction &transaction) const {
    return merge(transaction.operations, transaction.allSuperseded(), {});
}

Expected<void> NoteLog::merge(const QList<Operation> &operations,
                              const QList<OperationId> &superseded, const QString &place) const {
    Expected<QSqlQuery> insertion = prepareInsertion();
    if (!insertion) {
        return failure(insertion.error());
    }
    for (const Operation &operation : operations) {
        if (Expected<void> inserted = insert(*insertion, operation, operation.supersedes.value(0));
            !inserted) {
            return inserted;
        }
    }
    return supersede(superseded, place).and_then([&] { return markAllSent(); });
}

Expected<void> NoteLog::renew(const QList<Operation> &operations,
                              const QSet<OperationId> &superseded) const {
    for (const Operation &operation : operations) {
        Expected<void> renewed =
            renewalOf(operation, superseded).and_then([&](const Operation &renewal) {
                return replace({operation.id}, renewal);
            });
        if (!renewed) {
            return renewed;
        }
    }
    return {};
}

Expected<Operation> NoteLog::renewalOf(const Operation &operation,
                                       const QSet<OperationId> &superseded) const {
    Operation renewal = operation;
    for (int i = 0; i < MostRenewals; ++i) {
        renewal = renewal.renewed();
        const Expected<bool> known = isSuperseded(renewal.id);
        if (!known) {
            return failure(known.error());
        }
        if (!*known && !superseded.contains(renewal.id)) {
            return renewal;
        }
        // Another computer has brought the note back before, and it was removed again.
    }
    return Operation::make(operation.note, operation.title, operation.text, operation.modified,
                           {operation.id});
}

Expected<void> NoteLog::markAllSent() const {
    return m_profile.run(
        // Ids increase over all databases, so this takes O(log n).
        QStringLiteral("UPDATE databases SET sent = coalesce("
                       "(SELECT max(id) FROM operations), sent) WHERE id = ?"),
        {m_database});
}

Expected<bool> NoteLog::isEmpty() const {
    return m_profile
        .value(QStringLiteral("SELECT EXISTS (SELECT 1 FROM operations WHERE database = ?)"
                              " OR EXISTS (SELECT 1 FROM superseded WHERE database = ?)"),
               {m_database, m_database})
        .map([](const QVariant &exists) { return !exists.toBool(); });
}

Expected<qint64> NoteLog::countOfNotes() const {
    return m_profile
        .value(QStringLiteral("SELECT count(*) FROM (SELECT DISTINCT note_uuid FROM operations"
                              " WHERE database = ? AND note_uuid <> '')"),
               {m_database})
        .map([](const QVariant &count) { return count.toLongLong(); });
}

Expected<qsizetype> NoteLog::countOf(const QStringList &UUIDs) const {
    Expected<QSqlQuery> query = m_profile.prepare(
        QStringLiteral("SELECT 1 FROM operations WHERE database = ? AND note_uuid = ? LIMIT 1"));
    if (!query) {
        return failure(query.error());
    }
    qsizetype count = 0;
    for (const QString &UUID : UUIDs) {
        const Expected<void> read =
            m_profile.read(*query, {m_database, UUID}, [&](const QSqlQuery & /*row*/) { ++count; });
        if (!read) {
            return failure(read.error());
        }
    }
    return count;
}

Expected<bool> NoteLog::hasMoreNotesThan(qint64 count) const {
    return m_profile
        .value(QStringLiteral("SELECT count(*) FROM (SELECT DISTINCT note_uuid FROM operations"
                              " WHERE database = ? AND note_uuid <> '' LIMIT ?)"),
               {m_database, count + 1})
        .map([&](const QVariant &found) { return found.toLongLong() > count; });
}

Expected<qint64> NoteLog::countOfConflicts() const {
    return m_profile
        .value(QStringLiteral("SELECT coalesce((SELECT conflicts FROM counts WHERE database = ?),"
                              " (%1))")
                   .arg(ConflictsCounted),
               {m_database, m_database})
        .map([](const QVariant &count) { return count.toLongLong(); });
}

Expected<bool> NoteLog::isCountOfConflictsSound() const {
    return m_profile
        .value(QStringLiteral("SELECT (SELECT conflicts FROM counts WHERE database = ?) IS (%1)")
                   .arg(ConflictsCounted),
               {m_database, m_database})
        .map([](const QVariant &isSound) { return isSound.toBool(); });
}

Expected<void> NoteLog::recountConflicts() const {
    return m_profile.run(
        QStringLiteral("INSERT OR REPLACE INTO counts (database, conflicts) VALUES (?, (%1))")
            .arg(ConflictsCounted),
        {m_database, m_database});
}

Expected<QList<NoteVersion>> NoteLog::earlierVersions(const Note &note,
                                                      const VersionsPart &part) const {
    QStringList UUIDs{note.UUID};
    // A copy has the versions of the note, too.
    if (!note.conflict.isEmpty() && note.conflict != note.UUID) {
        UUIDs.append(note.conflict);
    }
    return m_history.versions(UUIDs, part);
}

Expected<QList<OperationId>> NoteLog::operationIds() const {
    return identifiers(QStringLiteral("TRUE"), {});
}

Expected<QList<OperationId>> NoteLog::operationIds(const QString &note) const {
    return identifiers(QStringLiteral("note_uuid = ?"), {ProfileDatabase::text(note)});
}

Expected<QList<OperationId>> NoteLog::identifiers(const QString &condition,
                                                  const QVariantList &values) const {
    QList<OperationId> identifiers;
    return visitIds(condition, values, [&](const OperationId &each) { identifiers.append(each); })
        .map([&] { return identifiers; });
}

Expected<void> NoteLog::visitIds(const QString &condition, const QVariantList &values,
                                 const IdVisitor &visit) const {
    return m_profile.read(
        QStringLiteral("SELECT digest FROM operations WHERE database = ? AND %1 ORDER BY id")
            .arg(condition),
        QVariantList{m_database} + values,
        [&](const QSqlQuery &row) { visit(row.value(0).toByteArray()); });
}

Expected<void> NoteLog::visitOperationIds(const IdVisitor &visit) const {
    return visitIds(QStringLiteral("TRUE"), {}, visit);
}

Expected<void> NoteLog::visitSupersededIds(const IdVisitor &visit) const {
    return m_profile.read(QStringLiteral("SELECT digest FROM superseded WHERE database = ?"),
                          {m_database},
                          [&](const QSqlQuery &row) { visit(row.value(0).toByteArray()); });
}

Expected<QSet<OperationId>> NoteLog::supersededIds() const {
    QSet<OperationId> identifiers;
    return visitSupersededIds([&](const OperationId &each) { identifiers.insert(each); }).map([&] {
        return identifiers;
    });
}

Expected<NoteLog::IdentifierSets> NoteLog::identifierSets() const {
    IdentifierSets sets;
    return visitOperationIds([&](const OperationId &each) { sets.operations.add(each); })
        .and_then([&] {
            return visitSupersededIds([&](const OperationId &each) { sets.superseded.add(each); });
        })
        .map([&] {
            sets.operations.sort();
            sets.superseded.sort();
            return std::move(sets);
        });
}

Expected<NoteLog::IdentifierSets> NoteLog::identifierSetsOf(
    const QList<OperationId> &identifiers) const {
    IdentifierSets sets;
    for (IdentifierSet *set : {&sets.operations, &sets.superseded}) {
        Expected<QSqlQuery> query = m_profile.prepare(
            QStringLiteral("SELECT digest FROM %1 WHERE database = ? AND digest = ?")
                .arg(set == &sets.operations ? QStringLiteral("operations")
                                             : QStringLiteral("superseded")));
        if (!query) {
            return failure(query.error());
        }
        for (const OperationId &identifier : identifiers) {
            if (const Expected<void> read = m_profile.read(
                    *query, {m_database, identifier},
                    [&](const QSqlQuery &row) { set->add(row.value(0).toByteArray()); });
                !read) {
                return failure(read.error());
            }
        }
        set->sort();
    }
    return sets;
}

Expected<QList<NoteLog::Damage>> NoteLog::damagedOperations() const {
    const Expected<QSet<OperationId>> superseded = supersededIds();
    if (!superseded) {
        return failure(superseded.error());
    }
    QList<Damage> damaged;
    const Expected<void> done = m_profile.read(
        selection(QStringLiteral("TRUE"), QStringLiteral("id")), {m_database},
        [&](const QSqlQuery &row) {
            const Operation operation = operationIn(row);
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

Expected<QList<OperationId>> NoteLog::returnedIds() const {
    return identifiers(QStringLiteral("EXISTS (SELECT 1 FROM superseded AS s"
                                      " WHERE s.database = operations.database"
                                      " AND s.digest = operations.digest)"),
                       {});
}

Expected<bool> NoteLog::isDamaged(const OperationId &identifier) const {
    return operation(identifier).map([](const std::optional<Operation> &found) {
        return found && !found->isSound();
    });
}

Expected<bool> NoteLog::removeDamagedCopy(const Operation &damaged) const {
    const OperationId identifier = damaged.computedId();
    if (identifier == damaged.id) {
        return false;
    }
    const Expected<std::optional<Operation>> current = operation(identifier);
    const Expected<bool> isSuperseded = this->isSuperseded(identifier);
    if (!current || !isSuperseded) {
        return failure(current ? isSuperseded.error() : current.error());
    }
    if (!*current && !*isSuperseded) {
        return false;
    }
    const Expected<bool> isKept = *current ? true : m_history.contains(damaged.id);
    if (!isKept) {
        return failure(isKept.error());
    }
    return erase({damaged.id}, *isKept ? Keeping::Drop : Keeping::Keep).map([] { return true; });
}

Expected<std::optional<Operation>> NoteLog::operation(const OperationId &identifier) const {
    return select(QStringLiteral("digest = ?"), {blob(identifier)})
        .map([](const QList<Operation> &found) {
            return found.isEmpty() ? std::nullopt : std::optional(found.first());
        });
}

Expected<QList<NoteLog::Row>> NoteLog::rows() const {
    return select(QStringLiteral("note_uuid <> ''"), {}).and_then([](const QList<Operation> &all) {
        QSet<QString> notes;
        for (const Operation &operation : all) {
            notes.insert(operation.note);
        }
        return rowsOf(all,
                      [&](const QString &UUID) -> Expected<bool> { return notes.contains(UUID); });
    });
}

Expected<QList<NoteLog::Row>> NoteLog::rowsOf(const QList<Operation> &operations,
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

Expected<QString> NoteLog::UUIDOfCopy(const Operation &copy, const HasNote &hasNote) {
    const QString UUID = copy.UUIDOfCopy();
    // A note has this UUID only if it was created on purpose. No note has one in braces.
    return hasNote(UUID).map([&](bool isTaken) { return isTaken ? inBraces(UUID) : UUID; });
}

Expected<std::optional<Operation>> NoteLog::first(const QString &note) const {
    // The order of Operation::comesBefore. An index has it.
    const QString order = QStringLiteral("modified DESC, digest DESC LIMIT 1");
    std::optional<Operation> first;
    const Expected<void> done =
        m_profile.read(selection(QStringLiteral("note_uuid = ?"), order),
                       {m_database, ProfileDatabase::text(note)},
                       [&](const QSqlQuery &row) { first = operationIn(row); });
    if (!done) {
        return failure(done.error());
    }
    return first;
}

Expected<OperationId> NoteLog::shownAs(const QString &noteUUID) const {
    if (noteUUID.isEmpty()) {
        return OperationId();
    }
    const Expected<std::optional<Operation>> shown = first(noteUUID);
    if (!shown) {
        return failure(shown.error());
    }
    if (*shown) {
        return (*shown)->id;
    }
    return copyShownAs(QUuid(noteUUID));
}

Expected<OperationId> NoteLog::copyShownAs(const QUuid &UUID) const {
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

Expected<QList<Operation>> NoteLog::select(const QString &condition,
                                           const QVariantList &values) const {
    QList<Operation> operations;
    const Expected<void> done =
        m_profile.read(selection(condition), QVariantList{m_database} + values,
                       [&](const QSqlQuery &row) { operations.append(operationIn(row)); });
    if (!done) {
        return failure(done.error());
    }
    return operations;
}

Expected<NoteLog::Portion> NoteLog::firstOperations(const QList<OperationId> &identifiers) const {
    Expected<QSqlQuery> query = m_profile.prepare(selection(QStringLiteral("digest = ?")));
    if (!query) {
        return failure(query.error());
    }
    Portion portion;
    qsizetype size = 0;
    for (; portion.count < identifiers.size() && size < Transaction::UsualSize; ++portion.count) {
        const Expected<void> done = m_profile.read(*query, {m_database, identifiers[portion.count]},
                                                   [&](const QSqlQuery &row) {
                                                       portion.operations.append(operationIn(row));
                                                       size += roughSize(portion.operations.last());
                                                   });
        if (!done) {
            return failure(done.error());
        }
    }
    return portion;
}

Expected<QSqlQuery> NoteLog::prepareSize() const {
    return m_profile.prepare(
        QStringLiteral("SELECT length(CAST(title AS BLOB)) + length(CAST(text AS BLOB))"
                       " FROM operations WHERE database = ? AND digest = ?"));
}

Expected<qint64> NoteLog::size(QSqlQuery &query, const OperationId &identifier) const {
    qint64 size = 0;
    return m_profile
        .read(query, {m_database, identifier},
              [&](const QSqlQuery &row) { size = row.value(0).toLongLong(); })
        .map([&] { return size; });
}

Expected<QList<OperationId>> NoteLog::predecessors(const QList<OperationId> &seen) const {
    QList<OperationId> identifiers;
    for (const OperationId &identifier : seen) {
        const Expected<bool> unsent = isUnsent(identifier);
        if (!unsent) {
            return failure(unsent.error());
        }
        if (!*unsent) {
            identifiers.append(identifier);
            continue;
        }
        const Expected<std::optional<Operation>> replaced = operation(identifier);
        if (!replaced) {
            return failure(replaced.error());
        }
        identifiers.append(replaced->value_or(Operation()).supersedes);
    }
    return identifiers;
}

Expected<bool> NoteLog::isUnsent(const OperationId &identifier) const {
    return m_profile
        .value(QStringLiteral("SELECT 1 FROM operations JOIN databases"
                              " ON databases.id = operations.database WHERE database = ?"
                              " AND digest = ? AND operations.id > max(sent, ?)"),
               {m_database, blob(identifier), m_lastAtOpening})
        .map([](const QVariant &found) { return found.isValid(); });
}

Expected<bool> NoteLog::isSuperseded(const OperationId &identifier) const {
    return m_profile
        .value(QStringLiteral("SELECT 1 FROM superseded WHERE database = ? AND digest = ?"),
               {m_database, blob(identifier)})
        .map([](const QVariant &found) { return found.isValid(); });
}

Expected<void> NoteLog::replace(const QList<OperationId> &seen, const Operation &operation,
                                Keeping keeping) const {
    return prepareInsertion()
        .and_then([&](QSqlQuery insertion) { return insert(insertion, operation, seen.value(0)); })
        .and_then([&] { return erase(seen, keeping); })
        .and_then([&] { return supersede(operation.supersedes); });
}

Expected<QSqlQuery> NoteLog::prepareInsertion() const {
    const QString contents = ContentColumns.join(QStringLiteral(", "));
    const QString excluded =
        QStringLiteral("excluded.") + ContentColumns.join(QStringLiteral(", excluded."));
    return m_profile.prepare(
        QStringLiteral(
            "WITH new (database, digest, %1, seen)"
            " AS (VALUES (?, ?, ?, CAST(? AS TEXT), CAST(? AS TEXT), ?, ?, ?, ?))"
            " INSERT OR IGNORE INTO operations (database, digest, %1, position)"
            " SELECT database, digest, %1, coalesce("
            "  (SELECT position FROM operations AS o"
            "   WHERE o.database = new.database AND o.note_uuid = new.note_uuid"
            // The index with this order finds the note; another has all columns, but not this one.
            "   ORDER BY o.modified LIMIT 1),"
            "  (SELECT position FROM operations AS o"
            "   WHERE o.database = new.database AND o.digest = new.seen"
            // All rows of a position are read together.
            "    AND NOT EXISTS (SELECT 1 FROM operations AS p WHERE p.database = o.database"
            "     AND p.position = o.position LIMIT 1 OFFSET %3)),"
            "  (SELECT max(position) + 1 FROM operations AS o WHERE o.database = new.database), 0)"
            " FROM new WHERE NOT EXISTS (SELECT 1 FROM superseded AS s"
            "  WHERE s.database = new.database AND s.digest = new.digest)"
            // A row with other contents is damaged.
            " ON CONFLICT (database, digest) DO UPDATE SET (%1) = (%2) WHERE (%1) IS NOT (%2)"
            " RETURNING position")
            .arg(contents, excluded, QString::number(MostRows - 1)));
}

Expected<void> NoteLog::insert(QSqlQuery &insertion, const Operation &operation,
                               const OperationId &seen) const {
    const auto modified = operation.modified;
    return m_profile.read(
        insertion,
        {m_database, blob(operation.id), ProfileDatabase::text(operation.note),
         ProfileDatabase::exactText(operation.title), ProfileDatabase::exactText(operation.text),
         modified ? QVariant(*modified) : QVariant(), Operation::packed(operation.supersedes),
         operation.salt, blob(seen)},
        [this](const QSqlQuery &row) { m_changedPositions.insert(row.value(0).toLongLong()); });
}

Expected<void> NoteLog::erase(const QList<OperationId> &identifiers, Keeping keeping,
                              const QString &place) const {
    Expected<QSqlQuery> deletion =
        m_profile.prepare(QStringLiteral("DELETE FROM operations WHERE database = ? AND digest = ?"
                                         " RETURNING position"));
    if (!deletion) {
        return failure(deletion.error());
    }
    Expected<QSqlQuery> addition = m_history.prepareAddition();
    if (!addition) {
        return failure(addition.error());
    }
    for (const OperationId &identifier : identifiers) {
        const Expected<void> kept = keeping == Keeping::Keep
                                        ? m_history.add(*addition, identifier, place)
                                        : Expected<void>();
        if (Expected<void> erased = kept.and_then([&] {
                return m_profile.read(*deletion, {m_database, identifier},
                                      [this](const QSqlQuery &row) {
                                          m_changedPositions.insert(row.value(0).toLongLong());
                                      });
            });
            !erased) {
            return erased;
        }
    }
    return {};
}

Expected<void> NoteLog::supersede(const QList<OperationId> &identifiers,
                                  const QString &place) const {
    Expected<QSqlQuery> insertion = m_profile.prepare(
        QStringLiteral("INSERT OR IGNORE INTO superseded (database, digest) VALUES (?, ?)"));
    if (!insertion) {
        return failure(insertion.error());
    }
    QList<OperationId> added;
    for (const OperationId &identifier : identifiers) {
        if (Expected<void> inserted = m_profile.run(*insertion, {m_database, identifier});
            !inserted) {
            return inserted;
        }
        if (insertion->numRowsAffected() > 0) {
            added.append(identifier);
        }
    }
    return erase(added, Keeping::Keep, place);
}
