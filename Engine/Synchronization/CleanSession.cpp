#include "Engine/Synchronization/CleanSession.h"

#include <algorithm>
#include <atomic>
#include <vector>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/ParallelCalls.h"
#include "Engine/Notes/EngineDatabase.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Synchronization/RecordTiers.h"
#include "Engine/Synchronization/TransactionRecords.h"
#include "Engine/Synchronization/UnsentChanges.h"

namespace {

/// Size in bytes below which transactions are merged.
constexpr qint64 SmallSize = Transaction::UsualSize / 16;

}  // namespace

CleanSession::CleanSession(const ProfileDatabase &profile, EngineNoteLibrary &library,
                           Subject subject, Extent extent)
    : StoreSession(profile, library, std::move(subject)), m_extent(extent) {}

Expected<void> CleanSession::accessStore(BlobStore &store, const EngineFuture &future) {
    switch (m_step) {
        case Step::Starting:
        case Step::ForgettingRemoved:
            return {};
        case Step::Choosing:
            return readProfile([this] { return chooseTransactions(); });
        case Step::Writing:
            return writeTransactions(store, future);
        case Step::Removing:
            return removeTransactions(store, future);
    }
    return {};
}

Expected<void> CleanSession::accessProfile() {
    switch (m_step) {
        case Step::Starting:
            rememberDatabase();
            m_step = Step::Choosing;
            return {};
        case Step::Choosing:
            return beginWriting();
        case Step::Writing:
            return recordWrittenTransaction().and_then([this] { return continueWriting(); });
        case Step::Removing:
        case Step::ForgettingRemoved:
            return forgetRemoved();
    }
    return {};
}

bool CleanSession::isRecording() const {
    return m_step == Step::ForgettingRemoved || StoreSession::isRecording();
}

Expected<void> CleanSession::beginWriting() {
    if (m_isComparisonNeeded) {
        database()->setComparisonDue(subject().store);
    }
    if (m_toRemove.isEmpty()) {
        setDone();
        return {};
    }
    if (m_isWritten) {
        m_step = Step::Removing;
        return {};
    }
    return profile().write([this] { return log().markAllSent(); }).and_then([this] {
        return continueWriting();
    });
}

Expected<void> CleanSession::forgetRemoved() {
    m_step = Step::ForgettingRemoved;
    const Contents contents = m_areRewritesUnsound ? Contents::MayBeLost : Contents::AreInOthers;
    return forgetSome(m_toRemove, contents).and_then([this](qsizetype count) -> Expected<void> {
        m_toRemove.remove(0, count);
        if (!m_toRemove.isEmpty()) {
            return {};
        }
        setDone();
        return recordRemoval();
    });
}

Expected<void> CleanSession::recordRemoval() {
    return profile().write([this] { return known().setRewritten({}); }).map([this] {
        if (m_isWritten) {
            // That the other records contain what was removed rests on what was recorded long ago.
            database()->setComparisonDue(subject().store);
        }
    });
}

Expected<void> CleanSession::chooseTransactions() {
    if (m_extent == Extent::Everything) {
        return chooseFromAll();
    }
    const Expected<bool> isUnsent = UnsentChanges::exist(log(), known());
    if (!isUnsent) {
        return failure(isUnsent.error());
    }
    const Expected<QHash<QString, qint64>> sizes = known().sizes();
    if (!sizes) {
        return failure(sizes.error());
    }
    const Expected<bool> isChosen = chooseRewritten(*sizes);
    if (!isChosen || *isChosen || *isUnsent) {
        return isChosen.map([](bool) {});
    }
    return m_extent == Extent::FullTiersAndLarge ? chooseFromAll() : chooseFullTiers(*sizes);
}

Expected<bool> CleanSession::chooseRewritten(const QHash<QString, qint64> &sizes) {
    return known().rewritten().map([&](const KnownTransactions::Rewritten &rewritten) {
        const auto isKnown = [&](const QString &name) { return sizes.contains(name); };
        if (!rewritten.by.isEmpty() &&
            std::all_of(rewritten.by.begin(), rewritten.by.end(), isKnown)) {
            m_toRemove = rewritten.names;
            m_toRemove.removeIf([&](const QString &name) { return !isKnown(name); });
        }
        m_isWritten = !m_toRemove.isEmpty();
        if (m_isWritten) {
            m_rewrittenBy = rewritten.by;
        }
        return m_isWritten;
    });
}

