#pragma once

#include <QtCore/QHash>
#include <QtCore/QSet>

#include "Engine/Notes/Transaction.h"

class ProfileDatabase;

/// What the profile knows of the transactions of one database in one store: which there are, and
/// what each of them holds. Main thread; changes are made within the caller's transaction.
class KnownTransactions {
public:
    struct Contents {
        QList<OperationId> operations;
        QList<OperationId> superseded;
        /// Bytes of the record.
        qint64 size = 0;
    };

    /// `place` names the store in `profile`, which must outlive this; `database` is the identifier
    /// of the database's row.
    KnownTransactions(const ProfileDatabase &profile, const QString &place, qint64 database);

    /// By the names of the records.
    QHash<QString, Contents> all() const;
    std::optional<Error> add(const QString &name, const Transaction &transaction,
                             qint64 size) const;
    /// Harmless for one that is not known.
    std::optional<Error> remove(const QString &name) const;

private:
    const ProfileDatabase &m_profile;
    const QString m_place;
    const qint64 m_database;
};
