#pragma once

#include <QtCore/QSet>
#include <functional>
#include <optional>
#include <vector>

#include "Engine/Notes/KnownTransactions.h"
#include "Engine/Stores/BlobStore.h"

/// The transaction records of one database in one store. All functions block and must be called on
/// a worker thread.
class TransactionRecords {
public:
    using Contents = KnownTransactions::Contents;

    struct Record {
        Transaction transaction;
        /// In bytes.
        qint64 size = 0;
    };

    /// The copy of a damaged record.
    struct Copy {
        /// The location as text for the user.
        QString place;
        /// In bytes.
        qint64 size = 0;
    };

    /// `store` and `future` are not owned and must outlive this object. Operations return an error
    /// of the code Cancelled soon after `future` is cancelled.
    TransactionRecords(BlobStore &store, const QString &databaseUUID, const EngineFuture &future);

    /// Returns whether `error` concerns a single record, and not that the store cannot be read.
    static bool isOfOneRecord(const Error &error);
    /// Returns the same, also for a record that is missing.
    static bool isOfOneOrMissing(const Error &error);

    /// Reads the record `name`, which is verified against its name and, if it is known what was
    /// written, against `written`. Returns an error of the code DamagedRecord if the record is not
    /// what was written, UnknownVersion if a newer program wrote it, and otherwise that of
    /// BlobStore::read.
    Expected<Record> read(const QString &name, const std::optional<Contents> &written = {}) const;
    /// Reads records from `names` like read(), several at a time if the store is faster then, until
    /// they have more than `enough` bytes together or the store fails. Returns the results in the
    /// same order, empty for those that were not read. At most one record of more than UsualLimit
    /// bytes is read if the store takes several at a time, so that they do not take memory at the
    /// same time. Calls `didRead`, which must be thread-safe, after each record.
    std::vector<std::optional<Expected<Record>>> readSome(
        const QStringList &names, qint64 enough, const std::function<void()> &didRead) const;
    /// Reads the record `name`, of which `written` is known, and returns the same errors as read().
    /// Does not decode it if its name contains a digest; `written` is not used then.
    Expected<void> verify(const QString &name, const Contents &written) const;
    /// Verifies the records `names`, of which `written` is known in the same order, like verify(),
    /// several at a time as readSome(). Reads all, whether the store fails or not.
    std::vector<Expected<void>> verifyAll(const QStringList &names,
                                          const QList<Contents> &written) const;
    /// Moves the record `name`, of which `read` has returned that it is damaged, to a name that no
    /// reader takes for a record. Copies it first and verifies the copy. Fails without an effect if
    /// the store now returns another record; fails with the code BlobMissing if there is none any
    /// more.
    Expected<Copy> setAside(const QString &name, const std::optional<Contents> &written = {}) const;

    /// Returns all names that the store lists now. A record that was missing when it was read, and
    /// is still among them, was not removed by another computer.
    Expected<QSet<QString>> listed() const;
    /// See BlobStore::notReturned.
    Error notReturned(const QString &name) const;

    /// Returns the location of the record as text for the user.
    QString place(const QString &name) const;

private:
    /// Receives the contents of a record.
    using Check = std::function<Expected<void>(const QByteArray &record)>;

    static constexpr qint64 UsualLimit = 4 * Transaction::UsualSize;

    Expected<QByteArray> bytes(const QString &name, qint64 limit = Transaction::SizeLimit) const;
    /// The limit with which several records can be read at a time.
    qint64 usualLimit() const;
    /// Returns whether `result`, that of reading with the usual limit, is that of a larger record.
    template <class Result>
    bool mayBeLarge(const Result &result) const;
    Expected<Record> readWithin(qint64 limit, const QString &name,
                                const std::optional<Contents> &written) const;
    Expected<void> verifyWithin(qint64 limit, const QString &name, const Contents &written) const;
    /// Copies the damaged record `name`, for which `check` must succeed, and reads the copy back,
    /// which may have existed. A copy that was only written in part is left.
    Expected<Copy> copyOf(const QString &name, const Check &check) const;
    Expected<Record> verified(QByteArray record, const QString &name,
                              const std::optional<Contents> &written) const;

    BlobStore &m_store;
    const QString m_folder;
    const EngineFuture &m_future;
};
