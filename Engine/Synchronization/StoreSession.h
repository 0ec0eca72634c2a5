#pragma once

#include <QtCore/QMutex>
#include <atomic>
#include <functional>

#include "Engine/Notes/KeptOperations.h"
#include "Engine/Notes/KnownTransactions.h"
#include "Engine/Notes/LostOperations.h"
#include "Engine/Notes/NoteLog.h"
#include "Engine/Stores/BlobStore.h"
#include "Engine/Synchronization/Problems.h"
#include "Engine/Synchronization/SessionProgress.h"

class EngineDatabase;
class EngineNoteLibrary;

/// A task that involves one database of the profile and one store, and alternates between two
/// threads:
///
///     Expected<void> result;
///     while (result && !session.isDone()) {
///         result = session.accessStore(store, future);  // on a worker thread
///         if (result) {
///             result = session.accessProfile();  // on the main thread
///         }
///     }
///
/// The calls must not overlap. A session can be abandoned after any call: each step leaves store
/// and profile in a state from which a later session continues. There must be at most one session
/// at a time for a database and a store.
class StoreSession {
public:
    /// The database and the store of a session.
    struct Subject {
        /// The UUID in the store: InboxUUID for the inbox.
        QString databaseUUID;
        /// The name of the database until one is read from the store.
        QString databaseName;
        /// Identifies the store in the profile: any text, as long as it is the same store.
        QString store;
        /// The title of the location, for the user.
        QString place = {};
    };
    /// Notes that disappear if a synchronization merges what it has read.
    struct Removal {
        QStringList UUIDs;
        /// In the same order, cut to 200 characters.
        QStringList titles;
        /// Number of notes in the database before.
        qint64 total = 0;
    };

    /// `profile` and `library` are not owned and must outlive this object.
    StoreSession(const ProfileDatabase &profile, EngineNoteLibrary &library, Subject subject);
    virtual ~StoreSession() = default;
    StoreSession(const StoreSession &) = delete;
    StoreSession &operator=(const StoreSession &) = delete;

    /// Performs the part of the current step that reads or writes `store`, or that reads much of
    /// the profile. Blocks, and returns an error of the code Cancelled soon after `future` is
    /// cancelled. An error ends the session.
    virtual Expected<void> accessStore(BlobStore &store, const EngineFuture &future) = 0;
    /// Performs the part of the current step that writes the profile, and chooses the next step.
    /// Must be called on the main thread, which it blocks for a small part of a second. An error,
    /// such as a failed read, ends the session before anything is written to the store or removed
    /// from it on account of it.
    virtual Expected<void> accessProfile() = 0;
    /// Ends the use of the profile by accessStore() soon, and makes later uses fail, with an error
    /// of the code Cancelled. Returns at once; to be called when the future of accessStore() is
    /// cancelled. accessProfile() is not affected.
    void interrupt() { m_isInterrupted = true; }
    /// Calls interrupt() and waits until accessStore() no longer uses the profile. Must be called
    /// on the main thread before the profile is closed, if accessStore() may still run then.
    void abandon();
    /// Returns whether accessProfile() has yet to record what was done with the store, for which
    /// accessStore() needs no store. Otherwise a later session repeats what is not recorded, so
    /// that a cancelled session should go on until it is. Must be called on the main thread,
    /// between the calls, or by the session itself.
    virtual bool isRecording() const;
    /// Returns whether the session has completed all steps.
    bool isDone() const { return m_isDone; }
    /// Returns the problems with single records, which did not prevent the others from being read.
    const Problems &problems() const { return m_problems; }
    /// Returns how far the session is. Thread-safe.
    const SessionProgress &progress() const { return m_progress; }
    /// Return the numbers of changes of notes that were read from the store and merged, and that
    /// were written to it. Must be called on the main thread.
    qint64 received() const { return m_received; }
    qint64 sent() const { return m_sent; }
    /// Returns the size in bytes of the largest transaction that was read and merged or written; 0
    /// if there was none. Must be called on the main thread.
    qint64 largestTransaction() const { return m_largestTransaction; }
    /// Returns the removal that the user has to decide about, if the session has ended with an
    /// error of the code RemovalUndecided.
    const std::optional<Removal> &undecidedRemoval() const { return m_undecidedRemoval; }

protected:
    /// Constant, thus thread-safe.
    const Subject &subject() const { return m_subject; }
    const ProfileDatabase &profile() const { return m_profile; }
    EngineNoteLibrary &library() const { return m_library; }
    /// Returns null as long as the profile has no such database. Must be called on the main thread.
    std::shared_ptr<EngineDatabase> database() const;
    /// Must be called on the main thread, when the database exists, before log() and known().
    void rememberDatabase();
    /// Return the operations of the database and its transactions in the store. On a worker thread
    /// they can be used in readProfile() only.
    NoteLog log() const { return {m_profile, m_databaseId}; }
    KnownTransactions known() const { return {m_profile, m_subject.store, m_databaseId}; }
    LostOperations lost() const { return {m_profile, m_subject.store, m_databaseId}; }
    KeptOperations kept() const { return {m_profile, m_databaseId}; }
    /// Calls `read`, which can read the profile on the current worker thread, with one state of it.
    Expected<void> readProfile(const std::function<Expected<void>()> &read);
    /// Calls `use` while the profile is open, on the current worker thread.
    Expected<void> useProfile(const std::function<Expected<void>()> &use);
    /// Notes the operations that the known transactions `names` contain and the profile has lost.
    /// To be called in readProfile() only, before these are forgotten.
    Expected<void> noteLost(const QStringList &names);
    void noteLost(const OperationId &identifier) { m_notedAsLost.insert(identifier); }
    /// Remembers in the profile what was noted, and that everything must be compared then;
    /// forgetSome() does so, too. Must be called on the main thread.
    Expected<void> rememberLost();
    /// What becomes of the contents of records that are forgotten. If they may be in others that
    /// this session is about to read, they are recorded as unwritten until then; if they may be
    /// lost, everything is compared.
    enum class Contents { MayBeLost, MayBeInUnread, AreInOthers };
    /// Removes some of the transactions `names`, from the first on, from the known ones. Returns
    /// their number, which is not 0 unless `names` is empty. Must be called on the main thread,
    /// repeatedly with those that remain.
    Expected<qsizetype> forgetSome(const QStringList &names,
                                   Contents contents = Contents::MayBeLost);

