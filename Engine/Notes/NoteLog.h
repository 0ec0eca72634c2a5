#pragma once

#include <QtCore/QSet>
#include <functional>
#include <utility>

#include "Application/Interface/NoteDatabase.h"
#include "Engine/Notes/IdentifierSet.h"
#include "Engine/Notes/NoteHistory.h"
#include "Engine/Notes/OperationTable.h"
#include "Engine/Notes/Transaction.h"

class ProfileDatabase;
class QSqlQuery;

/// Writes the operations of one database of the profile, and reads their identifiers. NoteRows
/// reads the notes that follow from them.
///
/// Stores the current operations, and of superseded operations only the identifiers. The set of
/// superseded identifiers never shrinks, so that the order in which operations arrive does not
/// matter and no superseded operation returns. An operation that has not been sent to any store is
/// not superseded by the next edit of its note but replaced. This does not apply to operations that
/// were there when the profile was opened: a backup or a copy of the profile on another computer
/// may contain and send them.
///
/// Every removed operation of a note is added to the history, except an unsent one whose title and
/// text are contained in the edit that replaces it, one that the user keeps in a conflict, and a
/// damaged copy of a current one.
///
/// Must be used on the main thread, or, to read only, with a ProfileReader, whose cancellation is
/// an error of the code Cancelled; all functions block for the database. Functions that write must
/// be called within a transaction of the profile, which the caller must roll back if they return an
/// error. All functions return an error of the code ProfileNotWritten if the database cannot be
/// read or written; a failed read never looks like an empty result.
class NoteLog {
public:
    /// Adds the row of an open database to the profile and returns its id.
    static Expected<qint64> insertDatabase(const ProfileDatabase &profile, const QString &UUID,
                                           const QString &name);

    /// `profile` is not owned and must outlive this object. `database` is the id of the database's
    /// row, `lastAtOpening` that of its last operation when the profile was opened.
    NoteLog(const ProfileDatabase &profile, qint64 database, qint64 lastAtOpening = 0);

    /// Returns the positions of the rows that this object may have changed since the last call.
    QSet<qint64> takeChangedPositions() const { return std::exchange(m_changedPositions, {}); }
    /// See NoteDatabase::saveNote. Also returns an error of the code InvalidDatabase if the UUID is
    /// not valid or the note is longer than Operation::NoteLimit.
    Expected<void> save(Note &note) const;
    /// See NoteDatabase::removeNote.
    Expected<bool> remove(const Note &note) const;
    /// See NoteDatabase::resolveConflict. The error of edits that do not conflict has the code
    /// InvalidDatabase. The new operation counts as sent, since another computer may send it.
    Expected<void> resolveConflict(Note &kept, const Note &removed) const;

    /// Returns the name of the database, or an empty string if no operation names it. O(log n).
    Expected<QString> name() const;
    /// Adds an operation that names the database. `name` must satisfy Operation::isName.
    Expected<void> setName(const QString &name) const;

    /// Adds what `transaction`, whose operations must be sound, contains. Idempotent, except that
    /// it repairs damaged operations of the profile.
    Expected<void> merge(const Transaction &transaction) const;
    /// Does the same for a part of a transaction: adds `operations`, without what they supersede,
    /// then supersedes `superseded`. `place` is the title of the location, for the history.
    Expected<void> merge(const QList<Operation> &operations, const QList<OperationId> &superseded,
                         const QString &place) const;
    /// Returns the statement for size().
    Expected<QSqlQuery> prepareSize() const;
    /// Returns the size in bytes of the texts of a current operation, by the statement that
    /// prepareSize() has returned; 0 if it is not current.
    Expected<qint64> size(QSqlQuery &query, const OperationId &identifier) const;
    /// Replaces `operations`, which must be current, by new ones with the same contents, which are
    /// not among those that are `superseded`, so that merging these deletes nothing. All computers
    /// make the same operations, unless three in a row are superseded.
    Expected<void> renew(const QList<Operation> &operations,
                         const QSet<OperationId> &superseded) const;
    /// Marks all operations as sent, so that later edits supersede them.
    Expected<void> markAllSent() const;

