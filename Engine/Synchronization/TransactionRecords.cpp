#include "Engine/Synchronization/TransactionRecords.h"

#include <atomic>
#include <utility>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/ParallelCalls.h"
#include "Engine/Foundation/Sha256.h"
#include "Engine/Notes/TransactionName.h"

namespace {

/// The number of copies of one damaged record that may themselves be damaged.
constexpr int MostCopies = 4;

}  // namespace

TransactionRecords::TransactionRecords(BlobStore &store, const QString &databaseUUID,
                                       const EngineFuture &future)
    : m_store(store), m_folder(TransactionName::folder(databaseUUID)), m_future(future) {}

bool TransactionRecords::isOfOneRecord(const Error &error) {
    return isEngineError(error, EngineErrorCode::DamagedRecord) ||
           isEngineError(error, EngineErrorCode::UnknownVersion) ||
           isEngineError(error, EngineErrorCode::BlobRefused);
}

bool TransactionRecords::isOfOneOrMissing(const Error &error) {
    return isOfOneRecord(error) || isEngineError(error, EngineErrorCode::BlobMissing);
}

Expected<TransactionRecords::Record> TransactionRecords::read(
    const QString &name, const std::optional<Contents> &written) const {
    return readWithin(Transaction::SizeLimit, name, written);
}

Expected<TransactionRecords::Record> TransactionRecords::readWithin(
    qint64 limit, const QString &name, const std::optional<Contents> &written) const {
    return bytes(name, limit).and_then([&](QByteArray &&record) {
        return verified(std::move(record), name, written);
    });
}

Expected<void> TransactionRecords::verify(const QString &name, const Contents &written) const {
    return verifyWithin(Transaction::SizeLimit, name, written);
}

Expected<void> TransactionRecords::verifyWithin(qint64 limit, const QString &name,
                                                const Contents &written) const {
    return bytes(name, limit).and_then([&](QByteArray &&record) -> Expected<void> {
        if (TransactionName::hasDigest(name) && TransactionName::matches(name, record)) {
            return {};
        }
        return verified(std::move(record), name, written).map([](const Record &) {});
    });
}

template <class Result>
bool TransactionRecords::mayBeLarge(const Result &result) const {
    return !result && isEngineError(result.error(), EngineErrorCode::BlobRefused) &&
           usualLimit() < Transaction::SizeLimit;
}

qint64 TransactionRecords::usualLimit() const {
    return m_store.operationsAtOnce() == 1 ? Transaction::SizeLimit : UsualLimit;
}

std::vector<std::optional<Expected<TransactionRecords::Record>>> TransactionRecords::readSome(
    const QStringList &names, qint64 enough, const std::function<void()> &didRead) const {
    std::vector<std::optional<Expected<Record>>> results(static_cast<size_t>(names.size()));
    std::atomic<qint64> size = 0;
    std::atomic_bool hasFailed = false;
    ParallelCalls::run(names.size(), m_store.operationsAtOnce(), [&](qsizetype number) {
        if (size >= enough || hasFailed) {
            return;
        }
        Expected<Record> record = readWithin(usualLimit(), names.at(number), {});
        const bool isLeft = mayBeLarge(record);
        size += record ? record->size : qint64(isLeft ? UsualLimit : 0);
        hasFailed = hasFailed || (!record && !isOfOneOrMissing(record.error()));
        results[static_cast<size_t>(number)] = std::move(record);
        if (!isLeft) {
            didRead();
        }
    });
    bool isEnough = false;
    for (qsizetype number = 0; number < names.size(); ++number) {
        std::optional<Expected<Record>> &result = results[static_cast<size_t>(number)];
        if (!result || !mayBeLarge(*result)) {
            continue;
        }
        if (isEnough) {
            result.reset();
            continue;
        }
        result = readWithin(Transaction::SizeLimit, names.at(number), {});
        didRead();
        // Another one would take as much memory again.
        isEnough = result->has_value();
    }
    return results;
}

