#include "Engine/Notes/NoteLog.h"

#include <QtCore/QHash>
#include <QtCore/QUuid>
#include <algorithm>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Platform/Foundation/Localization.h"

namespace {

/// The same on every computer, so not in the person's language.
const QString ConflictMark = QStringLiteral(" (conflict)");

/// Never NULL, as a column of identifiers is not.
QByteArray blob(const OperationId &identifier) {
    return identifier.isNull() ? QByteArray("") : identifier;
}

Operation operationInRow(const QSqlQuery &row) {
    const QVariant modified = row.value(4);
    return {row.value(0).toByteArray(),
            row.value(1).toString(),
            row.value(2).toString(),
            row.value(3).toString(),
            modified.isNull() ? std::nullopt : std::optional(modified.toLongLong()),
            Operation::unpacked(row.value(5).toByteArray()),
            row.value(6).toByteArray()};
}

/// With what is no character replaced, as it would be on its way through a store.
QString wellFormed(const QString &text) {
    return text.isValidUtf16() ? text : QString::fromUtf8(text.toUtf8());
}

std::optional<qint64> soundMilliseconds(const QDateTime &date) {
    const qint64 sinceEpoch = date.toMSecsSinceEpoch();
    return date.isValid() && Operation::isDate(sinceEpoch) ? std::optional(sinceEpoch)
                                                           : std::nullopt;
}

QString revisionOf(const Operation &operation) {
    return QString::fromLatin1(operation.id.toHex());
}

bool holds(const Operation &operation, const Note &note) {
    return operation.note == note.UUID && operation.title == note.title &&
           operation.text == note.text && operation.modified == soundMilliseconds(note.modified);
}

qsizetype roughSize(const Operation &operation) {
    constexpr qsizetype members = 200;
    constexpr qsizetype identifier = 35;
    return members + operation.title.size() + operation.text.size() +
           operation.supersedes.size() * identifier;
}

bool isTooLong(const Note &note) {
    return note.title.toUtf8().size() + note.text.toUtf8().size() > Operation::NoteLimit;
}

}  // namespace

NoteLog::NoteLog(const ProfileDatabase &profile, const QString &databaseUUID)
    : m_profile(profile),
      m_database(
          profile.value(QStringLiteral("SELECT id FROM databases WHERE uuid = ?"), {databaseUUID})
              .toLongLong()) {}

QList<Note> NoteLog::notes() const {
    QList<Note> notes;
    const QList<Row> all = rows();
    notes.reserve(all.size());
    for (const auto &[UUID, operation] : all) {
        const bool isCopy = UUID != operation.note;
        const auto modified = operation.modified;
        notes.append({UUID, isCopy ? operation.title + ConflictMark : operation.title,
                      operation.text,
                      modified ? QDateTime::fromMSecsSinceEpoch(*modified) : QDateTime(),
                      revisionOf(operation)});
    }
    return notes;
}

std::optional<Error> NoteLog::save(Note &note) const {
    Note saved{note.UUID, wellFormed(note.title), wellFormed(note.text), note.modified,
               note.revision};
    if (saved.UUID.isEmpty()) {
        saved.UUID = QUuid::createUuid().toString(QUuid::WithoutBraces);
    }
    if (!Operation::isUUID(saved.UUID)) {
        return engineError(EngineErrorCode::InvalidDatabase,
                           "“%1” is not a valid identifier of a note.", saved.UUID);
    }
    if (isTooLong(saved)) {
        return engineError(
            EngineErrorCode::InvalidDatabase,
            "The note “%1” is too long to be synchronized. Divide it into several notes.",
            saved.title.left(80));
    }
    const OperationId seen = note.revision.isEmpty()
                                 ? shownUnder(note.UUID)
                                 : QByteArray::fromHex(note.revision.toLatin1());
    std::optional<Operation> current = operation(seen);
    if (!current || !holds(*current, saved)) {
        const QList<OperationId> replaced = seen.isEmpty() ? QList<OperationId>() : QList{seen};
        current = Operation::make(saved.UUID, saved.title, saved.text,
                                  soundMilliseconds(saved.modified), predecessors(replaced));
        if (std::optional<Error> error = replace(replaced, *current)) {
            return error;
        }
    }
    saved.revision = revisionOf(*current);
    note = saved;
    return {};
}

std::optional<Error> NoteLog::remove(const QString &noteUUID) const {
    const OperationId seen = shownUnder(noteUUID);
    if (seen.isEmpty()) {
        return {};
    }
    return isUnsent(seen) ? erase({seen}) : supersede({seen});
}

QString NoteLog::name() const {
    return first({}).value_or(Operation()).title;
}

