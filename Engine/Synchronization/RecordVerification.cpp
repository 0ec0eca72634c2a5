#include "Engine/Synchronization/RecordVerification.h"

#include <QtCore/QRandomGenerator>
#include <algorithm>
#include <utility>

#include "Engine/Notes/TransactionName.h"

Expected<void> RecordVerification::choose(const KnownTransactions &known) {
    const Expected<QHash<QString, qint64>> sizes = known.sizes();
    if (!sizes) {
        return failure(sizes.error());
    }
    const Expected<QString> last = known.lastVerified();
    if (!last) {
        return failure(last.error());
    }
    m_last = *last;
    QStringList names = sizes->keys();
    names.sort();
    std::rotate(names.begin(), std::upper_bound(names.begin(), names.end(), *last), names.end());
    qint64 size = 0;
    for (const QString &name : std::as_const(names)) {
        size += sizes->value(name);
        if (m_extent == Extent::Some && isEnough(size)) {
            break;
        }
        const Expected<KnownTransactions::Contents> contents =
            TransactionName::hasDigest(name) ? KnownTransactions::Contents() : known.contents(name);
        if (!contents) {
            return failure(contents.error());
        }
        m_chosen.append({name, *contents});
    }
    return {};
}

bool RecordVerification::isEnough(qint64 size) const {
    return m_chosen.size() == MostRecords ||
           (m_chosen.isEmpty() ? !isTurnOf(size) : size > MostBytes);
}

bool RecordVerification::isTurnOf(qint64 size) {
    return QRandomGenerator::global()->generateDouble() * static_cast<double>(size) <
           static_cast<double>(MostBytes);
}

void RecordVerification::verify(const TransactionRecords &records, int count,
                                const EngineFuture &future) {
    bool isReadable = true;
    while (!m_chosen.isEmpty() && isReadable && !future.isCancelled()) {
        const QList<DamagedRecords::Record> some =
            m_chosen.first(qMin(m_chosen.size(), qsizetype(count)));
        m_chosen.remove(0, some.size());
        QStringList names;
        QList<KnownTransactions::Contents> written;
        for (const DamagedRecords::Record &record : some) {
            names.append(record.name);
            written.append(record.written.value_or(KnownTransactions::Contents()));
        }
        const auto results = records.verifyAll(names, written);
        for (qsizetype i = 0; i < some.size() && isReadable; ++i) {
            const Expected<void> &result = results[static_cast<size_t>(i)];
            isReadable = result || TransactionRecords::isOfOneOrMissing(result.error());
            m_results.append({some[i], result});
        }
    }
}

void RecordVerification::dropResults(const QHash<QString, KnownTransactions::Contents> &readAgain,
                                     const QSet<QString> &listed) {
    m_results.removeIf([&](const Result &result) {
        const QString &name = result.record.name;
        return readAgain.contains(name) ||
               (!listed.contains(name) &&
                (result.read || TransactionRecords::isOfOneOrMissing(result.read.error())));
    });
}

void RecordVerification::takeResults(DamagedRecords &damaged) {
    for (const auto &[record, read] : std::exchange(m_results, {})) {
        m_last = record.name;
        if (!read) {
            damaged.add(record, read.error());
        }
    }
}
