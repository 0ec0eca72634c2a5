#pragma once

#include "Engine/Synchronization/Problems.h"
#include "Engine/Synchronization/TransactionRecords.h"

/// The transaction records of a store that a synchronization found to be damaged or missing, and
/// their repair: damaged ones are moved to names that no reader takes for records, and those whose
/// contents the profile has known are forgotten, so that they are written again. Must not be used
/// on two threads at a time.
class DamagedRecords {
public:
    /// A record in the store.
    struct Record {
        QString name;
        /// Its contents as far as the profile has known the record; otherwise empty.
        std::optional<KnownTransactions::Contents> written;
    };
    /// The maximum number of records that are moved, and the number of bytes after which none is;
    /// the others are only reported.
    static constexpr qsizetype MostSetAside = 100;
    static constexpr qint64 BytesToSetAside = 16LL << 20;

    /// `problems` receives what the user must know. It is not owned and must outlive this object.
    explicit DamagedRecords(Problems &problems) : m_problems(problems) {}

    /// Adds `record`, which could not be read because of `error`.
    void add(const Record &record, const Error &error);
    /// Returns whether none were added that must be handled.
    bool isEmpty() const { return m_damaged.isEmpty() && m_missing.isEmpty() && m_lost.isEmpty(); }
    /// Moves the damaged records. Reports those that are missing although the store lists them;
    /// the others were removed by another computer. Blocks; must be called on a worker thread.
    /// Returns an error of the code Cancelled soon after `future` is cancelled, or that of listing
    /// the store.
    Expected<void> setAside(const TransactionRecords &records, const EngineFuture &future);
    /// Returns the names of the known records whose contents must be written again.
    const QStringList &lost() const { return m_lost; }

private:
    /// Returns the size of the record, or 0 if it could not be moved.
    qint64 move(const TransactionRecords &records, const Record &damaged);
    Expected<void> reportMissing(const TransactionRecords &records);

    Problems &m_problems;
    QList<Record> m_damaged;
    QList<Record> m_missing;
    QStringList m_lost;
};
