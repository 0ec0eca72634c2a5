#include "Engine/Notes/KnownTransactions.h"

#include <QtCore/QDeadlineTimer>
#include <algorithm>

#include "Engine/Notes/KeptOperations.h"
#include "Engine/Notes/LostOperations.h"
#include "Engine/Notes/NoteLog.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Profile/ProfileSettings.h"
#include "Engine/Profile/SteppedDeletion.h"

namespace {

/// The starts of the keys of settings, which the database and the store follow.
const QString VerifiedPrefix = QStringLiteral("lastVerified ");
const QString RewrittenPrefix = QStringLiteral("rewritten ");

/// Separate the names and the lists in a setting. No name contains them.
constexpr QChar NameMark = u' ';
constexpr QChar ListMark = u'\n';

/// Follows the name of a record in the rows of its parts, which are therefore beside its own. The
/// index of the other rows names it, too.
constexpr QChar PartMark = u' ';

/// Number of recorded identifiers that are forgotten at once.
constexpr int ForgottenAtOnce = 2000;

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
    return visit(condition, values,
                 [&](const QString &name, const Contents &part) {
                     Contents &record = known[name];
                     record.operations.append(part.operations);
                     record.superseded.append(part.superseded);
                     record.size += part.size;
                 })
        .map([&] { return known; });
}

Expected<void> KnownTransactions::visitParts(const PartVisitor &visitPart) const {
    return visit(QStringLiteral("TRUE"), {}, visitPart);
}

Expected<void> KnownTransactions::visit(const QString &condition, const QVariantList &values,
                                        const PartVisitor &visitPart) const {
    QString record;
    return m_profile.read(
        QStringLiteral("SELECT name, operations, superseded, size FROM known_transactions"
                       " WHERE place = ? AND database = ? AND %1 ORDER BY name")
            .arg(condition),
        QVariantList{m_store, m_database} + values, [&](const QSqlQuery &row) {
            const QString name = row.value(0).toString();
            const bool isPart = name.contains(PartMark);
            record = isPart ? record : name;
            // The other parts are those of a record that is not known yet.
            if (!isPart || name.section(PartMark, 0, 0) == record) {
                visitPart(record, {Operation::unpacked(row.value(1).toByteArray()),
                                   Operation::unpacked(row.value(2).toByteArray()),
                                   row.value(3).toLongLong()});
            }
        });
}

Expected<QHash<QString, qint64>> KnownTransactions::sizes() const {
    QHash<QString, qint64> sizes;
    const Expected<void> done =
        m_profile.read(QStringLiteral("SELECT name, size FROM known_transactions WHERE place = ?"
                                      " AND database = ? AND instr(name, ' ') = 0"),
                       {m_store, m_database}, [&](const QSqlQuery &row) {
                           sizes.insert(row.value(0).toString(), row.value(1).toLongLong());
                       });
    if (!done) {
        return failure(done.error());
    }
    return sizes;
}

Expected<void> KnownTransactions::add(const QString &name, const Contents &contents) const {
    // Also the parts of a merge that was interrupted.
    const Expected<QVariant> hasOther = m_profile.value(
        QStringLiteral("SELECT 1 FROM known_transactions WHERE place = ? AND database = ? AND %1"
                       " AND (name, operations, superseded) <> (?, ?, ?) LIMIT 1")
            .arg(ofRecord()),
        {m_store, m_database, name, name, name, Operation::packed(contents.operations),
         Operation::packed(contents.superseded)});
    if (!hasOther) {
        return failure(hasOther.error());
    }
    return (hasOther->isValid() ? remove({name}) : Expected<void>()).and_then([&] {
        return insert(name, contents);
    });
}

Expected<void> KnownTransactions::addPart(const QString &name, int number,
                                          const Contents &part) const {
    // What was merged of the record before may have been divided in another way.
    const Expected<void> prepared = number == 0 ? remove({name}) : Expected<void>();
    return prepared.and_then(
        [&] { return insert(name + PartMark + QString::number(number), part); });
}

Expected<void> KnownTransactions::addLastPart(const QString &name, const Contents &part) const {
    return insert(name, part);
}

Expected<void> KnownTransactions::insert(const QString &row, const Contents &contents) const {
    return addUnrecorded(row, contents).and_then([&] { return setWritten(contents); });
}

