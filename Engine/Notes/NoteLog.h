#pragma once

#include <QtCore/QSet>
#include <functional>
#include <utility>

#include "Application/Interface/NoteDatabase.h"
#include "Engine/Notes/IdentifierSet.h"
#include "Engine/Notes/NoteHistory.h"
#include "Engine/Notes/Transaction.h"

class ProfileDatabase;
class QSqlQuery;

/// The operations of one database of the profile, and the notes that follow from them.
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
/// Must be used on the main thread; all functions block for the database. Functions that write must
/// be called within a transaction of the profile, which the caller must roll back if they return an
/// error. All functions return an error of the code ProfileNotWritten if the database cannot be
/// read or written; a failed read never looks like an empty result.
class NoteLog {
public:
    /// Adds the row of an open database to the profile and returns its id.
    static Expected<qint64> insertDatabase(const ProfileDatabase &profile, const QString &UUID,
                                           const QString &name);

    /// The columns of the table "operations" that are read as an operation, and their number.
    static inline const QString OperationColumns = QStringLiteral(
        "digest, note_uuid, CAST(title AS BLOB), CAST(text AS BLOB), modified, supersedes, salt");
    static constexpr int OperationColumnCount = 7;
    /// Returns the operation in a row that begins with OperationColumns. It may be damaged.
    static Operation operationIn(const QSqlQuery &row);

    /// Maximum number of edits at one position that are all read for the list of notes, so that a
    /// store cannot exhaust the time of the main thread. Of more edits, about as many are read.
    static constexpr int MostRows = 100;

    /// `profile` is not owned and must outlive this object. `database` is the id of the database's
    /// row, `lastAtOpening` that of its last operation when the profile was opened.
    NoteLog(const ProfileDatabase &profile, qint64 database, qint64 lastAtOpening = 0);

    /// Returns the notes in the order in which they were added. A note with conflicting edits is
    /// followed by one copy for each of the other edits.
    Expected<QList<Note>> notes() const;
    /// See NoteDatabase::rows, rowsAt, hasMoreEdits and completeNote. The error of an edit that is
    /// not there has the code InvalidDatabase.
    Expected<QList<NoteRow>> noteRows(qint64 from, int count) const;
    Expected<QList<NoteRow>> noteRowsAt(qint64 position) const;
    Expected<bool> hasMoreEdits(const QString &note, qsizetype count) const;
    Expected<Note> completeNote(const Note &note) const;
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
    /// A current operation that is not what was saved.
    struct Damage {
        OperationId id;
        /// The title of the note, which may be damaged itself; empty for the name of the database.
        QString title;
        /// Whether the identifier is not the digest of the contents. Otherwise the operation is
        /// superseded.
        bool isOfContents = false;
    };
    /// Returns all such operations. Reads all operations.
    Expected<QList<Damage>> damagedOperations() const;
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
    /// Returns the number of notes with conflicting edits, as the profile has recorded it. O(1).
    Expected<qint64> countOfConflicts() const;
    /// Returns whether that is what counting finds. O(n).
    Expected<bool> isCountOfConflictsSound() const;
    /// Counts the conflicts and records their number. O(n).
    Expected<void> recountConflicts() const;
    /// See NoteDatabase::earlierVersions.
    Expected<QList<NoteVersion>> earlierVersions(const Note &note, const VersionsPart &part) const;
    const NoteHistory &history() const { return m_history; }

    /// Returns the id of the database's row.
    qint64 database() const { return m_database; }

private:
    /// An operation, and the UUID of the note that it shows as.
    struct Row {
        QString UUID;
        Operation operation;
        /// See Note::conflict.
        QString conflict;
    };

    /// An operation of a note, without its text, and where it is in the list.
    struct Place {
        Operation operation;
        qint64 position = 0;
        /// The id of its row.
        qint64 id = 0;
    };

    /// Returns whether an operation has this UUID as `note`.
    using HasNote = std::function<Expected<bool>(const QString &UUID)>;

    /// Returns the rows of `operations`, which must be all of some notes or those that show, in
    /// their order.
    static Expected<QList<Row>> rowsOf(const QList<Operation> &operations, const HasNote &hasNote);
    Expected<QList<Row>> rows() const;
    /// Returns the operations of notes in the rows of `source`, a table and a condition, at most
    /// `most`, ordered by position and note.
    Expected<QList<Place>> places(const QString &source, const QVariantList &values,
                                  int most) const;
    /// Returns rows from the position `from` on, one at least if there is one. Reads as many as
    /// `count` operations, and the rows of one more position.
    Expected<QList<NoteRow>> nextRows(qint64 from, int count) const;
    /// Returns the rows of `places`; of a position with more than MostRows, the rows of some.
    Expected<QList<NoteRow>> noteRows(const QList<Place> &places) const;
    /// Returns the rows of one position.
    Expected<QList<NoteRow>> noteRows(qint64 position, QList<Place> places) const;
    /// Returns about MostRows of the rows of a position, with two at least of each conflict.
    Expected<QList<NoteRow>> someRowsAt(qint64 position) const;
    /// Returns the notes of a position. O(notes log n), however many edits they have.
    Expected<QStringList> notesAt(qint64 position) const;
    /// Returns about `most` of the edits of a note, with the one that shows first and, if there are
    /// several, another one.
    Expected<QList<Place>> somePlaces(qint64 position, const QString &note, int most) const;
    static Note noteOf(const Row &row);
    Expected<bool> hasNote(const QString &UUID) const;
    /// Returns the UUID as which `copy` shows, which no note has. It may be in braces: such a copy
    /// is saved with another UUID.
    static Expected<QString> UUIDOfCopy(const Operation &copy, const HasNote &hasNote);
    Expected<QList<OperationId>> identifiers(const QString &condition,
                                             const QVariantList &values) const;
    Expected<void> visitIds(const QString &condition, const QVariantList &values,
                            const IdVisitor &visit) const;
    Expected<QList<Operation>> select(const QString &condition, const QVariantList &values) const;
    Expected<std::optional<Operation>> operation(const OperationId &identifier) const;
    /// Returns the operation that shows first among those of `note`; the empty string stands for
    /// the name of the database.
    Expected<std::optional<Operation>> first(const QString &note) const;
    /// Returns the operation that shows as the note `noteUUID`, or an empty identifier.
    Expected<OperationId> shownAs(const QString &noteUUID) const;
    /// The same for a UUID that no note has. Reads the identifiers of all conflicting edits.
    Expected<OperationId> copyShownAs(const QUuid &UUID) const;
    /// Returns the edit that the revision of `note` names or, if it is empty, the one that its UUID
    /// shows.
    Expected<OperationId> seenAs(const Note &note) const;
    /// Returns the operation of the edit that seenAs() returns, if it is current.
    Expected<std::optional<Operation>> seenOperation(const Note &note) const;
    /// Returns the operation that replaces the conflicting ones `kept` and `removed`.
    Expected<Operation> resolution(const Operation &kept, const Operation &removed) const;
    /// Returns what an operation that replaces `seen` must supersede.
    Expected<QList<OperationId>> predecessors(const QList<OperationId> &seen) const;
    Expected<bool> isUnsent(const OperationId &identifier) const;
    Expected<bool> isSuperseded(const OperationId &identifier) const;
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
    const NoteHistory m_history;
    mutable QSet<qint64> m_changedPositions;
};
