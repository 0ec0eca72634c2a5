#include "Engine/Synchronization/StoreSession.h"

#include <QtCore/QUuid>

#include "Engine/Notes/EngineNoteLibrary.h"
#include "Engine/Profile/ProfileDatabase.h"

namespace {

/// So many of them take about as much room as a usual transaction.
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
    return {m_profile, m_subject.place, log().database()};
}

QString StoreSession::path(const QString &name) const {
    const QString folder = QStringLiteral("transactions/") + m_subject.databaseUUID;
    return name.isEmpty() ? folder : folder + u'/' + name;
}

bool StoreSession::takeNext() {
    const qsizetype left = m_operationsToWrite.size();
    m_transaction = {database()->log().takeOperations(m_operationsToWrite), {}};
    if (m_transaction.operations.size() < left - m_operationsToWrite.size()) {
        m_hasFailedToWriteAll = true;
    }
    for (const Operation &operation : std::as_const(m_transaction.operations)) {
        for (const OperationId &identifier : operation.supersedes) {
            m_supersededToWrite.remove(identifier);
        }
    }
    // Not before what supersedes them is there, lest a note be missing for a while.
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

std::optional<Error> StoreSession::write(BlobStore &store, const EngineFuture &future) {
    const QByteArray record = m_transaction.encoded();
    const Expected<BlobStore::Written> written =
        store.writeIfAbsent(path(m_transactionName), record, future);
    if (!written) {
        return written.error();
    }
    // Nobody else can have taken the name; what is there may be what a try has left of which the
    // answer was lost. The next session reads it and sees.
    if (*written == BlobStore::Written::New) {
        m_writtenSize = record.size();
    }
    return {};
}

std::optional<Error> StoreSession::rememberWritten() {
    if (m_writtenSize == 0) {
        m_hasFailedToWriteAll = true;
        return {};
    }
    return m_profile.write(
        [this] { return known().add(m_transactionName, m_transaction, m_writtenSize); });
}
