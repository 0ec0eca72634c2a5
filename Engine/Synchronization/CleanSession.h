#pragma once

#include "Engine/Synchronization/StoreSession.h"

/// Drops from a store what no replica needs: writes again what is still needed of the transactions
/// that hold anything superseded or anything twice, or that hold little, and then removes these.
///
/// What keeps it safe, whoever else writes, reads or cleans at the same time: a transaction is
/// removed only after this session has itself written every operation of it that nothing supersedes
/// and the identifiers of all others. So what the store as a whole says never becomes less.
/// Transactions that could not be read stay.
///
/// Comes after a SyncSession of the same subject.
class CleanSession : public StoreSession {
public:
    using StoreSession::StoreSession;

    std::optional<Error> work(BlobStore &store, const EngineFuture &future) override;
    std::optional<Error> settle() override;

private:
    enum class Step { Choosing, Writing, Removing };

    void choose();
    QStringList wasteful(const QHash<QString, KnownTransactions::Contents> &all,
                         const QSet<OperationId> &needed) const;
    void goOnWriting();
    std::optional<Error> removeTransactions(BlobStore &store, const EngineFuture &future);
    std::optional<Error> settleRemoving();

    Step m_step = Step::Choosing;
    QStringList m_toRemove;
};
