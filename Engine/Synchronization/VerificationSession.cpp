#include "Engine/Synchronization/VerificationSession.h"

#include "Engine/Foundation/EngineError.h"
#include "Engine/Notes/EngineDatabase.h"
#include "Engine/Notes/TransactionName.h"
#include "Host/SyncStoreLayout.h"
#include "Host/SyncStrings.h"

namespace {

/// Returns the number of elements of `set` that are in none of `others`.
qsizetype countMissing(const QSet<OperationId> &set,
                       std::initializer_list<QSet<OperationId>> others) {
    return std::count_if(set.begin(), set.end(), [&](const OperationId &identifier) {
        return std::none_of(others.begin(), others.end(), [&](const QSet<OperationId> &other) {
            return other.contains(identifier);
        });
    });
}

}  // namespace

Expected<void> VerificationSession::accessStore(BlobStore &store, const EngineFuture &future) {
    if (m_step == Step::Listing) {
        return readDatabaseRecord(store, future).and_then([&] { return list(store, future); });
    }
    return readRecords(store, future);
}

Expected<void> VerificationSession::accessProfile() {
    if (m_step == Step::Reading) {
        setDone();
        return compare();
    }
    if (!database()) {
        setDone();
        addProblem(engineError(
            EngineErrorCode::InvalidDatabase,
            "The database “%1” is not on this computer yet. Synchronize it with the location.",
            subject().databaseName));
        return {};
    }
    rememberDatabase();
    Expected<QHash<QString, KnownTransactions::Contents>> all = known().all();
    if (!all) {
        return failure(all.error());
    }
    m_known = *all;
    m_isUnused = m_missingRecord && m_names.isEmpty() && m_setAsideCount == 0 &&
                 problems().count() == 0 && m_known.isEmpty();
    if (m_isUnused) {
        setDone();
        return {};
    }
    if (m_missingRecord) {
        addProblem(*m_missingRecord);
    }
    m_step = Step::Reading;
    return {};
}

Expected<void> VerificationSession::readDatabaseRecord(BlobStore &store,
                                                       const EngineFuture &future) {
    return problemOfDatabaseRecord(store, future).map([&](const std::optional<Error> &problem) {
        if (problem && isEngineError(*problem, EngineErrorCode::BlobMissing)) {
            m_missingRecord = problem;
        } else if (problem) {
            addProblem(*problem);
        }
    });
}

Expected<void> VerificationSession::list(BlobStore &store, const EngineFuture &future) {
    const Expected<QStringList> names = store.list(folder(), future);
    if (!names) {
        return failure(names.error());
    }
    for (const QString &name : *names) {
        if (TransactionName::isValid(name)) {
            m_names.append(name);
        } else if (name.endsWith(SyncStoreLayout::RecordEnding)) {
            addProblem(foreignFile(store.place(path(name))));
        } else if (TransactionName::isOfDamaged(name)) {
            ++m_setAsideCount;
        }
    }
    return {};
}

Expected<void> VerificationSession::readRecords(BlobStore &store, const EngineFuture &future) {
    const TransactionRecords records(store, subject().databaseUUID, future);
    QStringList missing;
    for (const QString &name : std::as_const(m_names)) {
        const auto written = m_known.constFind(name);
        const Expected<TransactionRecords::Record> record = records.read(
            name, written == m_known.constEnd() ? std::nullopt : std::optional(*written));
        if (record) {
            const auto contents = KnownTransactions::Contents::of(record->transaction, 0);
            m_operations.unite(QSet(contents.operations.begin(), contents.operations.end()));
            m_superseded.unite(QSet(contents.superseded.begin(), contents.superseded.end()));
        } else if (TransactionRecords::isOfOneRecord(record.error())) {
            addProblem(record.error());
        } else if (isEngineError(record.error(), EngineErrorCode::BlobMissing)) {
            missing.append(name);
        } else {
            return failure(record.error());
        }
    }
    return missing.isEmpty() ? Expected<void>() : reportMissing(records, missing);
}

Expected<void> VerificationSession::reportMissing(const TransactionRecords &records,
                                                  const QStringList &missing) {
    const Expected<QSet<QString>> listed = records.listed();
    if (!listed) {
        return failure(listed.error());
    }
    for (const QString &name : missing) {
        if (!listed->contains(name)) {
            return failure(engineError(
                EngineErrorCode::StoreUnreachable,
                localizedSyncString("Another computer changes the location. Try again later.")));
        }
        addProblem(records.notReturned(name));
    }
    return {};
}

Expected<void> VerificationSession::compare() {
    const Expected<QList<OperationId>> operations = log().operationIds();
    if (!operations) {
        return failure(operations.error());
    }
    const Expected<QSet<OperationId>> superseded = log().supersededIds();
    if (!superseded) {
        return failure(superseded.error());
    }
    const QSet<OperationId> current(operations->begin(), operations->end());
    const qsizetype missingHere = countMissing(m_operations, {current, *superseded}) +
                                  countMissing(m_superseded, {*superseded});
    const qsizetype missingThere =
        countMissing(current, {m_operations}) + countMissing(*superseded, {m_superseded});
    if (missingHere > 0) {
        addProblem(engineError(EngineErrorCode::InvalidDatabase,
                               localizedSyncString("Changes at the location that are not on this "
                                                   "computer: %1. Synchronize to get them.")
                                   .arg(missingHere)));
    }
    if (missingThere > 0) {
        addProblem(engineError(EngineErrorCode::InvalidDatabase,
                               localizedSyncString("Changes on this computer that are not at the "
                                                   "location: %1. Synchronize to send them.")
                                   .arg(missingThere)));
    }
    return {};
}