std::optional<Error> NoteLog::setName(const QString &name) const {
    QList<OperationId> seen;
    const QList<Operation> names = select(QStringLiteral("note_uuid = ''"), {});
    for (const Operation &operation : names.first(qMin(names.size(), Operation::SupersedesLimit))) {
        seen.append(operation.id);
    }
    return replace(seen, Operation::make({}, wellFormed(name), {},
                                         QDateTime::currentMSecsSinceEpoch(), predecessors(seen)));
}

std::optional<Error> NoteLog::merge(const Transaction &transaction) const {
    QSqlQuery insertion = prepareInsertion();
    for (const Operation &operation : transaction.operations) {
        if (std::optional<Error> error =
                insert(insertion, operation, operation.supersedes.value(0))) {
            return error;
        }
    }
    if (std::optional<Error> error = supersede(transaction.allSuperseded())) {
        return error;
    }
    return markAllSent();
}

std::optional<Error> NoteLog::markAllSent() const {
    return m_profile.run(
        QStringLiteral("UPDATE databases SET sent = coalesce("
                       "(SELECT max(id) FROM operations WHERE database = databases.id), sent)"
                       " WHERE id = ?"),
        {m_database});
}

QList<OperationId> NoteLog::operationIds() const {
    QSqlQuery rows = m_profile.prepare(
        QStringLiteral("SELECT digest FROM operations WHERE database = ? ORDER BY id"));
    rows.addBindValue(m_database);
    rows.exec();
    QList<OperationId> identifiers;
    while (rows.next()) {
        identifiers.append(rows.value(0).toByteArray());
    }
    return identifiers;
}

QSet<OperationId> NoteLog::supersededIds() const {
    QSqlQuery rows =
        m_profile.prepare(QStringLiteral("SELECT digest FROM superseded WHERE database = ?"));
    rows.addBindValue(m_database);
    rows.exec();
    QSet<OperationId> identifiers;
    while (rows.next()) {
        identifiers.insert(rows.value(0).toByteArray());
    }
    return identifiers;
}

std::optional<Operation> NoteLog::operation(const OperationId &identifier) const {
    const QList<Operation> found = select(QStringLiteral("digest = ?"), {blob(identifier)});
    return found.isEmpty() ? std::nullopt : std::optional(found.first());
}

QList<NoteLog::Row> NoteLog::rows() const {
    const QList<Operation> all = select(QStringLiteral("note_uuid <> ''"), {});
    QHash<QString, QList<Operation>> operationsByNote;
    QStringList notes;
    for (const Operation &operation : all) {
        QList<Operation> &operations = operationsByNote[operation.note];
        if (operations.isEmpty()) {
            notes.append(operation.note);
        }
        operations.append(operation);
    }
    QList<Row> rows;
    rows.reserve(all.size());
    QSet<QString> taken(notes.begin(), notes.end());
    for (const QString &note : std::as_const(notes)) {
        QList<Operation> &operations = operationsByNote[note];
        std::sort(operations.begin(), operations.end(),
                  [](const auto &a, const auto &b) { return a.comesBefore(b); });
        rows.append({note, operations.first()});
        for (const Operation &copy : operations.mid(1)) {
            QString UUID = copy.UUIDOfCopy();
            // Only someone who means to can have made a note of that UUID.
            while (taken.contains(UUID)) {
                UUID = QUuid::createUuidV5(QUuid(UUID), UUID).toString(QUuid::WithoutBraces);
            }
            taken.insert(UUID);
            rows.append({UUID, copy});
        }
    }
    return rows;
}

std::optional<Operation> NoteLog::first(const QString &note) const {
    const QList<Operation> operations =
        select(QStringLiteral("note_uuid = ?"), {ProfileDatabase::text(note)});
    const auto first =
        std::min_element(operations.begin(), operations.end(),
                         [](const auto &a, const auto &b) { return a.comesBefore(b); });
    return first == operations.end() ? std::nullopt : std::optional(*first);
}

OperationId NoteLog::shownUnder(const QString &noteUUID) const {
    if (noteUUID.isEmpty()) {
        return {};
    }
    if (const std::optional<Operation> shown = first(noteUUID)) {
        return shown->id;
    }
    const QList<Row> all = rows();
    const auto row = std::find_if(all.begin(), all.end(),
                                  [&](const Row &each) { return each.UUID == noteUUID; });
    return row == all.end() ? OperationId() : row->operation.id;
}

QSqlQuery NoteLog::prepareSelection(const QString &condition) const {
    QSqlQuery rows = m_profile.prepare(
        QStringLiteral("SELECT digest, note_uuid, title, text, modified, supersedes, salt"
                       " FROM operations WHERE database = ? AND %1 ORDER BY position, id")
            .arg(condition));
    rows.bindValue(0, m_database);
    return rows;
}

