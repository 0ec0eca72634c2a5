#include "Engine/Synchronization/MergeQueue.h"

#include <QtCore/QCryptographicHash>
#include <algorithm>

namespace {

/// Number of rows that take as long as it takes to record that a record is known.
constexpr qsizetype RowsOfRecord = 10;
/// Number of characters that take as long as another row.
constexpr qsizetype CharactersInRow = 200;

QByteArray digestOf(const Transaction &transaction) {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const Operation &operation : transaction.operations) {
        hash.addData(operation.id);
    }
    hash.addData("superseded");
    hash.addData(Operation::packed(transaction.superseded));
    return hash.result();
}

}  // namespace

MergeQueue::Entry MergeQueue::entryOf(const QString &name,
                                      const TransactionRecords::Record &record) {
    Entry entry{name, record.transaction, record.size, {}};
    // Neighbours are inserted into the table in a fraction of the time.
    std::sort(entry.transaction.superseded.begin(), entry.transaction.superseded.end());
    entry.digest = digestOf(entry.transaction);
    return entry;
}

QList<MergeQueue::Part> MergeQueue::takeParts(qsizetype rows) {
    QList<Part> parts;
    while (!m_waiting.isEmpty() && rows > 0) {
        parts.append(takePart(rows));
        rows -= parts.last().rows;
    }
    return parts;
}

MergeQueue::Part MergeQueue::takePart(qsizetype room) {
    Entry &entry = m_waiting.first();
    const QList<Operation> &operations = entry.transaction.operations;
    const QList<OperationId> &superseded = entry.transaction.superseded;
    Part part{.name = entry.name, .number = entry.takenParts++, .rows = RowsOfRecord};
    while (entry.takenOperations < operations.size() && part.rows < room) {
        const Operation &operation = operations[entry.takenOperations++];
        part.transaction.operations.append(operation);
        part.rows += 1 + operation.supersedes.size() +
                     (operation.title.size() + operation.text.size()) / CharactersInRow;
    }
    const qsizetype count =
        qMin(qMax(room - part.rows, qsizetype(0)), superseded.size() - entry.takenSuperseded);
    part.transaction.superseded = superseded.mid(entry.takenSuperseded, count);
    entry.takenSuperseded += count;
    part.rows += count;
    if (entry.takenOperations == operations.size() && entry.takenSuperseded == superseded.size()) {
        part.size = entry.size;
        m_taken.append(m_waiting.takeFirst());
    }
    return part;
}
