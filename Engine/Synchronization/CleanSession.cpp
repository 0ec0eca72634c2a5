#include "Engine/Synchronization/CleanSession.h"

#include <algorithm>

#include "Engine/Notes/EngineDatabase.h"
#include "Engine/Profile/ProfileDatabase.h"

namespace {

/// Size in bytes below which transactions are merged.
constexpr qint64 SmallSize = Transaction::UsualSize / 16;

}  // namespace

Expected<void> CleanSession::accessStore(BlobStore &store, const EngineFuture &future) {
    switch (m_step) {
        case Step::Starting:
        case Step::Forgetting:
        case Step::ForgettingRemoved:
            return {};
        case Step::Choosing:
            return readProfile([this] { return chooseTransactions(); });
        case Step::Writing:
            return writeTransaction(store, future);
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
        case Step::Forgetting:
            return forgetIncomplete();
        case Step::Writing:
            return recordWrittenTransaction().and_then([this] { return continueWriting(); });
        case Step::Removing:
        case Step::ForgettingRemoved:
            return forgetRemoved();
    }
    return {};
}

Expected<void> CleanSession::forgetIncomplete() {
    m_step = Step::Forgetting;
    Expected<void> forgotten = forgetSome(m_incomplete);
    if (!forgotten || !m_incomplete.isEmpty()) {
        return forgotten;
    }
    return profile().write([this] { return log().markAllSent(); }).and_then([this] {
        return continueWriting();
    });
}

Expected<void> CleanSession::forgetRemoved() {
    m_step = Step::ForgettingRemoved;
    return forgetSome(m_toRemove).map([this] {
        if (m_toRemove.isEmpty()) {
            setDone();
        }
    });
}

Expected<void> CleanSession::chooseTransactions() {
    Expected<Transactions> all = known().all();
    if (!all) {
        return failure(all.error());
    }
    const Expected<QList<OperationId>> operations = log().operationIds();
    if (!operations) {
        return failure(operations.error());
    }
    const Expected<QSet<OperationId>> superseded = log().supersededIds();
    if (!superseded) {
        return failure(superseded.error());
    }
    const QSet<OperationId> current(operations->begin(), operations->end());
    // What was saved since the synchronization supersedes operations that are about to be removed.
    QSet<OperationId> unwritten = current;
    for (const KnownTransactions::Contents &contents : *all) {
        unwritten.subtract(QSet(contents.operations.begin(), contents.operations.end()));
    }
    m_incomplete = takeTransactionsWithOthers(*all, current + *superseded);
    m_toRemove = transactionsToRewrite(*all, current);
    QSet<OperationId> chosen = m_toRemove.isEmpty() ? QSet<OperationId>() : unwritten;
    for (const QString &name : std::as_const(m_toRemove)) {
        const KnownTransactions::Contents contents = all->value(name);
        for (const OperationId &identifier : contents.operations) {
            (current.contains(identifier) ? chosen : m_supersededToWrite).insert(identifier);
        }
        m_supersededToWrite.unite(QSet(contents.superseded.begin(), contents.superseded.end()));
    }
    m_operationsToWrite = chosen.values();
    progress().begin(SessionProgress::Phase::Writing, m_operationsToWrite.size());
    return {};
}

QStringList CleanSession::takeTransactionsWithOthers(Transactions &all,
                                                     const QSet<OperationId> &operations) {
    QStringList taken;
    all.removeIf([&](Transactions::iterator each) {
        const bool isComplete =
            std::all_of(each->operations.begin(), each->operations.end(),
                        [&](const OperationId &id) { return operations.contains(id); });
        if (!isComplete) {
            taken.append(each.key());
        }
        return !isComplete;
    });
    return taken;
}

QStringList CleanSession::transactionsToRewrite(const Transactions &all,
                                                const QSet<OperationId> &current) {
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

Expected<void> CleanSession::continueWriting() {
    const Expected<bool> remains = prepareNextTransaction();
    if (!remains) {
        return failure(remains.error());
    }
    if (*remains) {
        m_step = Step::Writing;
    } else if (m_toRemove.isEmpty() || hasFailedToWriteAll()) {
        setDone();
    } else {
        m_step = Step::Removing;
    }
    return {};
}

Expected<void> CleanSession::removeTransactions(BlobStore &store, const EngineFuture &future) {
    progress().begin(SessionProgress::Phase::Removing, m_toRemove.size());
    for (const QString &name : std::as_const(m_toRemove)) {
        if (Expected<void> removed = store.remove(path(name), future); !removed) {
            return removed;
        }
        progress().advance(1);
    }
    return {};
}
