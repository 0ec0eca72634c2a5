#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <functional>

#include "Engine/Notes/KnownTransactions.h"
#include "Engine/Synchronization/TransactionRecords.h"

/// The transactions that a synchronization has read and not merged yet, in the order in which they
/// were read. A large one is merged in parts, so that no step on the main thread takes long. Must
/// not be used on two threads at a time.
class MergeQueue {
public:
    /// A transaction that was read and not completely merged yet.
    struct Entry {
        QString name;
        Transaction transaction;
        /// Size of its record in bytes.
        qint64 size = 0;
        /// Digest of what the transaction does.
        QByteArray digest = {};
        /// The numbers of parts and of operations that were taken. Also counts, after all
        /// operations, what the transaction supersedes besides them.
        int takenParts = 0;
        qsizetype takenOperations = 0;
        /// What the last of these supersedes, and how much of that was taken.
        QList<OperationId> superseded = {};
        qsizetype takenSuperseded = 0;
    };
    /// A part of a transaction to be merged. An operation and what it supersedes may be in several
    /// parts, since the latter may take long: the operation and the first that it supersedes come
    /// first, together.
    struct Part {
        QString name;
        QList<Operation> operations = {};
        /// The identifiers of the operations, and all that the part supersedes. Has the size of the
        /// record if this is the last part.
        KnownTransactions::Contents contents = {};
        /// From 0 on.
        int number = 0;
        bool isLast = false;
        /// The number of rows that take as long to merge as the part.
        qsizetype rows = 0;
    };
    /// Returns the size in bytes of the texts that the profile keeps as an earlier version if the
    /// operation is superseded.
    using SizeOf = std::function<Expected<qint64>(const OperationId &identifier)>;

    /// Returns the entry of a transaction that was read from the record `name`.
    static Entry entryOf(const QString &name, const TransactionRecords::Record &record);
    void append(const Entry &entry) { m_waiting.append(entry); }
    bool isEmpty() const { return m_waiting.isEmpty(); }
    /// Returns the transactions of which something remains to be taken.
    const QList<Entry> &waiting() const { return m_waiting; }
    /// Removes all of them.
    void clear() { m_waiting.clear(); }

    /// Returns the next parts, which take about as long to merge as `rows` rows of the profile.
    /// After a failure of `sizeOf`, which is returned, the queue must not be used.
    Expected<QList<Part>> takeParts(qsizetype rows, const SizeOf &sizeOf);
    /// Releases the memory of the transactions that were taken completely. May take long, so it
    /// should be called on a worker thread.
    void releaseTaken() { m_taken.clear(); }

private:
    /// Takes the next part of the first transaction, with about `room` rows at most.
    Expected<Part> takePart(qsizetype room, const SizeOf &sizeOf);
    /// Adds the next operation of `entry` to `part`.
    static void takeOperation(Entry &entry, Part &part);

    QList<Entry> m_waiting;
    QList<Entry> m_taken;
};
