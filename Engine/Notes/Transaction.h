#pragma once

#include "Engine/Notes/Operation.h"
#include "Platform/Foundation/Expected.h"

/// The contents of one transaction record of a store: operations, and identifiers of superseded
/// operations. A value; its functions are thread-safe. The format is defined in
/// Engine/Notes/StoreFormat.md.
struct Transaction {
    /// The version of the format that this program reads and writes.
    static constexpr int Version = 1;
    /// Maximum size of a record in bytes. A longer record is never read or written.
    static constexpr qint64 SizeLimit = 64LL << 20;
    /// Maximum of cost() for a record: that of 240,000 identifiers, and at least twice as much as
    /// any program writes.
    static constexpr qint64 CostLimit = 32LL << 20;
    /// Size in bytes from which on a writer starts the next record.
    static constexpr qsizetype UsualSize = 1LL << 20;

    QList<Operation> operations;
    QList<OperationId> superseded;

    bool isEmpty() const { return operations.isEmpty() && superseded.isEmpty(); }
    /// Returns `superseded`, followed by what the operations supersede. May contain duplicates.
    QList<OperationId> allSuperseded() const;

    /// Returns the record. It contains a random salt, so no two records are the same.
    QByteArray encoded() const;
    /// Returns roughly how many bytes parsing `record` takes besides its texts, see JsonCost, or
    /// any number above CostLimit if that is exceeded.
    static qint64 cost(const QByteArray &record);
    /// Returns the transaction in `record`, which may be hostile. If anything in it violates the
    /// format, nothing of it is returned, but an error of the code DamagedRecord, UnknownVersion if
    /// a newer program wrote it, or BlobRefused if it exceeds a limit, in which case it was not
    /// parsed. `name` names the record in the error. The memory of `record` is released as soon as
    /// it is parsed if it is moved here.
    static Expected<Transaction> decoded(QByteArray record, const QString &name);
};
