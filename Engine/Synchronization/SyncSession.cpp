#include "Engine/Synchronization/SyncSession.h"

#include "Engine/Foundation/EngineError.h"
#include "Engine/Notes/DatabaseRecord.h"
#include "Engine/Notes/EngineNoteLibrary.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Host/InboxUUID.h"

namespace {

/// Number of bytes after which the records that were read are merged before more are read.
constexpr qsizetype ReadAtOnce = 4LL << 20;

bool isRecordName(const QString &name) {
    return name.endsWith(QStringLiteral(".json"));
}

bool isTransactionName(const QString &name) {
    return isRecordName(name) && Operation::isUUID(name.chopped(5));
}

}  // namespace

Expected<void> SyncSession::accessStore(BlobStore &store, const EngineFuture &future) {
    switch (m_step) {
        case Step::Listing:
            return readDatabaseRecord(store, future).and_then([&] { return list(store, future); });
        case Step::Reading:
            return readTransactions(store, future);
        case Step::Writing:
            return writeTransaction(store, future);
        case Step::Naming:
            return writeDatabaseRecord(store, future);
    }
    return {};
}

Expected<void> SyncSession::accessProfile() {
    switch (m_step) {
        case Step::Listing:
            return compareListing();
        case Step::Reading:
            return continueReading();
        case Step::Writing:
            return recordWrittenTransaction().and_then([this] { return continueWriting(); });
        case Step::Naming:
            setDone();
            return {};
    }
    return {};
}

Expected<void> SyncSession::readDatabaseRecord(BlobStore &store, const EngineFuture &future) {
    const QString &UUID = subject().databaseUUID;
    if (UUID != InboxUUID && !Operation::isUUID(UUID.toLower())) {
        return failure(engineError(EngineErrorCode::InvalidDatabase,
                                   "“%1” is not a valid identifier of a database.", UUID));
    }
    const QString file = DatabaseRecord::path(UUID);
    const Expected<QByteArray> contents = store.read(file, BlobStore::RecordLimit, future);
    if (!contents) {
        if (isEngineError(contents.error(), EngineErrorCode::BlobMissing)) {
            return {};
        }
        if (isEngineError(contents.error(), EngineErrorCode::BlobRefused)) {
            m_record = Record::Untouchable;
            addProblem(contents.error());
            return {};
        }
        return failure(contents.error());
    }
    const Expected<QString> name = DatabaseRecord::name(*contents, UUID, store.place(file));
    if (!name) {
        const bool isUnknown = isEngineError(name.error(), EngineErrorCode::UnknownVersion);
        m_record = isUnknown ? Record::Untouchable : Record::Damaged;
        addProblem(name.error());
        return {};
    }
    m_record = Record::Sound;
    m_recordedName = *name;
    return {};
}

Expected<void> SyncSession::list(BlobStore &store, const EngineFuture &future) {
    const Expected<QStringList> names = store.list(folder(), future);
    if (!names) {
        return failure(names.error());
    }
    for (const QString &name : *names) {
        if (isTransactionName(name)) {
            m_unread.append(name);
        } else if (isRecordName(name)) {
            addProblem(engineError(EngineErrorCode::DamagedRecord, "The record “%1” is damaged.",
                                   store.place(path(name))));
        }
    }
    return {};
}

Expected<void> SyncSession::readTransactions(BlobStore &store, const EngineFuture &future) {
    m_readSize = 0;
    while (!m_unread.isEmpty() && m_readSize < ReadAtOnce) {
        if (Expected<void> read = readTransaction(store, m_unread.takeFirst(), future); !read) {
            return read;
        }
    }
    return {};
}

Expected<void> SyncSession::readTransaction(BlobStore &store, const QString &name,
                                            const EngineFuture &future) {
    const Expected<QByteArray> record = store.read(path(name), Transaction::SizeLimit, future);
    if (!record) {
        if (isEngineError(record.error(), EngineErrorCode::BlobRefused)) {
            addProblem(record.error());
        } else if (!isEngineError(record.error(), EngineErrorCode::BlobMissing)) {
            return failure(record.error());
        }
        return {};
    }
    m_readSize += record->size();
    const Expected<Transaction> transaction =
        Transaction::decoded(*record, store.place(path(name)));
    if (transaction) {
        m_read.append({name, *transaction, record->size()});
    } else {
        addProblem(transaction.error());
    }
    return {};
}

