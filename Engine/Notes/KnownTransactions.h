#pragma once

#include <QtCore/QHash>
#include <QtCore/QSet>
#include <chrono>
#include <functional>
#include <optional>
#include <utility>

#include "Engine/Notes/Transaction.h"

class ProfileDatabase;
class QDeadlineTimer;

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
    /// Calls `visitPart` with the name of each record and its contents, in one part or several, of
    /// which one has the size of the record and the others 0.
    using PartVisitor = std::function<void(const QString &name, const Contents &part)>;
    Expected<void> visitParts(const PartVisitor &visitPart) const;
    /// Returns the contents of the record `name`, which are empty if it is not known.
    Expected<Contents> contents(const QString &name) const;
    /// Returns the sizes in bytes by the names of the records.
    Expected<QHash<QString, qint64>> sizes() const;
    /// Adds the record `name` of `size` bytes, or replaces it, whose former contents the store may
    /// lack from now on.
    Expected<void> add(const QString &name, const Contents &contents) const;
    Expected<void> add(const QString &name, const Transaction &transaction, qint64 size) const {
        return add(name, Contents::of(transaction, size));
    }
    /// Adds the record `name`, which must not be known, but leaves `contents` among what is
    /// recorded as unwritten until setWritten() is called with all of it, in one part or several.
    /// If that does not happen, it is written once more.
    Expected<void> addUnrecorded(const QString &name, const Contents &contents) const;
    /// Removes `contents` from what is recorded as unwritten.
    Expected<void> setWritten(const Contents &contents) const;
    /// Adds a part of the record `name`, so that a large record can be added in several steps. The
    /// parts have the numbers from 0 on. The first one removes the record and the parts that were
    /// added before.
    Expected<void> addPart(const QString &name, int number, const Contents &part) const;
    /// Adds the last of several parts of the record `name`, which is known then. `part` has the
    /// size of the record.
    Expected<void> addLastPart(const QString &name, const Contents &part) const;
    /// Removes the records `names`, whose contents the store may lack from now on. Names that are
    /// not known are ignored.
    Expected<void> remove(const QStringList &names) const;
    /// Removes the records `names`, whose contents other known records contain.
    Expected<void> removeReplaced(const QStringList &names) const;
    /// Does the same for the first of `names`, at least one, until the deadline: a record may be
    /// large. Returns how many.
    Expected<qsizetype> removeReplacedUntil(const QDeadlineTimer &deadline,
                                            const QStringList &names) const;
    /// Does the same with records whose contents may be in records that are still to be read. Until
    /// these are added, the contents count as unwritten. Takes time in proportion to the contents
    /// of each record.
    Expected<qsizetype> removeMovedUntil(const QDeadlineTimer &deadline,
                                         const QStringList &names) const;

    /// Removes a part of what the profile contains for the store `store` and all databases, in a
    /// transaction of its own that takes about `duration`. Returns whether nothing is left. Until
    /// then the store counts as one that was never compared, and may lack some of its records.
    static Expected<bool> forgetSomeOfStore(const ProfileDatabase &profile, const QString &store,
                                            std::chrono::milliseconds duration);
    /// Removes what the profile contains for the database `database` and all stores, except the
    /// rows that are removed with that of the database. Must be called within a transaction.
    static Expected<void> forgetDatabase(const ProfileDatabase &profile, qint64 database);

    /// Returns the name up to which the records were verified, in the order of their names, or an
    /// empty string.
    Expected<QString> lastVerified() const;
    /// Sets the name that lastVerified() returns; an empty string begins anew.
    Expected<void> setLastVerified(const QString &name) const;

    /// What the database contains and the known transactions do not.
    struct Unwritten {
        /// In the order in which they arrived.
        QList<OperationId> operations;
        QSet<OperationId> superseded;
    };
    /// Returns what is unwritten. Compares everything: O(n).
    Expected<Unwritten> compare() const;

    /// Forgets what is recorded as unwritten, and records from now on what is added to the database
    /// and not to the known transactions. Forgets only some of it at a time, so that it takes a
    /// short time; returns whether all is forgotten, and must be called until then. Only what
    /// compare() returns after that, together with what is recorded, is complete.
    Expected<bool> restartRecording() const;
    /// Records that the store may lack something that is not recorded as unwritten.
    Expected<void> setIncomplete() const;
    /// Records that everything is written that compare() has returned since.
    Expected<void> setComplete() const;
    /// Returns whether all that is unwritten is recorded. O(log n).
    Expected<bool> isComplete() const;
    /// Returns whether something is recorded as unwritten. O(log n).
    Expected<bool> hasUnwritten() const;
    /// Returns what is recorded, in time in proportion to it; nothing if the record is wrong,
    /// because it names what the database does not contain. May contain what was written.
    Expected<std::optional<Unwritten>> unwritten() const;
    /// Returns whether the record contains all that compare() returns, unless it is not complete.
    Expected<bool> isRecordSound() const;
    /// Returns the stores for which something is recorded about the database.
    static Expected<QStringList> recordedStores(const ProfileDatabase &profile, qint64 database);

    /// Records that remain to be removed, since others contain all that they contain.
    struct Rewritten {
        QStringList names;
        /// The names of the records that contain it.
        QStringList by;
    };
    /// Returns what was passed to setRewritten() last; both lists are empty if that never happened.
    Expected<Rewritten> rewritten() const;
    /// Replaces what rewritten() returns; empty lists mean that nothing remains to be removed.
    Expected<void> setRewritten(const Rewritten &records) const;

private:
    /// Call visitPart with, or return, the contents of the records that satisfy `condition`.
    Expected<void> visit(const QString &condition, const QVariantList &values,
                         const PartVisitor &visitPart) const;
    Expected<QHash<QString, Contents>> read(const QString &condition,
                                            const QVariantList &values) const;
    /// Adds the row of a record or a part.
    Expected<void> insert(const QString &row, const Contents &contents) const;
    /// Removes the first of `names`, at least one, until the deadline, and calls `prepare` before
    /// each. Returns how many.
    using Preparation = std::function<Expected<void>(const QString &name)>;
    Expected<qsizetype> removeUntil(const QDeadlineTimer &deadline, const QStringList &names,
                                    const Preparation &prepare) const;
    /// Records what the record `name` contains as unwritten. Calls setIncomplete() instead if the
    /// database does not know something of it: the profile has lost it, or what is recorded of the
    /// record is damaged.
    Expected<void> setUnwritten(const QString &name) const;
    /// Returns whether the database knows all that `contents` lists. O(k log n) with k identifiers.
    Expected<bool> isListSound(const Contents &contents) const;
    /// Reads identifiers, and returns nothing if one of them has a NULL beside it.
    Expected<std::optional<QList<OperationId>>> readRecorded(const QString &statement) const;
    /// Removes what the settings contain for a store and all databases.
    static Expected<void> forgetSettings(const ProfileDatabase &profile, const QString &store);
    Expected<QString> setting(const QString &key) const;
    Expected<void> setSetting(const QString &key, const QString &value) const;
    /// Returns the key of the setting for this database and store whose key begins with `prefix`.
    QString key(const QString &prefix) const;

    const ProfileDatabase &m_profile;
    const QString m_store;
    const qint64 m_database;
};