QList<Operation> NoteLog::select(const QString &condition, const QVariantList &values) const {
    QSqlQuery rows = prepareSelection(condition);
    for (int i = 0; i < values.size(); ++i) {
        rows.bindValue(i + 1, values[i]);
    }
    rows.exec();
    QList<Operation> operations;
    while (rows.next()) {
        operations.append(operationInRow(rows));
    }
    return operations;
}

QList<Operation> NoteLog::takeOperations(QList<OperationId> &identifiers) const {
    QSqlQuery row = prepareSelection(QStringLiteral("digest = ?"));
    QList<Operation> operations;
    qsizetype size = 0;
    qsizetype taken = 0;
    for (; taken < identifiers.size() && size < Transaction::UsualSize; ++taken) {
        row.bindValue(1, identifiers[taken]);
        if (row.exec() && row.next()) {
            operations.append(operationInRow(row));
            size += roughSize(operations.last());
        }
    }
    identifiers.remove(0, taken);
    return operations;
}

QList<OperationId> NoteLog::predecessors(const QList<OperationId> &seen) const {
    QList<OperationId> identifiers;
    for (const OperationId &identifier : seen) {
        if (isUnsent(identifier)) {
            identifiers.append(operation(identifier).value_or(Operation()).supersedes);
        } else {
            identifiers.append(identifier);
        }
    }
    return identifiers;
}

bool NoteLog::isUnsent(const OperationId &identifier) const {
    return m_profile
        .value(QStringLiteral("SELECT 1 FROM operations JOIN databases"
                              " ON databases.id = operations.database WHERE database = ?"
                              " AND digest = ? AND operations.id > sent"),
               {m_database, blob(identifier)})
        .toBool();
}

std::optional<Error> NoteLog::replace(const QList<OperationId> &seen,
                                      const Operation &operation) const {
    QSqlQuery insertion = prepareInsertion();
    if (std::optional<Error> error = insert(insertion, operation, seen.value(0))) {
        return error;
    }
    if (std::optional<Error> error = erase(seen)) {
        return error;
    }
    return supersede(operation.supersedes);
}

QSqlQuery NoteLog::prepareInsertion() const {
    return m_profile.prepare(QStringLiteral(
        "WITH new (database, digest, note_uuid, title, text, modified, supersedes, salt, seen)"
        " AS (VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?))"
        " INSERT OR IGNORE INTO operations (database, digest, note_uuid, title, text, modified,"
        " supersedes, salt, position)"
        " SELECT database, digest, note_uuid, title, text, modified, supersedes, salt, coalesce("
        "  (SELECT position FROM operations AS o"
        "   WHERE o.database = new.database AND o.note_uuid = new.note_uuid LIMIT 1),"
        "  (SELECT position FROM operations AS o"
        "   WHERE o.database = new.database AND o.digest = new.seen),"
        "  (SELECT max(position) + 1 FROM operations AS o WHERE o.database = new.database), 0)"
        " FROM new WHERE NOT EXISTS (SELECT 1 FROM superseded AS s"
        "  WHERE s.database = new.database AND s.digest = new.digest)"));
}

std::optional<Error> NoteLog::insert(QSqlQuery &insertion, const Operation &operation,
                                     const OperationId &seen) const {
    const auto modified = operation.modified;
    const QVariantList values{m_database,
                              blob(operation.id),
                              ProfileDatabase::text(operation.note),
                              ProfileDatabase::text(operation.title),
                              ProfileDatabase::text(operation.text),
                              modified ? QVariant(*modified) : QVariant(),
                              Operation::packed(operation.supersedes),
                              operation.salt,
                              blob(seen)};
    for (int i = 0; i < values.size(); ++i) {
        insertion.bindValue(i, values[i]);
    }
    return insertion.exec() ? std::nullopt : std::optional(m_profile.errorOf(insertion));
}

std::optional<Error> NoteLog::erase(const QList<OperationId> &identifiers) const {
    QSqlQuery deletion = m_profile.prepare(
        QStringLiteral("DELETE FROM operations WHERE database = ? AND digest = ?"));
    deletion.bindValue(0, m_database);
    for (const OperationId &identifier : identifiers) {
        deletion.bindValue(1, identifier);
        if (!deletion.exec()) {
            return m_profile.errorOf(deletion);
        }
    }
    return {};
}

std::optional<Error> NoteLog::supersede(const QList<OperationId> &identifiers) const {
    QSqlQuery insertion = m_profile.prepare(
        QStringLiteral("INSERT OR IGNORE INTO superseded (database, digest) VALUES (?, ?)"));
    insertion.bindValue(0, m_database);
    QList<OperationId> added;
    for (const OperationId &identifier : identifiers) {
        insertion.bindValue(1, identifier);
        if (!insertion.exec()) {
            return m_profile.errorOf(insertion);
        }
        if (insertion.numRowsAffected() > 0) {
            added.append(identifier);
        }
    }
    return erase(added);
}
