#pragma once

#include "Application/Interface/QuestionPresenter.h"
#include "Engine/Notes/RemovalForecast.h"
#include "Engine/Synchronization/DamagedRecords.h"
#include "Engine/Synchronization/MergeQueue.h"
#include "Engine/Synchronization/RecordVerification.h"
#include "Engine/Synchronization/StoreSession.h"
#include "Engine/Synchronization/TransactionRecords.h"

/// Synchronizes a database with a store: merges what others have written there, creates the
/// database if the profile does not have it, then writes what the store lacks. What the store lost
/// is written again.
///
/// Each session also reads some of the records again that the profile has read or written before,
/// together with the listing, and continues where the previous one stopped. A damaged record is
/// reported as a problem and moved to a name that no reader takes for a record. What it contained
/// is written again as far as the profile has known the record, and likewise if the store lists the
/// record but does not return it. A failed read is never taken for damage: it ends the session or,
/// if the record was known, the verification, which is reported as a problem.
///
/// What the store lacks is taken from what the profile has recorded about it. The session compares
/// everything instead, and begins that record anew, if it is not complete or is wrong, if a record
/// has disappeared and none that was read has all that it contained, if the profile has damaged
/// notes, if all records are verified, and at least in the first session with the store after the
/// profile was opened and in one of each day. Such a session also reads the
/// known records again that contain an operation which is damaged in the profile, or neither
/// current nor superseded there.
///
/// If more than ten notes and more than half of the database's notes would disappear by all that is
/// read together, nothing is merged or written, and the session ends with an error of the code
/// RemovalUndecided, unless the user has decided about these notes. Those that the user keeps are
/// renewed, also if their removal cannot be read any more. The profile remembers them until all are
/// renewed, so that a session that is interrupted meanwhile asks no second question and removes
/// none.
///
/// An operation that the profile has lost, and that is in no record any more, is reported by each
/// session that compares everything, until it returns.
///
/// If a read of the profile fails, the session ends with that error and writes nothing further.
class SyncSession : public StoreSession {
public:
    /// What the user has decided about a removal.
    struct Decision {
        /// The notes that the user was asked about.
        QStringList UUIDs;
        RemovalDecision decision = RemovalDecision::Later;
    };

    /// See StoreSession. Reads and writes nothing yet. Must be called on the main thread.
    SyncSession(const ProfileDatabase &profile, EngineNoteLibrary &library, Subject subject,
                RecordVerification::Extent extent = RecordVerification::Extent::Some);

    /// Sets what the user has decided; by default, nothing. Keep brings the notes back by new
    /// edits, so that the other computers keep them, too. Must be called before the first step.
    void setDecision(const Decision &decision) {
        m_decision = decision.decision == RemovalDecision::Later ? Decision() : decision;
    }

    /// Returns whether this session compares everything, which is not often, and records should be
    /// rewritten, even if it has neither read nor written any: there are many small ones, as in a
    /// store that an earlier version has left, or most of a large one is superseded. Must be called
    /// on the main thread, after the session.
    bool isMergeDue() const { return m_isMergeDue; }

    /// Reads or writes the store, depending on the step.
    Expected<void> accessStore(BlobStore &store, const EngineFuture &future) override;
    Expected<void> accessProfile() override;

private:
    /// The steps, in order. Importing, Forgetting, Reading, ForgettingDamaged, Restarting and
    /// Writing are repeated until everything is imported, forgotten, read or written. Collecting
    /// returns to Restarting if it finds that what is recorded as unwritten is wrong.
    enum class Step {
        Listing,
        Importing,
        Comparing,
        Forgetting,
        Reading,
        Verifying,
        ForgettingDamaged,
        Restarting,
        Collecting,
        Writing,
        Naming
    };
    static constexpr qsizetype FirstRowsAtOnce = 200;

    /// Before a merge, all records are read to see what they remove together.
    enum class Pass { Comparing, Merging };
    /// State of the database's record in the store. Untouchable means an unknown version, or not a
    /// plain file.
    enum class Record { Sound, Absent, Damaged, Untouchable };

