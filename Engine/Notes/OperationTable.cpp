#include "Engine/Notes/OperationTable.h"

#include "Engine/Profile/ProfileDatabase.h"

Operation OperationTable::operationIn(const QSqlQuery &row) {
    const QVariant modified = row.value(4);
    return {row.value(0).toByteArray(),
            row.value(1).toString(),
            ProfileDatabase::exactText(row.value(2)),
            ProfileDatabase::exactText(row.value(3)),
            modified.isNull() ? std::nullopt : std::optional(modified.toLongLong()),
            Operation::unpacked(row.value(5).toByteArray()),
            row.value(6).toByteArray()};
}

QString OperationTable::selection(const QString &condition, const QString &order) {
    return QStringLiteral("SELECT %1 FROM operations WHERE database = ? AND %2 ORDER BY %3")
        .arg(Columns, condition, order);
}

QByteArray OperationTable::blob(const OperationId &identifier) {
    return identifier.isNull() ? QByteArray("") : identifier;
}

Expected<QList<Operation>> OperationTable::select(const QString &condition,
                                                  const QVariantList &values) const {
    QList<Operation> operations;
    return m_profile
        .read(selection(condition), QVariantList{m_database} + values,
              [&](const QSqlQuery &row) { operations.append(operationIn(row)); })
        .map([&] { return operations; });
}

Expected<void> OperationTable::forEach(const std::function<void(const Operation &)> &use) const {
    return m_profile.read(
        // In the order of the table: to sort them, SQLite would have all texts in memory.
        QStringLiteral("SELECT %1 FROM operations NOT INDEXED"
                       " WHERE id IN (SELECT id FROM operations WHERE database = ?) ORDER BY id")
            .arg(Columns),
        {m_database}, [&](const QSqlQuery &row) { use(operationIn(row)); });
}

Expected<std::optional<Operation>> OperationTable::find(const OperationId &identifier) const {
    return select(QStringLiteral("digest = ?"), {blob(identifier)})
        .map([](const QList<Operation> &found) {
            return found.isEmpty() ? std::nullopt : std::optional(found.first());
        });
}

Expected<std::optional<Operation>> OperationTable::first(const QString &note) const {
    // The order of Operation::comesBefore. An index has it.
    const QString order = QStringLiteral("modified DESC, digest DESC LIMIT 1");
    std::optional<Operation> first;
    return m_profile
        .read(selection(QStringLiteral("note_uuid = ?"), order),
              {m_database, ProfileDatabase::text(note)},
              [&](const QSqlQuery &row) { first = operationIn(row); })
        .map([&] { return first; });
}

Expected<bool> OperationTable::isSuperseded(const OperationId &identifier) const {
    return m_profile
        .value(QStringLiteral("SELECT 1 FROM superseded WHERE database = ? AND digest = ?"),
               {m_database, blob(identifier)})
        .map([](const QVariant &found) { return found.isValid(); });
}
