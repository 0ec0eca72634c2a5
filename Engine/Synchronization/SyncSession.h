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

    Expected<void> accessStore(BlobStore &store, const EngineFuture &future) override;
    Expected<void> accessProfile() override;

private:
    enum class Step { Listing, Reading, Writing, Naming };
    struct Read {
        QString name;
        Transaction transaction;
        qint64 size = 0;
    };
    /// State of the database's record in the store. Untouchable: of an unknown version, or not a
    /// plain file.
    enum class Record { Sound, Absent, Damaged, Untouchable };

    Expected<void> list(BlobStore &store, const EngineFuture &future);
    Expected<void> readDatabaseRecord(BlobStore &store, const EngineFuture &future);
    Expected<void> readTransactions(BlobStore &store, const EngineFuture &future);
    Expected<void> readTransaction(BlobStore &store, const QString &name,
                                   const EngineFuture &future);
    Expected<void> writeDatabaseRecord(BlobStore &store, const EngineFuture &future) const;

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
    QStringList m_unread;
    QList<Read> m_read;
    qsizetype m_readSize = 0;
    Record m_record = Record::Absent;
    QString m_recordedName;
    QString m_nameToRecord;
};
