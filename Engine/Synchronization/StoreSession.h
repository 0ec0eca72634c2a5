#pragma once

#include "Engine/Notes/KnownTransactions.h"
#include "Engine/Notes/NoteLog.h"
#include "Engine/Stores/BlobStore.h"

class EngineDatabase;
class EngineNoteLibrary;

/// Something that is done between the profile and a store for one database, step by step:
///
///     while (!session.isDone() && !error) {
///         error = session.work(store, future);  // on a worker thread; touches the store alone
///         error = error ? error : session.settle();  // on the main thread; the profile alone
///     }
///
/// It can be abandoned at any point: each step leaves store and profile as a later session needs
/// them. There is one session at a time for a database and a store.
class StoreSession {
public:
    /// Whose session it is.
    struct Subject {
        /// As the store has it: "@inbox" for the inbox.
        QString databaseUUID;
        /// What the database is called until the store says better.
        QString databaseName;
        /// Names the store in the profile, for as long as it is the same store; any text.
        QString place;
    };

    /// Both must outlive this.
    StoreSession(const ProfileDatabase &profile, EngineNoteLibrary &library, Subject subject);
    virtual ~StoreSession() = default;
    StoreSession(const StoreSession &) = delete;
    StoreSession &operator=(const StoreSession &) = delete;

    /// An error of either ends the session.
    virtual std::optional<Error> work(BlobStore &store, const EngineFuture &future) = 0;
    virtual std::optional<Error> settle() = 0;
    bool isDone() const { return m_isDone; }
    /// What is wrong with single records, which did not keep the others from being read.
    const QList<Error> &problems() const { return m_problems; }

protected:
    const Subject &subject() const { return m_subject; }
    const ProfileDatabase &profile() const { return m_profile; }
    EngineNoteLibrary &library() const { return m_library; }
    /// nullptr while there is no such database in the profile.
    std::shared_ptr<EngineDatabase> database() const;
    /// Of the database, which must be there.
    const NoteLog &log() const;
    KnownTransactions known() const;

    /// Where in the store the transaction `name` is; without one, where all are.
    QString path(const QString &name) const;
    void addProblem(const Error &error) { m_problems.append(error); }
    void setDone() { m_isDone = true; }

    /// What is still to be written into the store.
    QList<OperationId> m_operationsToWrite;
    QSet<OperationId> m_supersededToWrite;
    /// Takes the next record's worth of it; answers whether there was any. Main thread.
    bool takeNext();
    /// Writes the record that was taken.
    std::optional<Error> write(BlobStore &store, const EngineFuture &future);
    /// Keeps in mind that it was written. Main thread.
    std::optional<Error> rememberWritten();
    /// Whether an operation that was to be written has been superseded meanwhile, or a record may
    /// not be there.
    bool hasFailedToWriteAll() const { return m_hasFailedToWriteAll; }

private:
    const ProfileDatabase &m_profile;
    EngineNoteLibrary &m_library;
    const Subject m_subject;
    QList<Error> m_problems;
    Transaction m_transaction;
    QString m_transactionName;
    qint64 m_writtenSize = 0;
    bool m_hasFailedToWriteAll = false;
    bool m_isDone = false;
};
