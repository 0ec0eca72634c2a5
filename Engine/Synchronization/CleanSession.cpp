#include "Engine/Synchronization/CleanSession.h"

#include "Engine/Notes/EngineDatabase.h"
#include "Engine/Profile/ProfileDatabase.h"

namespace {

/// Bytes; smaller transactions are put together.
constexpr qint64 SmallSize = Transaction::UsualSize / 16;

}  // namespace

std::optional<Error> CleanSession::work(BlobStore &store, const EngineFuture &future) {
    switch (m_step) {
        case Step::Choosing:
            return {};
        case Step::Writing:
            return write(store, future);
        case Step::Removing:
            return removeTransactions(store, future);
    }
    return {};
}

std::optional<Error> CleanSession::settle() {
    switch (m_step) {
        case Step::Choosing:
            choose();
            return {};
        case Step::Writing: {
            if (std::optional<Error> error = rememberWritten()) {
                return error;
            }
            goOnWriting();
            return {};
        }
        case Step::Removing:
            return settleRemoving();
    }
    return {};
}

void CleanSession::choose() {
    const QHash<QString, KnownTransactions::Contents> all = known().all();
    const QList<OperationId> current = log().operationIds();
    const QSet<OperationId> needed(current.begin(), current.end());
    QSet<OperationId> chosen;
    m_toRemove = wasteful(all, needed);
    for (const QString &name : std::as_const(m_toRemove)) {
        const KnownTransactions::Contents contents = all.value(name);
        for (const OperationId &identifier : contents.operations) {
            (needed.contains(identifier) ? chosen : m_supersededToWrite).insert(identifier);
        }
        m_supersededToWrite.unite(QSet(contents.superseded.begin(), contents.superseded.end()));
    }
    m_operationsToWrite = chosen.values();
    goOnWriting();
}

QStringList CleanSession::wasteful(const QHash<QString, KnownTransactions::Contents> &all,
                                   const QSet<OperationId> &needed) const {
    QHash<OperationId, int> count;
    for (const KnownTransactions::Contents &contents : all) {
        for (const OperationId &identifier : contents.operations) {
            ++count[identifier];
        }
    }
    QStringList wasteful;
    QStringList small;
    for (auto each = all.begin(); each != all.end(); ++each) {
        const QList<OperationId> &operations = each->operations;
        if (std::any_of(operations.begin(), operations.end(), [&](const OperationId &identifier) {
                return !needed.contains(identifier) || count.value(identifier) > 1;
            })) {
            wasteful.append(each.key());
        } else if (each->size < SmallSize) {
            small.append(each.key());
        }
    }
    return wasteful.size() + small.size() > 1 || !wasteful.isEmpty() ? wasteful + small
                                                                     : QStringList();
}

void CleanSession::goOnWriting() {
    if (takeNext()) {
        m_step = Step::Writing;
    } else if (m_toRemove.isEmpty() || hasFailedToWriteAll()) {
        setDone();
    } else {
        m_step = Step::Removing;
    }
}

std::optional<Error> CleanSession::removeTransactions(BlobStore &store,
                                                      const EngineFuture &future) {
    for (const QString &name : std::as_const(m_toRemove)) {
        if (const Expected<void> removed = store.remove(path(name), future); !removed) {
            return removed.error();
        }
    }
    return {};
}

std::optional<Error> CleanSession::settleRemoving() {
    setDone();
    return profile().write([this]() -> std::optional<Error> {
        for (const QString &name : std::as_const(m_toRemove)) {
            if (std::optional<Error> error = known().remove(name)) {
                return error;
            }
        }
        return {};
    });
}
