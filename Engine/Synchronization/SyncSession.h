#pragma once

#include "Engine/Synchronization/StoreSession.h"

/// Synchronizes a database with a store: merges what others have written there, creates the
/// database if the profile does not have it, then writes what the store lacks. What the store lost
/// is written again.
///
/// Damaged records are reported as problems and skipped. If a read of the profile fails, the
/// session ends with that error and writes nothing further.
class SyncSession : public StoreSession {
public:
    using StoreSession::StoreSession;

    /// Reads or writes the store, depending on the step.
    Expected<void> accessStore(BlobStore &store, const EngineFuture &future) override;
    Expected<void> accessProfile() override;

private:
    /// The steps, in order. Reading and Writing are repeated until everything is read or written.
    enum class Step { Listing, Reading, Writing, Naming };
    /// A transaction that was read and not merged yet.
    struct Read {
        QString name;
        Transaction transaction;
        /// Size of its record in bytes.
        qint64 size = 0;
    };
    /// State of the database's record in the store. Untouchable means an unknown version, or not a
    /// plain file.
    enum class Record { Sound, Absent, Damaged, Untouchable };

    /// Parts that access the store, called on a worker thread.
    Expected<void> list(BlobStore &store, const EngineFuture &future);
    Expected<void> readDatabaseRecord(BlobStore &store, const EngineFuture &future);
    Expected<void> readTransactions(BlobStore &store, const EngineFuture &future);
    Expected<void> readTransaction(BlobStore &store, const QString &name,
                                   const EngineFuture &future);
    Expected<void> writeDatabaseRecord(BlobStore &store, const EngineFuture &future) const;

    /// Parts that access the profile, called on the main thread.
    Expected<void> compareListing();
    Expected<void> importDatabase();
    Expected<void> mergeTransactions();
    /// Merges what was read, and proceeds to writing if everything was read.
    Expected<void> continueReading();
    Expected<void> prepareWriting();
    Expected<void> collectUnwritten();
    /// Chooses the next step from what remains to be written.
    Expected<void> continueWriting();

    Step m_step = Step::Listing;
    /// The names of the transactions that remain to be read.
    QStringList m_unread;
    /// The transactions read since the last merge, and their total size in bytes.
    QList<Read> m_read;
    qsizetype m_readSize = 0;
    Record m_record = Record::Absent;
    /// The name of the database in the store's record; empty unless a valid record was read.
    QString m_recordedName;
    /// The name to write to the store's record.
    QString m_nameToRecord;
};
