#include "Engine/Notes/KnownTransactions.h"

#include "Engine/Profile/ProfileDatabase.h"

KnownTransactions::KnownTransactions(const ProfileDatabase &profile, const QString &place,
                                     qint64 database)
    : m_profile(profile), m_place(place), m_database(database) {}

QHash<QString, KnownTransactions::Contents> KnownTransactions::all() const {
    QSqlQuery rows = m_profile.prepare(
        QStringLiteral("SELECT name, operations, superseded, size FROM known_transactions"
                       " WHERE place = ? AND database = ?"));
    rows.addBindValue(m_place);
    rows.addBindValue(m_database);
    rows.exec();
    QHash<QString, Contents> known;
    while (rows.next()) {
        known.insert(rows.value(0).toString(), {Operation::unpacked(rows.value(1).toByteArray()),
                                                Operation::unpacked(rows.value(2).toByteArray()),
                                                rows.value(3).toLongLong()});
    }
    return known;
}

std::optional<Error> KnownTransactions::add(const QString &name, const Transaction &transaction,
                                            qint64 size) const {
    QList<OperationId> operations;
    for (const Operation &operation : transaction.operations) {
        operations.append(operation.id);
    }
    return m_profile.run(
        QStringLiteral(
            "INSERT OR REPLACE INTO known_transactions"
            " (place, database, name, operations, superseded, size) VALUES (?, ?, ?, ?, ?, ?)"),
        {m_place, m_database, name, Operation::packed(operations),
         Operation::packed(transaction.allSuperseded()), size});
}

std::optional<Error> KnownTransactions::remove(const QString &name) const {
    return m_profile.run(QStringLiteral("DELETE FROM known_transactions"
                                        " WHERE place = ? AND database = ? AND name = ?"),
                         {m_place, m_database, name});
}
