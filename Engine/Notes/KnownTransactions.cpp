#include "Engine/Notes/KnownTransactions.h"

#include <algorithm>

#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Profile/ProfileSettings.h"

namespace {

/// The starts of the keys of settings, which the database and the store follow.
const QString VerifiedPrefix = QStringLiteral("lastVerified ");
const QString WrittenPrefix = QStringLiteral("written ");
const QString RewrittenPrefix = QStringLiteral("rewritten ");

/// Separate the names and the lists in a setting. No name contains them.
constexpr QChar NameMark = u' ';
constexpr QChar ListMark = u'\n';

/// Follows the name of a record in the rows of its parts, which are therefore beside its own.
constexpr QChar PartMark = u' ';

/// The condition that a row belongs to one record, whose name must be bound twice.
QString ofRecord() {
    // The character after the blank is "!".
    return QStringLiteral("name >= ? AND name < ? || '!'");
}

QList<OperationId> sorted(QList<OperationId> identifiers) {
    std::sort(identifiers.begin(), identifiers.end());
    return identifiers;
}

}  // namespace

bool KnownTransactions::Contents::operator==(const Contents &other) const {
    return size == other.size && sorted(operations) == sorted(other.operations) &&
           sorted(superseded) == sorted(other.superseded);
}

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
    return read(QStringLiteral("TRUE"), {});
}

Expected<KnownTransactions::Contents> KnownTransactions::contents(const QString &name) const {
    return read(ofRecord(), {name, name}).map([&](const QHash<QString, Contents> &found) {
        return found.value(name);
    });
}

Expected<QHash<QString, KnownTransactions::Contents>> KnownTransactions::read(
    const QString &condition, const QVariantList &values) const {
    QHash<QString, Contents> known;
    const Expected<void> done = m_profile.read(
        QStringLiteral("SELECT name, operations, superseded, size FROM known_transactions"
                       " WHERE place = ? AND database = ? AND %1 ORDER BY name")
            .arg(condition),
        QVariantList{m_store, m_database} + values, [&](const QSqlQuery &row) {
            const QString name = row.value(0).toString();
            const Contents part{Operation::unpacked(row.value(1).toByteArray()),
                                Operation::unpacked(row.value(2).toByteArray()),
                                row.value(3).toLongLong()};
            if (!name.contains(PartMark)) {
                known.insert(name, part);
            } else if (const auto record = known.find(name.section(PartMark, 0, 0));
                       record != known.end()) {
                record->operations.append(part.operations);
                record->superseded.append(part.superseded);
            }
        });
    if (!done) {
        return failure(done.error());
    }
    return known;
}

Expected<QHash<QString, qint64>> KnownTransactions::sizes() const {
    QHash<QString, qint64> sizes;
    const Expected<void> done =
        m_profile.read(QStringLiteral("SELECT name, size FROM known_transactions"
                                      " WHERE place = ? AND database = ? AND instr(name, ?) = 0"),
                       {m_store, m_database, QString(PartMark)}, [&](const QSqlQuery &row) {
                           sizes.insert(row.value(0).toString(), row.value(1).toLongLong());
                       });
    if (!done) {
        return failure(done.error());
    }
    return sizes;
}

Expected<void> KnownTransactions::add(const QString &name, const Transaction &transaction,
                                      qint64 size) const {
    return insert(name, transaction, size);
}

Expected<void> KnownTransactions::addPart(const QString &name, int number,
                                          const Transaction &part) const {
    // What was merged of the record before may have been divided in another way.
    const Expected<void> prepared = number == 0 ? remove({name}) : Expected<void>();
    return prepared.and_then(
        [&] { return insert(name + PartMark + QString::number(number), part, 0); });
}

Expected<void> KnownTransactions::insert(const QString &row, const Transaction &part,
                                         qint64 size) const {
    const Contents contents = Contents::of(part, size);
    return m_profile.run(
        QStringLiteral(
            "INSERT OR REPLACE INTO known_transactions"
            " (place, database, name, operations, superseded, size) VALUES (?, ?, ?, ?, ?, ?)"),
        {m_store, m_database, row, Operation::packed(contents.operations),
         Operation::packed(contents.superseded), size});
}

Expected<void> KnownTransactions::remove(const QStringList &names) const {
    Expected<QSqlQuery> deletion =
        m_profile.prepare(QStringLiteral("DELETE FROM known_transactions"
                                         " WHERE place = ? AND database = ? AND ") +
                          ofRecord());
    if (!deletion) {
        return failure(deletion.error());
    }
    for (const QString &name : names) {
        if (Expected<void> removed = m_profile.run(*deletion, {m_store, m_database, name, name});
            !removed) {
            return removed;
        }
    }
    return names.isEmpty() ? Expected<void>()
                           : ProfileSettings::remove(m_profile, key(WrittenPrefix));
}

Expected<void> KnownTransactions::forgetStore(const ProfileDatabase &profile,
                                              const QString &store) {
    return profile.run(QStringLiteral("DELETE FROM known_transactions WHERE place = ?"), {store})
        .and_then([&] { return ProfileSettings::removeAll(profile, VerifiedPrefix, u' ' + store); })
        .and_then([&] { return ProfileSettings::removeAll(profile, WrittenPrefix, u' ' + store); })
        .and_then(
            [&] { return ProfileSettings::removeAll(profile, RewrittenPrefix, u' ' + store); });
}

Expected<QString> KnownTransactions::lastVerified() const {
    return setting(key(VerifiedPrefix));
}

Expected<void> KnownTransactions::setLastVerified(const QString &name) const {
    return setSetting(key(VerifiedPrefix), name);
}

Expected<QString> KnownTransactions::written() const {
    return setting(key(WrittenPrefix));
}

Expected<void> KnownTransactions::setWritten(const QString &state) const {
    return setSetting(key(WrittenPrefix), state);
}

Expected<KnownTransactions::Rewritten> KnownTransactions::rewritten() const {
    return setting(key(RewrittenPrefix)).map([](const QString &value) {
        return Rewritten{value.section(ListMark, 0, 0).split(NameMark, Qt::SkipEmptyParts),
                         value.section(ListMark, 1).split(NameMark, Qt::SkipEmptyParts)};
    });
}

Expected<void> KnownTransactions::setRewritten(const Rewritten &records) const {
    return setSetting(key(RewrittenPrefix),
                      records.names.join(NameMark) + ListMark + records.by.join(NameMark));
}

Expected<QString> KnownTransactions::setting(const QString &key) const {
    return ProfileSettings::value(m_profile, key).map([](const QVariant &value) {
        return value.toString();
    });
}

Expected<void> KnownTransactions::setSetting(const QString &key, const QString &value) const {
    return ProfileSettings::set(m_profile, key, ProfileDatabase::text(value));
}

QString KnownTransactions::key(const QString &prefix) const {
    return prefix + QString::number(m_database) + u' ' + m_store;
}