Expected<void> SyncSession::writeDatabaseRecord(BlobStore &store,
                                                const EngineFuture &future) const {
    const QString file = DatabaseRecord::path(subject().databaseUUID);
    if (m_record != Record::Absent) {
        if (Expected<void> removed = store.remove(file, future); !removed) {
            return removed;
        }
    }
    return store
        .writeIfAbsent(file, DatabaseRecord::encoded(subject().databaseUUID, m_nameToRecord),
                       future)
        .map([](BlobStore::Written) {});
}

Expected<void> SyncSession::compareListing() {
    if (Expected<void> imported = importDatabase(); !imported) {
        return imported;
    }
    const Expected<QHash<QString, KnownTransactions::Contents>> all = known().all();
    if (!all) {
        return failure(all.error());
    }
    const QSet<QString> listed(m_unread.begin(), m_unread.end());
    QStringList gone;
    for (auto each = all->keyBegin(); each != all->keyEnd(); ++each) {
        if (!listed.contains(*each)) {
            gone.append(*each);
        }
    }
    m_unread.removeIf([&](const QString &name) { return all->contains(name); });
    m_step = Step::Reading;
    return forgetTransactions(gone).and_then([this] { return continueReading(); });
}

Expected<void> SyncSession::importDatabase() {
    if (database()) {
        return {};
    }
    if (m_record == Record::Absent && m_unread.isEmpty()) {
        return failure(
            engineError(EngineErrorCode::InvalidDatabase,
                        "The database “%1” exists neither on this computer nor at the location.",
                        subject().databaseName));
    }
    const QString name = m_recordedName.isEmpty() ? subject().databaseName : m_recordedName;
    return library().importDatabase(subject().databaseUUID, name);
}

Expected<void> SyncSession::continueReading() {
    return mergeTransactions().and_then(
        [this] { return m_unread.isEmpty() ? prepareWriting() : Expected<void>(); });
}

Expected<void> SyncSession::mergeTransactions() {
    if (m_read.isEmpty()) {
        return {};
    }
    const QList<Read> read = std::exchange(m_read, {});
    QList<Transaction> transactions;
    for (const Read &each : read) {
        transactions.append(each.transaction);
    }
    return library().merge(database(), transactions, [&]() -> Expected<void> {
        for (const Read &each : read) {
            if (Expected<void> added = known().add(each.name, each.transaction, each.size);
                !added) {
                return added;
            }
        }
        return {};
    });
}

Expected<void> SyncSession::prepareWriting() {
    return collectUnwritten()
        .and_then([this] {
            return m_operationsToWrite.isEmpty()
                       ? Expected<void>()
                       : profile().write([this] { return log().markAllSent(); });
        })
        .and_then([this] { return continueWriting(); });
}

Expected<void> SyncSession::collectUnwritten() {
    const Expected<QHash<QString, KnownTransactions::Contents>> all = known().all();
    if (!all) {
        return failure(all.error());
    }
    const Expected<QSet<OperationId>> superseded = log().supersededIds();
    if (!superseded) {
        return failure(superseded.error());
    }
    const Expected<QList<OperationId>> operations = log().operationIds();
    if (!operations) {
        return failure(operations.error());
    }
    QSet<OperationId> written;
    m_supersededToWrite = *superseded;
    for (const KnownTransactions::Contents &contents : *all) {
        written.unite(QSet(contents.operations.begin(), contents.operations.end()));
        for (const OperationId &identifier : contents.superseded) {
            m_supersededToWrite.remove(identifier);
        }
    }
    m_operationsToWrite = *operations;
    m_operationsToWrite.removeIf(
        [&](const OperationId &identifier) { return written.contains(identifier); });
    return {};
}

Expected<void> SyncSession::continueWriting() {
    const Expected<bool> remains = prepareNextTransaction();
    if (!remains) {
        return failure(remains.error());
    }
    if (*remains) {
        m_step = Step::Writing;
        return {};
    }
    m_nameToRecord = database()->name();
    const bool isOutdated =
        m_record == Record::Sound && m_nameToRecord != m_recordedName && !database()->isInbox();
    if (isOutdated || m_record == Record::Absent || m_record == Record::Damaged) {
        m_step = Step::Naming;
        return {};
    }
    setDone();
    return {};
}
