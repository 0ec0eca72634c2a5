#include "Engine/Synchronization/MergeQueue.h"

#include <QtCore/QCryptographicHash>
#include <algorithm>

namespace {

/// Number of rows that take as long as it takes to record that a record is known.
constexpr qsizetype RowsOfRecord = 10;
/// Number of characters of texts that take as long as another row.
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
    Entry entry{.name = name, .transaction = record.transaction, .size = record.size};
    // Neighbours are inserted into the table in a fraction of the time.
    std::sort(entry.transaction.superseded.begin(), entry.transaction.superseded.end());
    entry.digest = digestOf(entry.transaction);
    return entry;
}

Expected<QList<MergeQueue::Part>> MergeQueue::takeParts(qsizetype rows, const SizeOf &sizeOf) {
    QList<Part> parts;
    while (!m_waiting.isEmpty() && rows > 0) {
        const Expected<Part> part = takePart(rows, sizeOf);
        if (!part) {
            return failure(part.error());
        }
        parts.append(*part);
        rows -= part->rows;
    }
    return parts;
}

Expected<MergeQueue::Part> MergeQueue::takePart(qsizetype room, const SizeOf &sizeOf) {
    Entry &entry = m_waiting.first();
    Part part{.name = entry.name, .number = entry.takenParts++, .rows = RowsOfRecord};
    const qsizetype last = entry.transaction.operations.size();
    const auto isTaken = [&] {
        return entry.takenOperations > last && entry.takenSuperseded == entry.superseded.size();
    };
    // An edit and the one that it replaces are merged together, so that no conflict shows
    // meanwhile.
    const auto isDivided = [&] {
        return entry.takenSuperseded == 0 && !entry.superseded.isEmpty();
    };
    while (!isTaken() && (part.rows < room || isDivided())) {
        if (entry.takenSuperseded == entry.superseded.size()) {
            takeOperation(entry, part);
            continue;
        }
        const OperationId &identifier = entry.superseded[entry.takenSuperseded++];
        const Expected<qint64> size = sizeOf(identifier);
        if (!size) {
            return failure(size.error());
        }
        part.contents.superseded.append(identifier);
        part.rows += 1 + *size / CharactersInRow;
    }
    if (isTaken()) {
        part.isLast = true;
        part.contents.size = entry.size;
        m_taken.append(m_waiting.takeFirst());
    }
    return part;
}

void MergeQueue::takeOperation(Entry &entry, Part &part) {
    const QList<Operation> &operations = entry.transaction.operations;
    const qsizetype number = entry.takenOperations++;
    entry.takenSuperseded = 0;
    if (number == operations.size()) {
        entry.superseded = entry.transaction.superseded;
        return;
    }
    const Operation &operation = operations[number];
    entry.superseded = operation.supersedes;
    part.operations.append(operation);
    part.contents.operations.append(operation.id);
    part.rows += 1 + (operation.title.size() + operation.text.size()) / CharactersInRow;
}
