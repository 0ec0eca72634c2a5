#pragma once

#include "Engine/Synchronization/DamagedRecords.h"

/// Reads known transaction records of a store again to find those that the store has damaged or
/// lost. Each verification continues where the previous one of the same database and store stopped.
/// Must not be used on two threads at a time.
class RecordVerification {
public:
    /// Which of the known records are verified.
    enum class Extent {
        /// At most MostRecords, and not more than MostBytes; a larger record in some verifications
        /// only, so that it is not more on average.
        Some,
        All
    };
    static constexpr int MostRecords = 8;
    static constexpr qint64 MostBytes = 512LL << 10;

    explicit RecordVerification(Extent extent) : m_extent(extent) {}

    /// Chooses the records. Must be called first, where `known` can be read.
    Expected<void> choose(const KnownTransactions &known);
    /// Reads the chosen records, `count` at a time, until the store fails or `future` is cancelled.
    /// A failure is a result that takeResults() reports. Blocks; must be called on a worker thread.
    void verify(const TransactionRecords &records, int count, const EngineFuture &future);
    /// Drops the results of records that are read again anyway, and of those that are not `listed`
    /// any more, unless the store has failed.
    void dropResults(const QHash<QString, KnownTransactions::Contents> &readAgain,
                     const QSet<QString> &listed);
    bool hasResults() const { return !m_results.isEmpty(); }
    /// Adds the records that could not be read to `damaged`, and remembers the last record.
    void takeResults(DamagedRecords &damaged);
    /// Returns the name of the last verified record, where the next verification continues.
    const QString &last() const { return m_last; }

private:
    /// A record that was read again.
    struct Result {
        DamagedRecords::Record record;
        Expected<void> read;
    };

    /// Returns whether a record of this size shall be verified as the first one.
    static bool isTurnOf(qint64 size);
    /// Returns whether no record shall be verified after the chosen ones, which have `size` bytes
    /// together with the next.
    bool isEnough(qint64 size) const;

    const Extent m_extent;
    /// Contents are empty if the name contains a digest.
    QList<DamagedRecords::Record> m_chosen;
    QList<Result> m_results;
    QString m_last;
};