    /// Returns the folder of the database's transactions in the store.
    QString folder() const;
    /// Returns the blob name of the transaction record `name`.
    QString path(const QString &name) const;
    void addProblem(const Error &error) { m_problems.add(error); }
    /// Returns where addProblem() adds to. Valid as long as this object.
    Problems &collectedProblems() { return m_problems; }
    SessionProgress &progress() { return m_progress; }
    /// Adds the problem that the operation `identifier` was damaged in the profile or lost, and
    /// that it is repaired. Has no effect if that was added before.
    void reportRepaired(const OperationId &identifier, const QString &title);
    void addReceived(qint64 count) { m_received += count; }
    void addTransactionOfSize(qint64 size);
    void setDone() { m_isDone = true; }
    void setUndecidedRemoval(const Removal &removal) { m_undecidedRemoval = removal; }

    /// What remains to be written to the store.
    QList<OperationId> m_operationsToWrite;
    QSet<OperationId> m_supersededToWrite;
    /// Handles the operations that turned out to be damaged in the profile. Returns whether
    /// anything remains to be written or recorded. Must be called on the main thread.
    Expected<bool> hasMoreToWrite();
    /// Unless something is to be recorded first, writes as many transactions to the store as it
    /// takes at a time, or large ones, and reads them back to verify them. Each has as much of what
    /// remains to be written as fits into a record; operations that are damaged in the profile are
    /// skipped, so that no reader gets them. Writes nothing that no reader would accept. Must be
    /// called on a worker thread.
    Expected<void> writeTransactions(BlobStore &store, const EngineFuture &future);
    /// Reads the record of the database. Returns what is wrong with the record itself, if anything
    /// is. Must be called on a worker thread.
    Expected<std::optional<Error>> problemOfDatabaseRecord(BlobStore &store,
                                                           const EngineFuture &future) const;
    /// Adds one of the written transactions to the known ones, or records some of what it contains
    /// as written. Must be called on the main thread.
    Expected<void> recordWrittenTransaction();
    /// Returns the names of the transactions that were written.
    const QStringList &writtenTransactions() const { return m_writtenTransactions; }
    /// Returns whether an operation was superseded before it was written, or is damaged.
    bool hasFailedToWriteAll() const { return m_hasFailedToWriteAll; }

private:
    /// A transaction to be written and, once it is, without its texts, its name and its size in
    /// bytes.
    struct Outgoing {
        Transaction transaction;
        QString name = {};
        qint64 size = 0;
    };

    bool isAllPrepared() const;
    /// Returns a transaction with as much of what remains to be written as fits into a record,
    /// except for damaged operations. To be called in readProfile() only.
    Expected<Transaction> takeTransaction();
    /// Returns at most `most` of them; fewer if they are large, or once operations turn out to be
    /// damaged.
    Expected<QList<Outgoing>> takeTransactions(int most);
    Expected<void> write(QList<Outgoing> transactions, BlobStore &store,
                         const EngineFuture &future);
    Expected<void> recordSomeWritten();
    /// Calls writeRecord() and readBack(), one after the other: a record can be large.
    Expected<void> write(Outgoing &outgoing, BlobStore &store, const EngineFuture &future) const;
    /// Sets the name and the size of `outgoing`.
    Expected<void> writeRecord(Outgoing &outgoing, BlobStore &store,
                               const EngineFuture &future) const;
    /// Returns an error of the code DamagedRecord, and removes what is stored, unless that is the
    /// record that was written. Receives no more than its size, or 1 MiB if that is more.
    Expected<void> readBack(const Outgoing &outgoing, BlobStore &store,
                            const EngineFuture &future) const;
    /// Removes the operation, whose identifier or contents are damaged, if the database knows one
    /// with its contents. Otherwise it is reported and remembered.
    Expected<void> handleDamaged(const Operation &operation);
    void reportDamaged(const Operation &operation);

    const ProfileDatabase &m_profile;
    EngineNoteLibrary &m_library;
    const Subject m_subject;
    /// The id of the database's row.
    qint64 m_databaseId = 0;
    Problems m_problems;
    std::optional<Removal> m_undecidedRemoval;
    /// What is damaged in the profile and not handled yet.
    QList<Operation> m_damaged;
    /// What is written and not known yet, and the contents of what is known that are not recorded
    /// as written yet. If the session ends before they are, they are only written once more.
    QList<Outgoing> m_written;
    KnownTransactions::Contents m_toRecord;
    SessionProgress m_progress;
    qint64 m_received = 0;
    qint64 m_sent = 0;
    qint64 m_largestTransaction = 0;
    QStringList m_writtenTransactions;
    bool m_hasFailedToWriteAll = false;
    QSet<OperationId> m_repaired;
    /// The lost operations of known transactions that are not remembered yet.
    QSet<OperationId> m_notedAsLost;
    std::atomic_bool m_isInterrupted = false;
    /// Locked while a worker thread uses the profile.
    QMutex m_profileUse;
    bool m_isDone = false;
};