Expected<void> KnownTransactions::addUnrecorded(const QString &name,
                                                const Contents &contents) const {
    return m_profile.run(QStringLiteral("INSERT OR REPLACE INTO known_transactions"
                                        " (place, database, name, operations, superseded, size)"
                                        " VALUES (?, ?, ?, ?, ?, ?)"),
                         {m_store, m_database, name, Operation::packed(contents.operations),
                          Operation::packed(contents.superseded), contents.size});
}

Expected<void> KnownTransactions::setWritten(const Contents &contents) const {
    const Expected<bool> has = hasUnwritten();
    if (!has || !*has) {
        return has.map([](bool) {});
    }
    Expected<QSqlQuery> deletion =
        m_profile.prepare(QStringLiteral("DELETE FROM unwritten WHERE place = ? AND database = ?"
                                         " AND is_superseded = ? AND digest = ?"));
    if (!deletion) {
        return failure(deletion.error());
    }
    for (const bool isSuperseded : {false, true}) {
        for (const OperationId &identifier :
             isSuperseded ? contents.superseded : contents.operations) {
            if (Expected<void> removed =
                    m_profile.run(*deletion, {m_store, m_database, isSuperseded, identifier});
                !removed) {
                return removed;
            }
        }
    }
    return {};
}

Expected<void> KnownTransactions::remove(const QStringList &names) const {
    return removeReplaced(names).and_then(
        [&] { return names.isEmpty() ? Expected<void>() : setIncomplete(); });
}

Expected<void> KnownTransactions::removeReplaced(const QStringList &names) const {
    return names.isEmpty() ? Expected<void>()
                           : removeReplacedUntil(QDeadlineTimer(QDeadlineTimer::Forever), names)
                                 .map([](qsizetype) {});
}

Expected<qsizetype> KnownTransactions::removeReplacedUntil(const QDeadlineTimer &deadline,
                                                           const QStringList &names) const {
    return removeUntil(deadline, names, [](const QString &) { return Expected<void>(); });
}

Expected<qsizetype> KnownTransactions::removeMovedUntil(const QDeadlineTimer &deadline,
                                                        const QStringList &names) const {
    return removeUntil(deadline, names, [this](const QString &name) { return setUnwritten(name); });
}

Expected<void> KnownTransactions::setUnwritten(const QString &name) const {
    const Expected<Contents> contents = this->contents(name);
    if (!contents) {
        return failure(contents.error());
    }
    const Expected<bool> isSound = isListSound(*contents);
    if (!isSound || !*isSound) {
        return isSound.and_then([this](bool) { return setIncomplete(); });
    }
    for (const bool isSuperseded : {false, true}) {
        Expected<QSqlQuery> insertion = m_profile.prepare(
            QStringLiteral("INSERT OR IGNORE INTO unwritten"
                           " SELECT c.place, c.database, ?, t.digest FROM compared_places AS c"
                           " JOIN %1 AS t ON t.database = c.database"
                           " WHERE c.place = ? AND c.database = ? AND t.digest = ?")
                .arg(isSuperseded ? QStringLiteral("superseded") : QStringLiteral("operations")));
        if (!insertion) {
            return failure(insertion.error());
        }
        for (const OperationId &identifier :
             isSuperseded ? contents->superseded : contents->operations) {
            if (Expected<void> inserted =
                    m_profile.run(*insertion, {isSuperseded, m_store, m_database, identifier});
                !inserted) {
                return inserted;
            }
        }
    }
    return {};
}

Expected<bool> KnownTransactions::isListSound(const Contents &contents) const {
    const NoteLog log(m_profile, m_database);
    const auto operations = log.identifierSetsOf(contents.operations);
    const auto superseded = log.identifierSetsOf(contents.superseded);
    if (!operations || !superseded) {
        return failure(operations ? superseded.error() : operations.error());
    }
    return std::all_of(contents.operations.begin(), contents.operations.end(),
                       [&](const OperationId &id) {
                           return operations->operations.contains(id) ||
                                  operations->superseded.contains(id);
                       }) &&
           std::all_of(contents.superseded.begin(), contents.superseded.end(),
                       [&](const OperationId &id) { return superseded->superseded.contains(id); });
}

