#pragma once

#include "Engine/Synchronization/StoreSession.h"

/// Synchronizes a database with a store: takes over what others have written there, makes the
/// database where the profile has none, then writes what the store lacks. What the store lost is
/// written again.
class SyncSession : public StoreSession {
public:
    using StoreSession::StoreSession;

    std::optional<Error> work(BlobStore &store, const EngineFuture &future) override;
    std::optional<Error> settle() override;

private:
    enum class Step { Listing, Reading, Writing, Recording };
    struct Read {
        QString name;
        Transaction transaction;
        qint64 size = 0;
    };
    /// The last: of an unknown version, or no plain file.
    enum class Record { Sound, Absent, Damaged, Untouchable };

    std::optional<Error> list(BlobStore &store, const EngineFuture &future);
    std::optional<Error> readRecord(BlobStore &store, const EngineFuture &future);
    std::optional<Error> readSome(BlobStore &store, const EngineFuture &future);
    std::optional<Error> writeRecord(BlobStore &store, const EngineFuture &future) const;

    std::optional<Error> settleListing();
    std::optional<Error> importDatabase();
    std::optional<Error> settleReading();
    std::optional<Error> prepareWriting();
    void goOnWriting();

    Step m_step = Step::Listing;
    QStringList m_unread;
    QList<Read> m_read;
    Record m_record = Record::Absent;
    QString m_recordedName;
    QString m_nameToRecord;
};