Expected<void> CleanSession::chooseFromAll() {
    Expected<Transactions> all = known().all();
    const Expected<NoteLog::IdentifierSets> present = log().identifierSets();
    if (!all || !present) {
        return failure(all ? present.error() : all.error());
    }
    // What was saved since the synchronization supersedes operations that are about to be removed.
    const Expected<QSet<OperationId>> unwritten = operationsNotIn(*all);
    if (!unwritten) {
        return failure(unwritten.error());
    }
    m_isComparisonNeeded = !removeWithOthers(*all, *present).isEmpty();
    const IdentifierSet &current = present->operations;
    const QStringList names = m_extent == Extent::Everything ? transactionsToRewrite(*all, current)
                                                             : fullTiers(*all, current);
    const QSet chosen(names.begin(), names.end());
    all->removeIf([&](Transactions::iterator each) { return !chosen.contains(each.key()); });
    choose(*all, current, names.isEmpty() ? QSet<OperationId>() : *unwritten);
    return {};
}

Expected<void> CleanSession::chooseFullTiers(QHash<QString, qint64> sizes) {
    // Nothing is unwritten: see chooseTransactions().
    for (;;) {
        Expected<Transactions> full = contents(RecordTiers::full(sizes));
        if (!full) {
            return failure(full.error());
        }
        QList<OperationId> operations;
        for (const KnownTransactions::Contents &each : std::as_const(*full)) {
            operations.append(each.operations);
        }
        const Expected<NoteLog::IdentifierSets> present = log().identifierSetsOf(operations);
        if (!present) {
            return failure(present.error());
        }
        const QStringList others = removeWithOthers(*full, *present);
        if (others.isEmpty()) {
            choose(*full, present->operations, {});
            return {};
        }
        // Without them, the tier may not be full.
        m_isComparisonNeeded = true;
        sizes.removeIf([&](auto each) { return others.contains(each.key()); });
    }
}

void CleanSession::choose(const Transactions &transactions, const IdentifierSet &current,
                          const QSet<OperationId> &unwritten) {
    QSet<OperationId> chosen = unwritten;
    for (const KnownTransactions::Contents &contents : transactions) {
        for (const OperationId &identifier : contents.operations) {
            (current.contains(identifier) ? chosen : m_supersededToWrite).insert(identifier);
        }
        m_supersededToWrite.unite(QSet(contents.superseded.begin(), contents.superseded.end()));
    }
    m_toRemove = transactions.keys();
    m_operationsToWrite = chosen.values();
    progress().begin(SessionProgress::Phase::Writing, m_operationsToWrite.size());
}

Expected<CleanSession::Transactions> CleanSession::contents(const QStringList &names) const {
    Transactions read;
    for (const QString &name : names) {
        const Expected<KnownTransactions::Contents> contents = known().contents(name);
        if (!contents) {
            return failure(contents.error());
        }
        read.insert(name, *contents);
    }
    return read;
}

Expected<QSet<OperationId>> CleanSession::operationsNotIn(const Transactions &all) const {
    IdentifierSet written;
    for (const KnownTransactions::Contents &contents : all) {
        written.add(contents.operations);
    }
    written.sort();
    QSet<OperationId> others;
    return log()
        .visitOperationIds([&](const OperationId &each) {
            if (!written.contains(each)) {
                others.insert(each);
            }
        })
        .map([&] { return others; });
}

QStringList CleanSession::removeWithOthers(Transactions &all,
                                           const NoteLog::IdentifierSets &present) {
    QStringList removed;
    all.removeIf([&](Transactions::iterator each) {
        const bool hasOthers = !std::all_of(
            each->operations.begin(), each->operations.end(), [&](const OperationId &id) {
                return present.operations.contains(id) || present.superseded.contains(id);
            });
        if (hasOthers) {
            removed.append(each.key());
        }
        return hasOthers;
    });
    return removed;
}