    /// Returns the identifiers of the current operations in the order in which they arrived.
    Expected<QList<OperationId>> operationIds() const;
    /// Returns those of `note` only; the empty string stands for the name of the database.
    Expected<QList<OperationId>> operationIds(const QString &note) const;
    /// Returns the identifiers of the superseded operations.
    Expected<QSet<OperationId>> supersededIds() const;
    /// Calls `visit` with each of the identifiers that operationIds() or supersededIds() returns.
    using IdVisitor = std::function<void(const OperationId &)>;
    Expected<void> visitOperationIds(const IdVisitor &visit) const;
    Expected<void> visitSupersededIds(const IdVisitor &visit) const;
    /// The identifiers of the current operations and of the superseded ones, sorted.
    struct IdentifierSets {
        IdentifierSet operations;
        IdentifierSet superseded;
    };
    Expected<IdentifierSets> identifierSets() const;
    /// Returns those of `identifiers`, in time in proportion to them.
    Expected<IdentifierSets> identifierSetsOf(const QList<OperationId> &identifiers) const;
    /// Returns whether this operation is current and its contents are damaged.
    Expected<bool> isDamaged(const OperationId &identifier) const;
    /// Removes the operation `damaged`, which must be current, if only its identifier is damaged:
    /// the operation with its contents is current as well, or superseded. The history keeps its
    /// contents only in the second case, and only once. Returns whether it is removed.
    Expected<bool> removeDamagedCopy(const Operation &damaged) const;
    /// Returns the identifiers of the current operations that are superseded, for example because a
    /// page of the profile's file is that of an earlier state. O(n).
    Expected<QList<OperationId>> returnedIds() const;
    /// Removes what returnedIds() has returned.
    Expected<void> eraseReturned(const QList<OperationId> &returned) const {
        return erase(returned);
    }
    /// The operations that fill one transaction.
    struct Portion {
        /// Those that are still current.
        QList<Operation> operations;
        /// The number of identifiers, from the first on, that were looked up.
        qsizetype count = 0;
    };
    /// Returns the first of the operations `identifiers`, as many as fill one transaction.
    Expected<Portion> firstOperations(const QList<OperationId> &identifiers) const;

    /// Returns whether there are neither operations nor superseded identifiers. O(log n).
    Expected<bool> isEmpty() const;
    /// Returns the number of notes; conflicting edits of a note count as one. Counts them: O(n).
    Expected<qint64> countOfNotes() const;
    /// Returns how many of the notes `UUIDs` there are. O(UUIDs log n).
    Expected<qsizetype> countOf(const QStringList &UUIDs) const;
    /// Returns whether there are more notes than `count`. O(count).
    Expected<bool> hasMoreNotesThan(qint64 count) const;
    const NoteHistory &history() const { return m_history; }

    /// Returns the id of the database's row.
    qint64 database() const { return m_database; }

private:
    Expected<QList<OperationId>> identifiers(const QString &condition,
                                             const QVariantList &values) const;
    Expected<void> visitIds(const QString &condition, const QVariantList &values,
                            const IdVisitor &visit) const;
    /// Returns the edit that `note` shows, see NoteRows::editOf, if it is current.
    Expected<std::optional<Operation>> seenOperation(const Note &note) const;
    /// Returns the operation that replaces the conflicting ones `kept` and `removed`.
    Expected<Operation> resolution(const Operation &kept, const Operation &removed) const;
    /// Returns what an operation that replaces `seen` must supersede.
    Expected<QList<OperationId>> predecessors(const QList<OperationId> &seen) const;
    Expected<bool> isUnsent(const OperationId &identifier) const;
    /// Returns the operation that replaces `operation`, see renew().
    Expected<Operation> renewalOf(const Operation &operation,
                                  const QSet<OperationId> &superseded) const;

    Expected<Operation> writeEdit(const Note &note, const OperationId &seen) const;
    /// Whether the history keeps what is erased.
    enum class Keeping { Keep, Drop };

    /// Adds `operation` in place of `seen`.
    Expected<void> replace(const QList<OperationId> &seen, const Operation &operation,
                           Keeping keeping = Keeping::Keep) const;
    Expected<QSqlQuery> prepareInsertion() const;
    Expected<void> insert(QSqlQuery &insertion, const Operation &operation,
                          const OperationId &seen) const;
    Expected<void> erase(const QList<OperationId> &identifiers, Keeping keeping = Keeping::Keep,
                         const QString &place = {}) const;
    Expected<void> supersede(const QList<OperationId> &identifiers,
                             const QString &place = {}) const;

    const ProfileDatabase &m_profile;
    const qint64 m_database;
    const qint64 m_lastAtOpening;
    const OperationTable m_operations;
    const NoteHistory m_history;
    mutable QSet<qint64> m_changedPositions;
};
