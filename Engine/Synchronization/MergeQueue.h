#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <optional>

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
        QByteArray digest;
        /// The numbers of parts, of operations and of superseded identifiers that were taken.
        int takenParts = 0;
        qsizetype takenOperations = 0;
        qsizetype takenSuperseded = 0;
    };
    /// A part of a transaction to be merged.
    struct Part {
        QString name;
        Transaction transaction;
        /// From 0 on.
        int number = 0;
        /// The number of rows that take as long to merge as the part.
        qsizetype rows = 0;
        /// The size of the record in bytes if this is the last part.
        std::optional<qint64> size;
    };

    /// Returns the entry of a transaction that was read from the record `name`.
    static Entry entryOf(const QString &name, const TransactionRecords::Record &record);
    void append(const Entry &entry) { m_waiting.append(entry); }
    bool isEmpty() const { return m_waiting.isEmpty(); }
    /// Returns the transactions of which something remains to be taken.
    const QList<Entry> &waiting() const { return m_waiting; }
    /// Removes all of them.
    void clear() { m_waiting.clear(); }

    /// Returns the next parts, which take about as long to merge as `rows` rows of the profile.
    QList<Part> takeParts(qsizetype rows);
    /// Releases the memory of the transactions that were taken completely. May take long, so it
    /// should be called on a worker thread.
    void releaseTaken() { m_taken.clear(); }

private:
    /// Takes the next part of the first transaction, with at most `room` rows.
    Part takePart(qsizetype room);

    QList<Entry> m_waiting;
    QList<Entry> m_taken;
};