QStringList CleanSession::transactionsToRewrite(const Transactions &all,
                                                const IdentifierSet &current) {
    QHash<OperationId, int> count;
    for (const KnownTransactions::Contents &contents : all) {
        for (const OperationId &identifier : contents.operations) {
            ++count[identifier];
        }
    }
    QStringList obsolete;
    QStringList small;
    for (auto each = all.begin(); each != all.end(); ++each) {
        const QList<OperationId> &operations = each->operations;
        if (std::any_of(operations.begin(), operations.end(), [&](const OperationId &identifier) {
                return !current.contains(identifier) || count.value(identifier) > 1;
            })) {
            obsolete.append(each.key());
        } else if (each->size < SmallSize) {
            small.append(each.key());
        }
    }
    // A single small transaction would only be replaced by another one.
    return obsolete.isEmpty() && small.size() == 1 ? QStringList() : obsolete + small;
}

QStringList CleanSession::fullTiers(const Transactions &all, const IdentifierSet &current) {
    QHash<QString, qint64> sizes;
    QStringList large;
    for (auto each = all.begin(); each != all.end(); ++each) {
        sizes.insert(each.key(), each->size);
        RecordTiers::Use use;
        use.add(each->operations, current);
        if (use.isLow(each->size)) {
            large.append(each.key());
        }
    }
    return RecordTiers::full(sizes) + large;
}

Expected<void> CleanSession::continueWriting() {
    const Expected<bool> remains = hasMoreToWrite();
    if (!remains) {
        return failure(remains.error());
    }
    if (*remains) {
        m_step = Step::Writing;
    } else if (m_toRemove.isEmpty() || hasFailedToWriteAll()) {
        setDone();
    } else {
        m_step = Step::Removing;
        return profile().write([this] {
            return known().setRewritten({m_toRemove, writtenTransactions()});
        });
    }
    return {};
}

Expected<QStringList> CleanSession::unsoundRewrites(BlobStore &store, const EngineFuture &future) {
    const TransactionRecords records(store, subject().databaseUUID, future);
    const auto verified =
        records.verifyAll(m_rewrittenBy, QList<KnownTransactions::Contents>(m_rewrittenBy.size()));
    QStringList unsound;
    for (qsizetype i = 0; i < m_rewrittenBy.size(); ++i) {
        const Expected<void> &record = verified[static_cast<size_t>(i)];
        if (record) {
            continue;
        }
        if (!TransactionRecords::isOfOneRecord(record.error()) &&
            !isEngineError(record.error(), EngineErrorCode::BlobMissing)) {
            return failure(record.error());
        }
        // Another computer may have merged it, rightly. Otherwise, the next synchronization reports
        // that it is missing.
        if (!isEngineError(record.error(), EngineErrorCode::BlobMissing)) {
            addProblem(record.error());
        }
        unsound.append(m_rewrittenBy[i]);
    }
    return unsound;
}

Expected<void> CleanSession::removeTransactions(BlobStore &store, const EngineFuture &future) {
    if (m_isWritten) {
        const Expected<QStringList> unsound = unsoundRewrites(store, future);
        if (!unsound) {
            return failure(unsound.error());
        }
        if (!unsound->isEmpty()) {
            // They are only forgotten: the next synchronization reads and repairs them.
            m_toRemove = *unsound;
            m_areRewritesUnsound = true;
            return readProfile([this] { return noteLost(m_toRemove); });
        }
    }
    progress().begin(SessionProgress::Phase::Removing, m_toRemove.size());
    const QStringList &names = m_toRemove;
    std::vector<Expected<void>> results(static_cast<size_t>(names.size()));
    std::atomic_bool hasFailed = false;
    ParallelCalls::run(names.size(), store.operationsAtOnce(), [&](qsizetype number) {
        Expected<void> &result = results[static_cast<size_t>(number)];
        if (!hasFailed) {
            result = store.remove(path(names.at(number)), future);
            progress().advance(1);
        }
        if (!result) {
            hasFailed = true;
        }
    });
    const auto failed = std::find_if(results.begin(), results.end(),
                                     [](const Expected<void> &result) { return !result; });
    if (failed != results.end()) {
        return *failed;
    }
    m_removed = names.size();
    return {};
}