std::vector<Expected<void>> TransactionRecords::verifyAll(const QStringList &names,
                                                          const QList<Contents> &written) const {
    std::vector<Expected<void>> results(static_cast<size_t>(names.size()));
    const auto verify = [&](qsizetype number, qint64 limit) {
        return verifyWithin(limit, names.at(number), written.at(number));
    };
    ParallelCalls::run(names.size(), m_store.operationsAtOnce(), [&](qsizetype number) {
        results[static_cast<size_t>(number)] = verify(number, usualLimit());
    });
    for (qsizetype number = 0; number < names.size(); ++number) {
        Expected<void> &result = results[static_cast<size_t>(number)];
        if (mayBeLarge(result)) {
            result = verify(number, Transaction::SizeLimit);
        }
    }
    return results;
}

Expected<TransactionRecords::Copy> TransactionRecords::setAside(
    const QString &name, const std::optional<Contents> &written) const {
    QByteArray digest;
    const auto checkSame = [&](const QByteArray &record) -> Expected<void> {
        const Expected<Record> read = verified(record, name, written);
        const bool isDamaged = !read && isEngineError(read.error(), EngineErrorCode::DamagedRecord);
        const QByteArray digestNow = sha256(record);
        digest = digest.isEmpty() ? digestNow : digest;
        if (isDamaged && digestNow == digest) {
            return {};
        }
        return failure(engineError(EngineErrorCode::DamagedRecord,
                                   "The record “%1” was read differently each time, so it was left "
                                   "as it is. Check the disk or the server.",
                                   place(name)));
    };
    return copyOf(name, checkSame).and_then([&](const Copy &copy) {
        // Another computer may be about to complete the record.
        return bytes(name)
            .and_then(checkSame)
            .and_then([&] { return m_store.remove(m_folder + u'/' + name, m_future); })
            .map([&] { return copy; });
    });
}

Expected<TransactionRecords::Copy> TransactionRecords::copyOf(const QString &name,
                                                              const Check &check) const {
    for (int attempt = 0; attempt < MostCopies; ++attempt) {
        QString copy;
        QByteArray digest;
        qint64 size = 0;
        const auto write = [&](const QByteArray &damaged) {
            copy = TransactionName::ofDamaged(name, damaged, attempt);
            digest = sha256(damaged);
            size = damaged.size();
            return check(damaged).and_then(
                [&] { return m_store.writeIfAbsent(m_folder + u'/' + copy, damaged, m_future); });
        };
        // The record is released before the copy is read, since each may be as large as one can be.
        if (const auto written = bytes(name).and_then(write); !written) {
            return failure(written.error());
        }
        const Expected<QByteArray> stored = bytes(copy);
        if (!stored) {
            return failure(stored.error());
        }
        if (sha256(*stored) == digest) {
            return Copy{place(copy), size};
        }
    }
    return failure(
        engineError(EngineErrorCode::DamagedRecord,
                    "The damaged record “%1” cannot be copied, because the location does "
                    "not store what is written. Check the disk or the server.",
                    place(name)));
}

Expected<QSet<QString>> TransactionRecords::listed() const {
    return m_store.list(m_folder, m_future).map([](const QStringList &names) {
        return QSet(names.begin(), names.end());
    });
}

Error TransactionRecords::notReturned(const QString &name) const {
    return m_store.notReturned(m_folder + u'/' + name);
}

QString TransactionRecords::place(const QString &name) const {
    return m_store.place(m_folder + u'/' + name);
}

Expected<QByteArray> TransactionRecords::bytes(const QString &name, qint64 limit) const {
    return m_store.read(m_folder + u'/' + name, limit, m_future);
}

Expected<TransactionRecords::Record> TransactionRecords::verified(
    QByteArray record, const QString &name, const std::optional<Contents> &written) const {
    const qint64 size = record.size();
    const bool hasDigest = TransactionName::hasDigest(name);
    const bool isOfName = !hasDigest || TransactionName::matches(name, record);
    // Before the name is judged, since a newer version of the program may derive names in another
    // way. A large record is released as soon as it is parsed.
    if (!m_store.parsing().take(m_future)) {
        return failure(operationCancelled());
    }
    const Expected<Transaction> transaction = Transaction::decoded(std::move(record), place(name));
    m_store.parsing().release();
    if (!transaction) {
        return failure(transaction.error());
    }
    const bool isAsWritten = hasDigest || !written || Contents::of(*transaction, size) == *written;
    if (!isOfName || !isAsWritten) {
        return failure(damagedRecord(place(name)));
    }
    return Record{*transaction, size};
}
