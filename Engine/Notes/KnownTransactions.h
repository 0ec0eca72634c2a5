#pragma once

#include <QtCore/QHash>

#include "Engine/Notes/Transaction.h"

class ProfileDatabase;

/// The transactions of one database in one store that the profile has read or written, and what
/// each of them contains.
///
/// Must be used on the main thread; all() and lastVerified() also on a thread with a ProfileReader.
/// All errors have the code ProfileNotWritten. Changes must be made within a transaction of the
/// profile.
class KnownTransactions {
public:
    /// The contents of one record, without the notes themselves.
    struct Contents {
        QList<OperationId> operations;
        /// The identifiers that the record declares superseded, in either way.
        QList<OperationId> superseded;
        /// The size of the record in bytes.
        qint64 size = 0;

        /// Returns the contents of `transaction`, whose record has `size` bytes.
        static Contents of(const Transaction &transaction, qint64 size);
        bool operator==(const Contents &) const = default;
    };

    /// `profile` is not owned and must outlive this object. `store` identifies the store in the
    /// profile; `database` is the id of the database's row.
    KnownTransactions(const ProfileDatabase &profile, const QString &store, qint64 database);

    /// Returns the contents by the names of the records.
    Expected<QHash<QString, Contents>> all() const;
    /// Adds the record `name` of `size` bytes, or replaces it.
    Expected<void> add(const QString &name, const Transaction &transaction, qint64 size) const;
    /// Removes the records `names`. Names that are not known are ignored.
    Expected<void> remove(const QStringList &names) const;

    /// Returns the name up to which the records were verified, in the order of their names, or an
    /// empty string.
    Expected<QString> lastVerified() const;
    Expected<void> setLastVerified(const QString &name) const;

private:
    /// The key of the setting that lastVerified() returns.
    QString keyOfVerified() const;

    const ProfileDatabase &m_profile;
    const QString m_store;
    const qint64 m_database;
};
