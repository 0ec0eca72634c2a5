#pragma once

#include "Engine/Notes/Operation.h"
#include "Platform/Foundation/Result.h"

/// What one record of a store's folder "transactions" holds: operations, and the identifiers of
/// operations that are superseded whatever else is known. A value; any thread. See
/// Engine/Notes/StoreFormat.md.
struct Transaction {
    static constexpr int Version = 1;
    /// Bytes. A longer record is refused and never written.
    static constexpr qint64 SizeLimit = 64LL << 20;
    /// Bytes that a record may hold before the next one is begun.
    static constexpr qsizetype UsualSize = 1LL << 20;

    QList<Operation> operations;
    QList<OperationId> superseded;

    bool isEmpty() const { return operations.isEmpty() && superseded.isEmpty(); }
    /// All that it says to be superseded.
    QList<OperationId> allSuperseded() const;

    QByteArray encoded() const;
    /// The transaction in the record `name`, or what is wrong with it: nothing of a record is taken
    /// of which anything is wrong.
    static Result<Transaction> decoded(const QByteArray &record, const QString &name);
};