Expected<qsizetype> KnownTransactions::removeUntil(const QDeadlineTimer &deadline,
                                                   const QStringList &names,
                                                   const Preparation &prepare) const {
    Expected<QSqlQuery> deletion =
        m_profile.prepare(QStringLiteral("DELETE FROM known_transactions"
                                         " WHERE place = ? AND database = ? AND ") +
                          ofRecord());
    if (!deletion) {
        return failure(deletion.error());
    }
    qsizetype count = 0;
    while (count < names.size() && (count == 0 || !deadline.hasExpired())) {
        const QString &name = names[count++];
        const Expected<void> removed = prepare(name).and_then([&] {
            return m_profile.run(*deletion, {m_store, m_database, name, name});
        });
        if (!removed) {
            return failure(removed.error());
        }
    }
    return count;
}

Expected<bool> KnownTransactions::forgetSomeOfStore(const ProfileDatabase &profile,
                                                    const QString &store,
                                                    std::chrono::milliseconds duration) {
    const QDeadlineTimer deadline(duration);
    const auto deletion = [](const QString &table, const QString &key) {
        return SteppedDeletion::statement(table, key, table + QStringLiteral(" WHERE place = ?"));
    };
    const QStringList deletions{
        // First, so that nothing more is recorded as unwritten.
        deletion(QStringLiteral("compared_places"), QStringLiteral("database, place")),
        deletion(QStringLiteral("unwritten"),
                 QStringLiteral("place, database, is_superseded, digest")),
        deletion(QStringLiteral("known_transactions"), QStringLiteral("place, database, name"))};
    bool isLast = false;
    return profile
        .write([&] {
            return SteppedDeletion::runUntil(deadline, profile, deletions, {store})
                .and_then([&](bool none) {
                    isLast = none;
                    return none ? forgetSettings(profile, store) : Expected<void>();
                });
        })
        .map([&] { return isLast; });
}

Expected<void> KnownTransactions::forgetSettings(const ProfileDatabase &profile,
                                                 const QString &store) {
    return ProfileSettings::removeAll(profile, VerifiedPrefix, u' ' + store)
        .and_then(
            [&] { return ProfileSettings::removeAll(profile, RewrittenPrefix, u' ' + store); })
        .and_then([&] { return LostOperations::forgetStore(profile, store); });
}

Expected<void> KnownTransactions::forgetDatabase(const ProfileDatabase &profile, qint64 database) {
    const QString key = QString::number(database) + u' ';
    return ProfileSettings::removeAll(profile, VerifiedPrefix + key)
        .and_then([&] { return ProfileSettings::removeAll(profile, RewrittenPrefix + key); })
        .and_then([&] { return LostOperations::forgetDatabase(profile, database); })
        .and_then([&] { return KeptOperations::forgetDatabase(profile, database); });
}

Expected<QString> KnownTransactions::lastVerified() const {
    return setting(key(VerifiedPrefix));
}

Expected<void> KnownTransactions::setLastVerified(const QString &name) const {
    return setSetting(key(VerifiedPrefix), name);
}

Expected<KnownTransactions::Unwritten> KnownTransactions::compare() const {
    IdentifierSet operations;
    IdentifierSet superseded;
    const Expected<void> done = visitParts([&](const QString & /*name*/, const Contents &part) {
        operations.add(part.operations);
        superseded.add(part.superseded);
    });
    if (!done) {
        return failure(done.error());
    }
    operations.sort();
    superseded.sort();
    Unwritten unwritten;
    const NoteLog log(m_profile, m_database);
    const auto addOperation = [&](const OperationId &each) {
        if (!operations.contains(each)) {
            unwritten.operations.append(each);
        }
    };
    const auto addSuperseded = [&](const OperationId &each) {
        if (!superseded.contains(each)) {
            unwritten.superseded.insert(each);
        }
    };
    return log.visitOperationIds(addOperation)
        .and_then([&] { return log.visitSupersededIds(addSuperseded); })
        .map([&] { return unwritten; });
}

