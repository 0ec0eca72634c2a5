#pragma once

#include <QtCore/QHash>
#include <QtCore/QStringList>

#include "Engine/Notes/IdentifierSet.h"

/// The records of one database in one store, divided into tiers by their size. Each tier reaches to
/// eight times the size of the one below. Rewriting a tier with MostInTier records moves their
/// contents to a higher tier, so that of n records at most MostInTier * log n remain, and every
/// byte is rewritten O(log n) times.
namespace RecordTiers {

/// A tier with this many records is full.
constexpr int MostInTier = 8;
/// The number of records that are rewritten at once, so that a store with very many of them does
/// not delay the synchronization.
constexpr int MostAtOnce = 64;
/// Records of this size in bytes or more are large: they belong to no tier.
constexpr qint64 LargeSize = 512LL << 10;

/// Returns the names of the records of the highest tier that is full and of all tiers below it, the
/// smallest MostAtOnce of them; empty if none is full. `sizes` contains the sizes in bytes by the
/// names of the records. Thread-safe; O(n log n).
QStringList full(const QHash<QString, qint64> &sizes);

/// How many of the operations of a record are current.
struct Use {
    qsizetype current = 0;
    qsizetype all = 0;

    /// Adds the `operations` of the record, or some of them. `allCurrent` contains all current
    /// operations of the database.
    void add(const QList<OperationId> &operations, const IdentifierSet &allCurrent);
    /// Returns whether the record, of `size` bytes, is large and at least half of its operations
    /// are superseded.
    bool isLow(qint64 size) const;
};

}  // namespace RecordTiers
