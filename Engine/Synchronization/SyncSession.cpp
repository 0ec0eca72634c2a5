#include "Engine/Synchronization/SyncSession.h"

#include "Engine/Foundation/EngineError.h"
#include "Engine/Notes/DatabaseRecord.h"
#include "Engine/Notes/EngineNoteLibrary.h"
#include "Engine/Notes/InboxUUID.h"
#include "Engine/Profile/ProfileDatabase.h"

namespace {

/// Bytes after which what was read is taken over before more is read.
constexpr qsizetype ReadAtOnce = 4LL << 20;

bool isTransactionName(const QString &name) {
    return name.endsWith(QStringLiteral(".json")) && Operation::isUUID(name.chopped(5));
}

}  // namespace

std::optional<Error> SyncSession::work(BlobStore &store, const EngineFuture &future) {
    switch (m_step) {
        case Step::Listing:
            return list(store, future);
        case Step::Reading:
            return readSome(store, future);
        case Step::Writing:
            return write(store, future);
        case Step::Recording:
            return writeRecord(store, future);
    }
    return {};
}

std::optional<Error> SyncSession::settle() {
    switch (m_step) {
        case Step::Listing:
            return settleListing();
        case Step::Reading:
            return settleReading();
        case Step::Writing: {
            if (std::optional<Error> error = rememberWritten()) {
                return error;
            }
            goOnWriting();
            return {};
        }
        case Step::Recording:
            setDone();
            return {};
    }
    return {};
}

std::optional<Error> SyncSession::list(BlobStore &store, const EngineFuture &future) {
    const QString &UUID = subject().databaseUUID;
    if (UUID != InboxUUID && !Operation::isUUID(UUID.toLower())) {
        return engineError(EngineErrorCode::InvalidDatabase,
                           "“%1” is not a valid identifier of a database.", UUID);
    }
    if (std::optional<Error> error = readRecord(store, future)) {
        return error;
    }
    const Expected<QStringList> names = store.list(path({}), future);
    if (!names) {
        return names.error();
    }
    for (const QString &name : *names) {
        if (isTransactionName(name)) {
            m_unread.append(name);
        } else if (name.endsWith(QStringLiteral(".json"))) {
            addProblem(engineError(EngineErrorCode::DamagedRecord, "The record “%1” is damaged.",
                                   store.place(path(name))));
        }
    }
    return {};
}

std::optional<Error> SyncSession::readRecord(BlobStore &store, const EngineFuture &future) {
    const QString file = DatabaseRecord::path(subject().databaseUUID);
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
        return contents.error();
    }
    const Result<QString> name =
        DatabaseRecord::name(*contents, subject().databaseUUID, store.place(file));
    if (const Error *error = errorOf(name)) {
        const bool isUnknown = isEngineError(*error, EngineErrorCode::UnknownVersion);
        m_record = isUnknown ? Record::Untouchable : Record::Damaged;
        addProblem(*error);
        return {};
    }
    m_record = Record::Sound;
    m_recordedName = std::get<QString>(name);
    return {};
}

std::optional<Error> SyncSession::readSome(BlobStore &store, const EngineFuture &future) {
    qsizetype size = 0;
    while (!m_unread.isEmpty() && size < ReadAtOnce) {
        const QString name = m_unread.takeFirst();
        const Expected<QByteArray> record = store.read(path(name), Transaction::SizeLimit, future);
        if (!record) {
            if (isEngineError(record.error(), EngineErrorCode::BlobRefused)) {
                addProblem(record.error());
            } else if (!isEngineError(record.error(), EngineErrorCode::BlobMissing)) {
                return record.error();
            }
            continue;
        }
        const qint64 recordSize = record->size();
        size += recordSize;
        const Result<Transaction> transaction =
            Transaction::decoded(*record, store.place(path(name)));
        if (const Error *error = errorOf(transaction)) {
            addProblem(*error);
        } else {
            m_read.append({name, std::get<Transaction>(transaction), recordSize});
        }
    }
    return {};
}

