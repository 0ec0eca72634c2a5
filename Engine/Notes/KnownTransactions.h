#pragma once

#include <QtCore/QHash>

#include "Engine/Notes/Transaction.h"

class ProfileDatabase;

/// The transactions of one database in one store that the profile has read or written, and what
/// each of them contains.
///
/// Must be used on the main thread; functions that read also on a thread with a ProfileReader. All
/// errors have the code ProfileNotWritten, or Cancelled if the ProfileReader is cancelled. Changes
/// must be made within a transaction of the profile.
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
        /// Compares without regard to the order. O(n log n).
        bool operator==(const Contents &other) const;
    };

    /// `profile` is not owned and must outlive this object. `store` identifies the store in the
    /// profile; `database` is the id of the database's row.
    KnownTransactions(const ProfileDatabase &profile, const QString &store, qint64 database);

    /// Returns the contents by the names of the records.
    Expected<QHash<QString, Contents>> all() const;
    /// Returns the contents of the record `name`, which are empty if it is not known.
    Expected<Contents> contents(const QString &name) const;
    /// Returns the sizes in bytes by the names of the records.
    Expected<QHash<QString, qint64>> sizes() const;
    /// Adds the record `name` of `size` bytes, or replaces it.
    Expected<void> add(const QString &name, const Transaction &transaction, qint64 size) const;
    /// Adds a part of the record `name`, so that a large record can be added in several steps. The
    /// parts have the numbers from 0 on; the last one is added by add(), which makes the record
    /// known.
    Expected<void> addPart(const QString &name, int number, const Transaction &part) const;
    /// Removes the records `names`. Names that are not known are ignored.
    Expected<void> remove(const QStringList &names) const;

    /// Removes what the profile contains for the store `store` and all databases. Must be called
    /// within a transaction of the profile.
    static Expected<void> forgetStore(const ProfileDatabase &profile, const QString &store);

    /// Returns the name up to which the records were verified, in the order of their names, or an
    /// empty string.
    Expected<QString> lastVerified() const;
    Expected<void> setLastVerified(const QString &name) const;

    /// Returns the last `state` that was passed to setWritten(), or an empty string if that never
    /// happened or records were removed since.
    Expected<QString> written() const;
    /// Records that the known transactions contain everything that the database contains in the
    /// state NoteLog::state().
    Expected<void> setWritten(const QString &state) const;

    /// Records that remain to be removed, since others contain all that they contain.
    struct Rewritten {
        QStringList names;
        /// The names of the records that contain it.
        QStringList by;
    };
    /// Returns what was passed to setRewritten() last; both lists are empty if that never happened.
    Expected<Rewritten> rewritten() const;
    Expected<void> setRewritten(const Rewritten &records) const;

private:
    /// Reads rows with the columns name, operations, superseded and size.
    Expected<QHash<QString, Contents>> read(const QString &condition,
                                            const QVariantList &values) const;
    Expected<void> insert(const QString &row, const Transaction &part, qint64 size) const;
    Expected<QString> setting(const QString &key) const;
    Expected<void> setSetting(const QString &key, const QString &value) const;
    /// Returns the key of the setting for this database and store whose key begins with `prefix`.
    QString key(const QString &prefix) const;

    const ProfileDatabase &m_profile;
    const QString m_store;
    const qint64 m_database;
};
