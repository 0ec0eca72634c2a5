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
        Entry &entry = m_waiting.first();
        Part part{entry.name, takePart(entry, rows), entry.takenParts++, {}};
        if (entry.takenOperations == entry.transaction.operations.size() &&
            entry.takenSuperseded == entry.transaction.superseded.size()) {
            part.size = entry.size;
            m_taken.append(m_waiting.takeFirst());
        }
        parts.append(part);
    }
    return parts;
}

Transaction MergeQueue::takePart(Entry &entry, qsizetype &room) {
    Transaction part;
    room -= RowsOfRecord;
    while (entry.takenOperations < entry.transaction.operations.size() && room > 0) {
        part.operations.append(entry.transaction.operations[entry.takenOperations++]);
        const Operation &operation = part.operations.last();
        room -= 1 + operation.supersedes.size() +
                (operation.title.size() + operation.text.size()) / CharactersInRow;
    }
    const qsizetype count =
        qMin(qMax(room, qsizetype(0)), entry.transaction.superseded.size() - entry.takenSuperseded);
    part.superseded.append(entry.transaction.superseded.mid(entry.takenSuperseded, count));
    entry.takenSuperseded += count;
    room -= count;
    return part;
}
