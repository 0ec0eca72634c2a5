#pragma once

#include "Engine/Synchronization/StoreSession.h"
#include "Engine/Synchronization/TransactionRecords.h"

/// Verifies every record of a database in a store, and whether the database and the store contain
/// the same. Changes neither.
///
/// Each problem that it finds is one of problems(). An error means that the store or the profile
/// could not be verified. If nothing was ever synchronized, there is no problem, see isUnused().
/// For the threads see StoreSession; the results are read on the main thread.
class VerificationSession : public StoreSession {
public:
    using StoreSession::StoreSession;

    /// Reads the store.
    Expected<void> accessStore(BlobStore &store, const EngineFuture &future) override;
    Expected<void> accessProfile() override;

    /// Returns the number of transaction records in the store. These are valid once the session is
    /// done.
    qsizetype recordCount() const { return m_names.size(); }
    /// Returns the number of damaged records that were set aside in the store.
    qsizetype setAsideCount() const { return m_setAsideCount; }
    /// Returns whether the store has nothing of the database, and the profile knows of nothing that
    /// the store should have.
    bool isUnused() const { return m_isUnused; }

private:
    /// The steps, in order.
    enum class Step { Listing, Reading };

    Expected<void> list(BlobStore &store, const EngineFuture &future);
    Expected<void> readDatabaseRecord(BlobStore &store, const EngineFuture &future);
    Expected<void> readRecords(BlobStore &store, const EngineFuture &future);
    /// Adds the records that are listed but were missing to the problems.
    Expected<void> reportMissing(const TransactionRecords &records, const QStringList &missing);
    /// Adds what is missing in the profile or in the store to the problems.
    Expected<void> compare();

    Step m_step = Step::Listing;
    QStringList m_names;
    qsizetype m_setAsideCount = 0;
    bool m_isUnused = false;
    /// Why the database's record could not be read if it is missing.
    std::optional<Error> m_missingRecord;
    QHash<QString, KnownTransactions::Contents> m_known;
    /// What the sound records of the store contain.
    QSet<OperationId> m_operations;
    QSet<OperationId> m_superseded;
};
