#include "Engine/Notes/NoteLog.h"

#include <QtCore/QUuid>
#include <algorithm>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Notes/NoteRows.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Platform/Foundation/ExactText.h"

namespace {

/// Returns `text` with unpaired surrogates replaced, as encoding a transaction would replace them.
QString wellFormed(const QString &text) {
    return text.isValidUtf16() ? text : ExactText::fromUtf8(text.toUtf8());
}

std::optional<qint64> soundMilliseconds(const QDateTime &date) {
    const qint64 sinceEpoch = date.toMSecsSinceEpoch();
    return date.isValid() && Operation::isDate(sinceEpoch) ? std::optional(sinceEpoch)
                                                           : std::nullopt;
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

}  // namespace

Expected<qint64> NoteLog::insertDatabase(const ProfileDatabase &profile, const QString &UUID,
                                         const QString &name) {
    return profile
        .value(QStringLiteral("INSERT INTO databases (uuid, name)"
                              " VALUES (?, CAST(? AS TEXT)) RETURNING id"),
               {UUID, ProfileDatabase::exactText(name)})
        .map([](const QVariant &id) { return id.toLongLong(); });
}

NoteLog::NoteLog(const ProfileDatabase &profile, qint64 database, qint64 lastAtOpening)
    : m_profile(profile),
      m_database(database),
      m_lastAtOpening(lastAtOpening),
      m_operations(profile, database),
      m_history(profile, database) {}

Expected<void> NoteLog::save(Note &note) const {
    Note saved{note.UUID, wellFormed(note.title), wellFormed(note.text), note.modified,
               note.revision};
    if (saved.UUID.isEmpty() || NoteRows::isInBraces(saved.UUID)) {
        saved.UUID = QUuid::createUuid().toString(QUuid::WithoutBraces);
    }
    if (Expected<void> checked = checkNote(saved); !checked) {
        return checked;
    }
    const Expected<Operation> current =
        NoteRows(m_profile, m_database).editOf(note).and_then([&](const OperationId &seenId) {
            return writeEdit(saved, seenId);
        });
    if (!current) {
        return failure(current.error());
    }
    saved.revision = NoteRows::revisionOf(*current);
    note = saved;
    return {};
}

Expected<Operation> NoteLog::writeEdit(const Note &note, const OperationId &seen) const {
    const Expected<std::optional<Operation>> current = m_operations.find(seen);
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
        .map([&] { kept.revision = NoteRows::revisionOf(*resolved); });
}

Expected<Operation> NoteLog::resolution(const Operation &kept, const Operation &removed) const {
    const Expected<QList<OperationId>> superseded = predecessors({kept.id, removed.id});
    if (!superseded) {
        return failure(superseded.error());
    }
    const Operation resolved = kept.resolving(*superseded);
    return m_operations.isSuperseded(resolved.id).map([&](bool isKnown) {
        // The result of the same decision on another computer was replaced or removed there.
        return isKnown
                   ? Operation::make(kept.note, kept.title, kept.text, kept.modified, *superseded)
                   : resolved;
    });
}

Expected<std::optional<Operation>> NoteLog::seenOperation(const Note &note) const {
    return NoteRows(m_profile, m_database)
        .editOf(note)
        .and_then([&](const OperationId &identifier) { return m_operations.find(identifier); });
}

Expected<QString> NoteLog::name() const {
    return m_operations.first({}).map([](const std::optional<Operation> &operation) {
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
        const Expected<bool> known = m_operations.isSuperseded(renewal.id);
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

Expected<QList<OperationId>> NoteLog::returnedIds() const {
    return identifiers(QStringLiteral("EXISTS (SELECT 1 FROM superseded AS s"
                                      " WHERE s.database = operations.database"
                                      " AND s.digest = operations.digest)"),
                       {});
}

Expected<bool> NoteLog::isDamaged(const OperationId &identifier) const {
    return m_operations.find(identifier).map([](const std::optional<Operation> &found) {
        return found && !found->isSound();
    });
}

Expected<bool> NoteLog::removeDamagedCopy(const Operation &damaged) const {
    const OperationId identifier = damaged.computedId();
    if (identifier == damaged.id) {
        return false;
    }
    const Expected<std::optional<Operation>> current = m_operations.find(identifier);
    const Expected<bool> isSuperseded = m_operations.isSuperseded(identifier);
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

Expected<NoteLog::Portion> NoteLog::firstOperations(const QList<OperationId> &identifiers) const {
    Expected<QSqlQuery> query =
        m_profile.prepare(OperationTable::selection(QStringLiteral("digest = ?")));
    if (!query) {
        return failure(query.error());
    }
    Portion portion;
    qsizetype size = 0;
    for (; portion.count < identifiers.size() && size < Transaction::UsualSize; ++portion.count) {
        const Expected<void> done = m_profile.read(
            *query, {m_database, identifiers[portion.count]}, [&](const QSqlQuery &row) {
                portion.operations.append(OperationTable::operationIn(row));
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
        const Expected<std::optional<Operation>> replaced = m_operations.find(identifier);
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
               {m_database, OperationTable::blob(identifier), m_lastAtOpening})
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
            .arg(contents, excluded, QString::number(NoteRows::MostRows - 1)));
}

Expected<void> NoteLog::insert(QSqlQuery &insertion, const Operation &operation,
                               const OperationId &seen) const {
    const auto modified = operation.modified;
    return m_profile.read(
        insertion,
        {m_database, OperationTable::blob(operation.id), ProfileDatabase::text(operation.note),
         ProfileDatabase::exactText(operation.title), ProfileDatabase::exactText(operation.text),
         modified ? QVariant(*modified) : QVariant(), Operation::packed(operation.supersedes),
         operation.salt, OperationTable::blob(seen)},
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
