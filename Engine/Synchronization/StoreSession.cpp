#include "Engine/Synchronization/StoreSession.h"

#include <QtCore/QUuid>

#include "Engine/Notes/EngineNoteLibrary.h"
#include "Engine/Profile/ProfileDatabase.h"

namespace {

/// As many identifiers take about as much space as a usual transaction.
constexpr qsizetype IdentifiersInTransaction = 30000;

}  // namespace

StoreSession::StoreSession(const ProfileDatabase &profile, EngineNoteLibrary &library,
                           Subject subject)
    : m_profile(profile), m_library(library), m_subject(std::move(subject)) {}

std::shared_ptr<EngineDatabase> StoreSession::database() const {
    return m_library.synchronizedDatabase(m_subject.databaseUUID);
}

const NoteLog &StoreSession::log() const {
    return database()->log();
}

KnownTransactions StoreSession::known() const {
    return {m_profile, m_subject.store, log().database()};
}

QString StoreSession::folder() const {
    return QStringLiteral("transactions/") + m_subject.databaseUUID;
}

QString StoreSession::path(const QString &name) const {
    return folder() + u'/' + name;
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
    m_transactionName =
        QUuid::createUuid().toString(QUuid::WithoutBraces) + QStringLiteral(".json");
    m_writtenSize = 0;
    return !m_transaction.isEmpty();
}

Expected<void> StoreSession::writeTransaction(BlobStore &store, const EngineFuture &future) {
    const QByteArray record = m_transaction.encoded();
    return store.writeIfAbsent(path(m_transactionName), record, future)
        .map([&](BlobStore::Written written) {
            // The name is random, so an existing record is that of an earlier attempt whose
            // response was lost. It may be incomplete; the next session reads it.
            m_writtenSize = written == BlobStore::Written::New ? record.size() : 0;
        });
}

Expected<void> StoreSession::recordWrittenTransaction() {
    if (m_writtenSize == 0) {
        m_hasFailedToWriteAll = true;
        return {};
    }
    return m_profile.write(
        [this] { return known().add(m_transactionName, m_transaction, m_writtenSize); });
}