Expected<bool> KnownTransactions::restartRecording() const {
    return m_profile
        .run(QStringLiteral("INSERT OR REPLACE INTO compared_places (database, place, is_complete)"
                            " VALUES (?, ?, FALSE)"),
             {m_database, m_store})
        .and_then([this] {
            return m_profile.run(
                QStringLiteral("DELETE FROM unwritten WHERE place = ? AND database = ?"
                               " AND (is_superseded, digest) IN"
                               " (SELECT is_superseded, digest FROM unwritten"
                               "  WHERE place = ? AND database = ? LIMIT ?)"),
                {m_store, m_database, m_store, m_database, ForgottenAtOnce});
        })
        .and_then([this] { return hasUnwritten(); })
        .map([](bool remains) { return !remains; });
}

Expected<void> KnownTransactions::setComplete() const {
    return m_profile.run(QStringLiteral("UPDATE compared_places SET is_complete = TRUE"
                                        " WHERE database = ? AND place = ?"),
                         {m_database, m_store});
}

Expected<void> KnownTransactions::setIncomplete() const {
    return m_profile.run(QStringLiteral("UPDATE compared_places SET is_complete = FALSE"
                                        " WHERE database = ? AND place = ?"),
                         {m_database, m_store});
}

Expected<bool> KnownTransactions::isComplete() const {
    return m_profile
        .value(QStringLiteral("SELECT EXISTS (SELECT 1 FROM compared_places"
                              " WHERE database = ? AND place = ? AND is_complete)"),
               {m_database, m_store})
        .map([](const QVariant &exists) { return exists.toBool(); });
}

Expected<bool> KnownTransactions::hasUnwritten() const {
    return m_profile
        .value(QStringLiteral("SELECT EXISTS (SELECT 1 FROM unwritten"
                              " WHERE place = ? AND database = ?)"),
               {m_store, m_database})
        .map([](const QVariant &exists) { return exists.toBool(); });
}

Expected<std::optional<KnownTransactions::Unwritten>> KnownTransactions::unwritten() const {
    const auto operations = readRecorded(
        QStringLiteral("SELECT u.digest, o.id FROM unwritten AS u LEFT JOIN operations AS o"
                       " ON o.database = u.database AND o.digest = u.digest"
                       " WHERE u.place = ? AND u.database = ? AND NOT u.is_superseded"
                       " ORDER BY o.id"));
    if (!operations) {
        return failure(operations.error());
    }
    const auto superseded = readRecorded(
        QStringLiteral("SELECT u.digest, s.digest FROM unwritten AS u LEFT JOIN superseded AS s"
                       " ON s.database = u.database AND s.digest = u.digest"
                       " WHERE u.place = ? AND u.database = ? AND u.is_superseded"));
    if (!superseded) {
        return failure(superseded.error());
    }
    if (!*operations || !*superseded) {
        return std::nullopt;
    }
    return Unwritten{**operations, {(*superseded)->begin(), (*superseded)->end()}};
}

Expected<std::optional<QList<OperationId>>> KnownTransactions::readRecorded(
    const QString &statement) const {
    std::optional identifiers = QList<OperationId>();
    const Expected<void> done =
        m_profile.read(statement, {m_store, m_database}, [&](const QSqlQuery &row) {
            if (row.isNull(1)) {
                identifiers.reset();
            } else if (identifiers) {
                identifiers->append(row.value(0).toByteArray());
            }
        });
    if (!done) {
        return failure(done.error());
    }
    return identifiers;
}

Expected<bool> KnownTransactions::isRecordSound() const {
    const Expected<bool> complete = isComplete();
    if (!complete || !*complete) {
        return complete.map([](bool) { return true; });
    }
    const Expected<std::optional<Unwritten>> recorded = unwritten();
    if (!recorded || !*recorded) {
        return recorded.map([](const auto &) { return false; });
    }
    const QList<OperationId> &operations = (*recorded)->operations;
    const QSet<OperationId> present(operations.begin(), operations.end());
    return compare().map([&](const Unwritten &all) {
        return (*recorded)->superseded.contains(all.superseded) &&
               std::all_of(all.operations.begin(), all.operations.end(),
                           [&](const OperationId &id) { return present.contains(id); });
    });
}

Expected<QStringList> KnownTransactions::recordedStores(const ProfileDatabase &profile,
                                                        qint64 database) {
    QStringList stores;
    const Expected<void> done = profile.read(
        QStringLiteral("SELECT place FROM compared_places WHERE database = ?"), {database},
        [&](const QSqlQuery &row) { stores.append(row.value(0).toString()); });
    if (!done) {
        return failure(done.error());
    }
    return stores;
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
