#pragma once

#include "Engine/Synchronization/StoreSession.h"

/// Removes from a store what no replica needs: rewrites the current contents of some transactions,
/// and then removes these transactions. Must follow a completed SyncSession of the same subject.
///
/// Safe while others write, read or clean up the same store: a transaction is removed only after
/// this session has written every current operation of it and the identifiers of all others, so
/// that the store as a whole never contains less information. Transactions that could not be read
/// are left alone, and so are those with an operation of which the profile knows neither that it is
/// current nor that it is superseded: the next SyncSession compares everything, thus reads these
/// again. If any read of the profile fails, the session ends with that error, and nothing is
/// declared superseded or removed.
class CleanSession : public StoreSession {
public:
    /// Which transactions to rewrite.
    enum class Extent {
        /// Those that contain superseded or duplicate operations or are small.
        Everything,
        /// Those of full tiers (see RecordTiers). Takes time in proportion to what they contain.
        FullTiers,
        /// Also the large ones of which most operations are superseded. Compares everything.
        FullTiersAndLarge
    };

    CleanSession(const ProfileDatabase &profile, EngineNoteLibrary &library, Subject subject,
                 Extent extent = Extent::Everything);

    /// Writes or removes transactions, depending on the step. Removing many may take as long as the
    /// store needs for each.
    Expected<void> accessStore(BlobStore &store, const EngineFuture &future) override;
    Expected<void> accessProfile() override;
    bool isRecording() const override;
    /// Returns the number of transactions that were removed. Must be called on the main thread.
    qsizetype removed() const { return m_removed; }

private:
    /// The steps, in order. Writing is repeated for each new transaction, and forgetting until all
    /// are forgotten.
    enum class Step { Starting, Choosing, Writing, Removing, ForgettingRemoved };
    /// The contents of known transactions by name.
    using Transactions = QHash<QString, KnownTransactions::Contents>;

    /// Determine which transactions to rewrite and remove, and what must be written before. Called
    /// on a worker thread.
    Expected<void> chooseTransactions();
    Expected<void> chooseFromAll();
    Expected<void> chooseFullTiers(QHash<QString, qint64> sizes);
    /// Lets the contents of `transactions` and the operations `unwritten` be written, and then
    /// `transactions` be removed. `current` contains those of their operations that are current.
    void choose(const Transactions &transactions, const IdentifierSet &current,
                const QSet<OperationId> &unwritten);
    /// Chooses what is left of a session that was interrupted before it had removed all; returns
    /// whether there is anything.
    Expected<bool> chooseRewritten(const QHash<QString, qint64> &sizes);
    /// Returns the current operations that no transaction of `all` contains.
    Expected<QSet<OperationId>> operationsNotIn(const Transactions &all) const;
    /// Returns the contents of the known transactions `names`.
    Expected<Transactions> contents(const QStringList &names) const;
    /// Removes from `all` the transactions with an operation that is not `present`. Returns their
    /// names.
    static QStringList removeWithOthers(Transactions &all, const NoteLog::IdentifierSets &present);
    /// Returns the names of the transactions that contain operations other than `current` ones, or
    /// ones that another transaction contains too, or that are small. O(number of operations).
    static QStringList transactionsToRewrite(const Transactions &all, const IdentifierSet &current);
    /// Returns the names of the transactions of full tiers, and of the large ones of which at least
    /// half of the operations are not `current`.
    static QStringList fullTiers(const Transactions &all, const IdentifierSet &current);
    Expected<void> beginWriting();
    /// Forgets some of what was removed.
    Expected<void> forgetRemoved();
    /// Records that nothing remains to be removed.
    Expected<void> recordRemoval();
    /// Chooses the next step from what remains to be written.
    Expected<void> continueWriting();
    /// Reads the records again that an earlier session has written, and returns the names of those
    /// that are not what was written. Fails if one cannot be read.
    Expected<QStringList> unsoundRewrites(BlobStore &store, const EngineFuture &future);
    /// Removes the chosen transactions from the store; stops at the first error.
    Expected<void> removeTransactions(BlobStore &store, const EngineFuture &future);

    const Extent m_extent;
    Step m_step = Step::Starting;
    /// Whether known transactions must be read again.
    bool m_isComparisonNeeded = false;
    /// The names of the transactions to remove.
    QStringList m_toRemove;
    qsizetype m_removed = 0;
    /// Whether an earlier session has written what the transactions to remove contain.
    bool m_isWritten = false;
    /// The names of the transactions that contain it then.
    QStringList m_rewrittenBy;
    /// Whether these are not what was written.
    bool m_areRewritesUnsound = false;
};