    /// Parts that access the store, called on a worker thread.
    /// Reads the record of the database, lists its transactions and verifies some known ones: all
    /// at the same time, if the store is faster then.
    Expected<void> readStore(BlobStore &store, const EngineFuture &future);
    void takeListing(const BlobStore &store, const QStringList &names);
    Expected<void> readDatabaseRecord(BlobStore &store, const EngineFuture &future);
    Expected<void> readTransactions(BlobStore &store, const EngineFuture &future);
    /// Lists the store again if records were missing when they were read, since another computer
    /// may have rewritten them: what replaced them must be read before this session ends, and
    /// before anything is merged if the user may have to decide. Fails if that happens too often.
    Expected<void> listRewritten(BlobStore &store, const EngineFuture &future);
    bool isRewrittenMeanwhile() const { return m_isAnyMissing && m_unread.isEmpty(); }
    /// Returns whether the user has decided about notes, now or before a session was interrupted.
    bool isAnswered() const { return !m_remembered.isEmpty() || !m_decision.UUIDs.isEmpty(); }
    /// Begins to read what is unread.
    void beginPass();
    /// Moves the log of the profile if much was merged since.
    Expected<void> moveLog();
    /// Takes the result of reading the record `name`.
    Expected<void> takeTransaction(const TransactionRecords &records, const QString &name,
                                   const Expected<TransactionRecords::Record> &record);
    /// Counts a record that was read as done although it is not merged.
    void advanceUnmerged();
    /// Sets aside all records that are damaged.
    Expected<void> handleDamage(BlobStore &store, const EngineFuture &future);
    Expected<void> writeDatabaseRecord(BlobStore &store, const EngineFuture &future);

    /// Parts that only read the profile, called on a worker thread.
    Expected<void> compareListing();
    /// Notes what the records contained that the store no longer has, unless that is much.
    Expected<void> noteMoved();
    /// Returns whether `unwritten` contains any of that.
    bool isMovedLeft(const KnownTransactions::Unwritten &unwritten) const;
    /// If everything is compared, chooses those of the known records that are listed that contain
    /// what is damaged in the profile, or what the profile has lost, and finds out whether most of
    /// a large one is superseded. `sizes` contains the sizes of the known records.
    Expected<void> chooseToReadAgain(const QHash<QString, qint64> &sizes);
    /// Returns whether the record `name` is read again because of this part, and notes what the
    /// profile has lost of it. `present` is what the profile contains.
    bool isNeeded(const QString &name, const KnownTransactions::Contents &part,
                  const NoteLog::IdentifierSets &present);
    /// Adds what was read to the forecast. Releases the transactions if they take too much memory;
    /// their records are read again. When all are compared, checks what they remove and proceeds to
    /// merging.
    Expected<void> compareTransactions();
    /// Returns an error if the user must decide about notes that disappear. Otherwise finds what is
    /// kept.
    Expected<void> checkRemoval();
    /// Returns how many of the notes that disappear the user has not decided about, now or before a
    /// session was interrupted.
    Expected<qsizetype> countUndecided(const QList<RemovalForecast::Note> &removed) const;
    /// Returns the current operations of these notes.
    Expected<QList<OperationId>> operationsOf(const QStringList &notes) const;
    /// Finds the current operations that the user keeps, whether or not anything that was read
    /// removes them: what could not be read may do so later. Those that another edit replaces whose
    /// note is not among `removed` are not kept.
    Expected<void> findKept(const QList<RemovalForecast::Note> &removed);
    /// Takes what the next step merges, unless it is taken. What takes long to merge is found here.
    Expected<void> takeParts();
    /// Finds what is wrong in the profile and no merge repairs.
    Expected<void> findFaults();
    /// Finds what remains lost of the notes that the profile knew.
    Expected<void> findLost();
    /// Takes what is recorded as unwritten or, unless that is complete, compares everything.
    Expected<void> collectUnwritten();