std::optional<Error> SyncSession::writeRecord(BlobStore &store, const EngineFuture &future) const {
    const QString file = DatabaseRecord::path(subject().databaseUUID);
    if (m_record != Record::Absent) {
        if (const Expected<void> removed = store.remove(file, future); !removed) {
            return removed.error();
        }
    }
    const Expected<BlobStore::Written> written = store.writeIfAbsent(
        file, DatabaseRecord::encoded(subject().databaseUUID, m_nameToRecord), future);
    return written ? std::nullopt : std::optional(written.error());
}

std::optional<Error> SyncSession::settleListing() {
    if (std::optional<Error> error = importDatabase()) {
        return error;
    }
    const QSet<QString> listed(m_unread.begin(), m_unread.end());
    QStringList gone;
    const QHash<QString, KnownTransactions::Contents> all = known().all();
    for (auto each = all.keyBegin(); each != all.keyEnd(); ++each) {
        if (!listed.contains(*each)) {
            gone.append(*each);
        }
    }
    m_unread.removeIf([&](const QString &name) { return all.contains(name); });
    m_step = Step::Reading;
    if (!gone.isEmpty()) {
        if (std::optional<Error> error = profile().write([&]() -> std::optional<Error> {
                for (const QString &name : std::as_const(gone)) {
                    if (std::optional<Error> removeError = known().remove(name)) {
                        return removeError;
                    }
                }
                return {};
            })) {
            return error;
        }
    }
    return m_unread.isEmpty() ? prepareWriting() : std::nullopt;
}

std::optional<Error> SyncSession::importDatabase() {
    if (database()) {
        return {};
    }
    if (m_record == Record::Absent && m_unread.isEmpty()) {
        return engineError(EngineErrorCode::InvalidDatabase,
                           "The database “%1” exists neither on this computer nor at the location.",
                           subject().databaseName);
    }
    const QString name = m_recordedName.isEmpty() ? subject().databaseName : m_recordedName;
    return library().importDatabase(subject().databaseUUID, name);
}

std::optional<Error> SyncSession::settleReading() {
    QList<Transaction> transactions;
    for (const Read &read : std::as_const(m_read)) {
        transactions.append(read.transaction);
    }
    if (!transactions.isEmpty()) {
        if (std::optional<Error> error =
                library().merge(database(), transactions, [this]() -> std::optional<Error> {
                    for (const Read &read : std::as_const(m_read)) {
                        if (std::optional<Error> addError =
                                known().add(read.name, read.transaction, read.size)) {
                            return addError;
                        }
                    }
                    return {};
                })) {
            return error;
        }
    }
    m_read.clear();
    return m_unread.isEmpty() ? prepareWriting() : std::nullopt;
}

std::optional<Error> SyncSession::prepareWriting() {
    QSet<OperationId> written;
    m_supersededToWrite = log().supersededIds();
    const QHash<QString, KnownTransactions::Contents> all = known().all();
    for (const KnownTransactions::Contents &contents : all) {
        written.unite(QSet(contents.operations.begin(), contents.operations.end()));
        for (const OperationId &identifier : contents.superseded) {
            m_supersededToWrite.remove(identifier);
        }
    }
    m_operationsToWrite = log().operationIds();
    m_operationsToWrite.removeIf(
        [&](const OperationId &identifier) { return written.contains(identifier); });
    if (!m_operationsToWrite.isEmpty()) {
        if (std::optional<Error> error = profile().write([this] { return log().markAllSent(); })) {
            return error;
        }
    }
    goOnWriting();
    return {};
}

void SyncSession::goOnWriting() {
    if (takeNext()) {
        m_step = Step::Writing;
        return;
    }
    m_nameToRecord = database()->name();
    const bool isOutdated =
        m_record == Record::Sound && m_nameToRecord != m_recordedName && !database()->isInbox();
    if (isOutdated || m_record == Record::Absent || m_record == Record::Damaged) {
        m_step = Step::Recording;
        return;
    }
    setDone();
}
