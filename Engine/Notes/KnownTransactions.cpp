#include "Engine/Notes/KnownTransactions.h"

#include "Engine/Profile/ProfileDatabase.h"

KnownTransactions::Contents KnownTransactions::Contents::of(const Transaction &transaction,
                                                            qint64 size) {
    QList<OperationId> operations;
    for (const Operation &operation : transaction.operations) {
        operations.append(operation.id);
    }
    return {operations, transaction.allSuperseded(), size};
}

KnownTransactions::KnownTransactions(const ProfileDatabase &profile, const QString &store,
                                     qint64 database)
    : m_profile(profile), m_store(store), m_database(database) {}

Expected<QHash<QString, KnownTransactions::Contents>> KnownTransactions::all() const {
    QHash<QString, Contents> known;
    const Expected<void> done = m_profile.read(
        QStringLiteral("SELECT name, operations, superseded, size FROM known_transactions"
                       " WHERE place = ? AND database = ?"),
        {m_store, m_database}, [&](const QSqlQuery &row) {
            known.insert(row.value(0).toString(), {Operation::unpacked(row.value(1).toByteArray()),
                                                   Operation::unpacked(row.value(2).toByteArray()),
                                                   row.value(3).toLongLong()});
        });
    if (!done) {
        return failure(done.error());
    }
    return known;
}

Expected<void> KnownTransactions::add(const QString &name, const Transaction &transaction,
                                      qint64 size) const {
    const Contents contents = Contents::of(transaction, size);
    return m_profile.run(
        QStringLiteral(
            "INSERT OR REPLACE INTO known_transactions"
            " (place, database, name, operations, superseded, size) VALUES (?, ?, ?, ?, ?, ?)"),
        {m_store, m_database, name, Operation::packed(contents.operations),
         Operation::packed(contents.superseded), size});
}

Expected<QString> KnownTransactions::lastVerified() const {
    return m_profile
        .value(QStringLiteral("SELECT value FROM settings WHERE key = ?"), {keyOfVerified()})
        .map([](const QVariant &name) { return name.toString(); });
}

Expected<void> KnownTransactions::setLastVerified(const QString &name) const {
    return m_profile.run(QStringLiteral("INSERT OR REPLACE INTO settings (key, value)"
                                        " VALUES (?, ?)"),
                         {keyOfVerified(), ProfileDatabase::text(name)});
}

QString KnownTransactions::keyOfVerified() const {
    return QStringLiteral("lastVerified %1 %2").arg(m_database).arg(m_store);
}

Expected<void> KnownTransactions::remove(const QStringList &names) const {
    Expected<QSqlQuery> deletion =
        m_profile.prepare(QStringLiteral("DELETE FROM known_transactions"
                                         " WHERE place = ? AND database = ? AND name = ?"));
    if (!deletion) {
        return failure(deletion.error());
    }
    for (const QString &name : names) {
        if (Expected<void> removed = m_profile.run(*deletion, {m_store, m_database, name});
            !removed) {
            return removed;
        }
    }
    return {};
}
