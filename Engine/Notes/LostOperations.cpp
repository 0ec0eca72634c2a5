#include "Engine/Notes/LostOperations.h"

#include "Engine/Notes/NoteLog.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Profile/ProfileSettings.h"

namespace {

/// The start of the keys of settings, which the database and the store follow.
const QString Prefix = QStringLiteral("lost ");

/// Of so many lost operations, the identifiers are compared bit by bit, which takes a moment.
constexpr qsizetype MostExamined = 100;
constexpr qsizetype BitsOfByte = 8;

QString prefixOf(qint64 database) {
    return Prefix + QString::number(database) + u' ';
}

void add(QSet<OperationId> &operations, const QVariant &packed) {
    const QList<OperationId> unpacked = Operation::unpacked(packed.toByteArray());
    operations.unite({unpacked.begin(), unpacked.end()});
}

}  // namespace

LostOperations::LostOperations(const ProfileDatabase &profile, const QString &store,
                               qint64 database)
    : m_profile(profile), m_database(database), m_key(prefixOf(database) + store) {}

Expected<QSet<OperationId>> LostOperations::among(const QSet<OperationId> &operations) const {
    Expected<QSqlQuery> query = m_profile.prepare(
        QStringLiteral("SELECT EXISTS (SELECT 1 FROM operations WHERE database = ? AND digest = ?)"
                       " OR EXISTS (SELECT 1 FROM superseded WHERE database = ? AND digest = ?)"));
    if (!query) {
        return failure(query.error());
    }
    QSet<OperationId> lost;
    for (const OperationId &identifier : operations) {
        const Expected<bool> there = isThere(*query, identifier);
        if (!there) {
            return failure(there.error());
        }
        if (!*there) {
            lost.insert(identifier);
        }
    }
    return lost.size() > MostExamined ? lost : withoutDamaged(*query, lost);
}

Expected<bool> LostOperations::isThere(QSqlQuery &query, const OperationId &identifier) const {
    bool isThere = false;
    return m_profile
        .read(query, {m_database, identifier, m_database, identifier},
              [&](const QSqlQuery &row) { isThere = row.value(0).toBool(); })
        .map([&] { return isThere; });
}

Expected<QSet<OperationId>> LostOperations::withoutDamaged(QSqlQuery &query,
                                                           const QSet<OperationId> &lost) const {
    QSet<OperationId> remaining;
    for (const OperationId &identifier : lost) {
        bool isDamaged = false;
        for (qsizetype bit = 0; bit < BitsOfByte * identifier.size() && !isDamaged; ++bit) {
            OperationId intact = identifier;
            char &byte = intact[bit / BitsOfByte];
            byte = static_cast<char>(byte ^ (1 << bit % BitsOfByte));
            const Expected<bool> there = isThere(query, intact);
            if (!there) {
                return failure(there.error());
            }
            isDamaged = *there;
        }
        if (!isDamaged) {
            remaining.insert(identifier);
        }
    }
    return remaining;
}

Expected<QSet<OperationId>> LostOperations::remembered() const {
    return ProfileSettings::value(m_profile, m_key).map([](const QVariant &packed) {
        QSet<OperationId> operations;
        add(operations, packed);
        return operations;
    });
}

Expected<void> LostOperations::remember(const QSet<OperationId> &operations) const {
    return operations.isEmpty()
               ? ProfileSettings::remove(m_profile, m_key)
               : ProfileSettings::set(m_profile, m_key, Operation::packed(operations.values()));
}

Expected<QSet<OperationId>> LostOperations::all(const ProfileDatabase &profile, qint64 database) {
    QSet<OperationId> operations;
    const Expected<void> read =
        profile.read(QStringLiteral("SELECT operations FROM known_transactions WHERE database = ?"),
                     {database}, [&](const QSqlQuery &row) { add(operations, row.value(0)); });
    const auto remembered = ProfileSettings::values(profile, prefixOf(database));
    if (!read || !remembered) {
        return failure(read ? remembered.error() : read.error());
    }
    for (const QVariant &packed : *remembered) {
        add(operations, packed);
    }
    const NoteLog log(profile, database);
    const Expected<QList<OperationId>> current = log.operationIds();
    const Expected<QSet<OperationId>> superseded = log.supersededIds();
    if (!current || !superseded) {
        return failure(current ? superseded.error() : current.error());
    }
    operations.subtract({current->begin(), current->end()});
    operations.subtract(*superseded);
    return LostOperations(profile, {}, database).among(operations);
}

Expected<void> LostOperations::forgetStore(const ProfileDatabase &profile, const QString &store) {
    return ProfileSettings::removeAll(profile, Prefix, u' ' + store);
}

Expected<void> LostOperations::forgetDatabase(const ProfileDatabase &profile, qint64 database) {
    return ProfileSettings::removeAll(profile, prefixOf(database));
}