    /// Parts that write the profile, called on the main thread.
    /// Records where the next session continues to verify.
    Expected<void> recordVerification();
    /// Creates the database unless the profile has it. If it was deleted, erases a part of what is
    /// left of it first.
    Expected<void> importDatabase();
    void beginComparing();
    /// Forgets some of the transactions that the store no longer has, then begins to merge.
    Expected<void> forgetGone();
    /// Forgets some of the records that are not what was written, then begins to collect.
    Expected<void> forgetDamaged();
    /// Returns whether all that was read is merged.
    bool isAllMerged() const { return m_queue.isEmpty() && m_parts.isEmpty(); }
    /// Merges a part of what was read. A record counts as known when all of it is merged.
    Expected<void> mergeTransactions();
    Expected<void> addToKnown(const QList<MergeQueue::Part> &parts);
    Expected<void> addToKnown(const MergeQueue::Part &part);
    /// Reports those of the merged `operations` that were damaged in the profile or lost.
    void reportRepaired(const QList<Operation> &operations);
    /// Lets the next step merge so many rows that it takes a short time, after the last one took
    /// `nanoseconds`.
    void adaptRowsAtOnce(qint64 nanoseconds);
    /// Renews some of the operations of the notes that the user keeps. The first part also
    /// remembers all of them.
    Expected<void> keepNotes();
    /// Forgets what this session was to keep: all of it is renewed, or the user has decided
    /// otherwise.
    Expected<void> forgetKept();
    /// Merges once everything is compared, and proceeds if everything was merged.
    Expected<void> continueReading();
    /// Proceeds to verifying or collecting.
    Expected<void> endReading();
    /// Proceeds to collecting what is recorded as unwritten, or to restarting the record if
    /// everything must be compared.
    Expected<void> beginCollecting();
    /// Forgets some of what is recorded as unwritten, then begins to collect.
    Expected<void> restartRecording();
    Expected<void> prepareWriting();
    /// Reports what remains lost, and forgets what has returned. Also forgets what remains lost if
    /// all records are verified.
    Expected<void> reportLost();
    Expected<void> eraseReturned();
    /// Chooses the next step from what remains to be written.
    Expected<void> continueWriting();
    /// Records that everything was written if everything was compared.
    Expected<void> recordWritten();

    /// Whether all known records are verified.
    const bool m_verifiesAll;
    /// What the user has decided, until it is in `m_operationsToKeep`.
    Decision m_decision;
    Step m_step = Step::Listing;
    Pass m_pass = Pass::Merging;
    RemovalForecast m_forecast;
    /// The number of transactions of `m_queue` that the forecast contains.
    qsizetype m_compared = 0;
    /// The digests of the records that were compared and have to be read again, by name.
    QHash<QString, QByteArray> m_released;
    /// The operations of notes that the user keeps and that are not renewed yet.
    QList<OperationId> m_operationsToKeep;
    /// Whether the profile remembers these.
    bool m_isKeepRemembered = false;
    /// What the profile remembers and this session decides about.
    QSet<OperationId> m_remembered;
    /// Whether everything is compared although what is recorded as unwritten is complete.
    bool m_mustCompare = false;
    bool m_isMergeDue = false;
    /// The operations that were found to be damaged in the profile or lost, and the known records
    /// that are read again.
    QSet<OperationId> m_damagedOperations;
    QHash<QString, KnownTransactions::Contents> m_readAgain;
    /// The operations that the profile has lost and this session has not read, and whether others
    /// have returned.
    QSet<OperationId> m_stillLost;
    bool m_hasLostReturned = false;
    /// The current operations that are superseded.
    QList<OperationId> m_returned;
    /// The names of all transactions that the store has listed, and those that remain to be read.
    QSet<QString> m_listed;
    QStringList m_unread;
    /// Whether one was missing when it was read, and how often others had to be read instead.
    bool m_isAnyMissing = false;
    int m_listingsAgain = 0;
    /// Whether the database has so many notes that the user may have to decide about a removal.
    bool m_isGuarded = false;
    /// The known transactions that are to be forgotten: first those that the store no longer has,
    /// later those that are damaged there.
    QStringList m_gone;
    /// Whether so much is in one of those that the store no longer has that everything is compared.
    bool m_isMuchGone = false;
    /// What was in these unless that is much. It is recorded as unwritten until the records are
    /// read that have it. If the session fails after that, the next one writes what is left again,
    /// even if a record that was known before has it.
    QSet<OperationId> m_movedOperations;
    QSet<OperationId> m_movedSuperseded;
    MergeQueue m_queue;
    /// What the next step merges.
    QList<MergeQueue::Part> m_parts;
    /// Approximate number of rows that the next step merges.
    qsizetype m_rowsAtOnce = FirstRowsAtOnce;
    /// Number of rows that were merged since the log of the profile was moved.
    qsizetype m_rowsInLog = 0;
    RecordVerification m_verification;
    DamagedRecords m_damagedRecords;
    /// Whether what is recorded as unwritten, or the number of conflicts, turned out to be wrong.
    bool m_isRecordWrong = false;
    bool m_isCountWrong = false;
    Record m_record = Record::Absent;
    /// The name of the database in the store's record; empty unless a valid record was read.
    QString m_recordedName;
    /// The name to write to the store's record.
    QString m_nameToRecord;
};
