#include "Engine/Synchronization/StoreSession.h"

#include "Engine/Foundation/EngineError.h"
#include "Engine/Notes/DatabaseRecord.h"
#include "Engine/Notes/EngineNoteLibrary.h"
#include "Engine/Notes/TransactionName.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Profile/ProfileReader.h"
#include "Engine/Synchronization/TransactionRecords.h"

namespace {

/// This many identifiers take about as much space as a usual transaction.
constexpr qsizetype IdentifiersInTransaction = 30000;
/// Number of transactions that one step on the main thread forgets.
constexpr qsizetype NamesForgottenAtOnce = 1000;

}  // namespace

StoreSession::StoreSession(const ProfileDatabase &profile, EngineNoteLibrary &library,
                           Subject subject)
    : m_profile(profile), m_library(library), m_subject(std::move(subject)) {}

std::shared_ptr<EngineDatabase> StoreSession::database() const {
    return m_library.synchronizedDatabase(m_subject.databaseUUID);
}

void StoreSession::abandon() {
    m_isAbandoned = true;
    const QMutexLocker waiting(&m_profileUse);
}

Expected<void> StoreSession::readProfile(const std::function<Expected<void>()> &read) {
    const QMutexLocker lock(&m_profileUse);
    if (m_isAbandoned) {
        return failure(operationCancelled());
    }
    const auto reader = ProfileReader::open(m_profile, m_profile.path(), m_isAbandoned);
    return reader ? read() : failure(reader.error());
}

void StoreSession::rememberDatabase() {
    m_databaseId = database()->log().database();
}

void StoreSession::addTransactionOfSize(qint64 size) {
    m_largestTransaction = qMax(m_largestTransaction, size);
}

QString StoreSession::folder() const {
    return TransactionRecords::folder(m_subject.databaseUUID);
}

QString StoreSession::path(const QString &name) const {
    return folder() + u'/' + name;
}

Expected<void> StoreSession::forgetSome(QStringList &names) {
    if (names.isEmpty()) {
        return {};
    }
    const QStringList some = names.first(qMin(names.size(), NamesForgottenAtOnce));
    names.remove(0, some.size());
    return m_profile.write([&] { return known().remove(some); });
}

Expected<bool> StoreSession::prepareNextTransaction() {
    const qsizetype count = m_operationsToWrite.size();
    const Expected<QList<Operation>> operations = log().takeOperations(m_operationsToWrite);
    if (!operations) {
        return failure(operations.error());
    }
    m_transaction = {*operations, {}};
    if (operations->size() < count - m_operationsToWrite.size()) {
        m_hasFailedToWriteAll = true;
    }
    for (const Operation &operation : *operations) {
        for (const OperationId &identifier : operation.supersedes) {
            m_supersededToWrite.remove(identifier);
        }
    }
    // A reader must not learn that an operation is superseded before it can read the successor.
    if (m_operationsToWrite.isEmpty() && !m_hasFailedToWriteAll) {
        auto next = m_supersededToWrite.begin();
        while (next != m_supersededToWrite.end() &&
               m_transaction.superseded.size() < IdentifiersInTransaction) {
            m_transaction.superseded.append(*next);
            next = m_supersededToWrite.erase(next);
        }
    }
    return !m_transaction.isEmpty();
}

Expected<void> StoreSession::writeTransaction(BlobStore &store, const EngineFuture &future) {
    const QByteArray record = m_transaction.encoded();
    m_transactionName = TransactionName::of(record);
    m_writtenSize = record.size();
    const QString name = path(m_transactionName);
    if (!Transaction::decoded(record, name)) {
        return failure(engineError(EngineErrorCode::InvalidDatabase,
                                   "A change in “%1” is not valid and was not written. Rename the "
                                   "database and synchronize again.",
                                   m_subject.databaseName));
    }
    // No two records are the same, so an existing record is that of an earlier attempt whose
    // response was lost.
    return store.writeIfAbsent(name, record, future)
        .and_then(
            [&](BlobStore::Written) { return store.read(name, Transaction::SizeLimit, future); })
        .and_then([&](const QByteArray &stored) -> Expected<void> {
            if (stored == record) {
                return {};
            }
            // If this fails too, every reader skips the record as damaged.
            static_cast<void>(store.remove(name, future));
            return failure(engineError(
                EngineErrorCode::DamagedRecord,
                "The record “%1” was not stored as it was written. Try again. If this happens "
                "repeatedly, use another location.",
                store.place(name)));
        });
}

Expected<std::optional<Error>> StoreSession::problemOfDatabaseRecord(
    BlobStore &store, const EngineFuture &future) const {
    const QString file = DatabaseRecord::path(m_subject.databaseUUID);
    const Expected<QString> name =
        store.read(file, BlobStore::RecordLimit, future).and_then([&](const QByteArray &record) {
            return DatabaseRecord::name(record, m_subject.databaseUUID, store.place(file));
        });
    if (name) {
        return std::nullopt;
    }
    const bool isOfRecord = TransactionRecords::isOfOneRecord(name.error()) ||
                            isEngineError(name.error(), EngineErrorCode::BlobMissing);
    return isOfRecord ? Expected<std::optional<Error>>(name.error()) : failure(name.error());
}

Expected<void> StoreSession::recordWrittenTransaction() {
    return m_profile
        .write([this] { return known().add(m_transactionName, m_transaction, m_writtenSize); })
        .map([this] {
            addTransactionOfSize(m_writtenSize);
            m_writtenTransactions.append(m_transactionName);
            m_sent += m_transaction.operations.size();
            m_progress.advance(m_transaction.operations.size());
        });
}
