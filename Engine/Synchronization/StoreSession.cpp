#include "Engine/Synchronization/StoreSession.h"

#include <QtCore/QDeadlineTimer>
#include <algorithm>
#include <utility>
#include <vector>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/ParallelCalls.h"
#include "Engine/Notes/DatabaseRecord.h"
#include "Engine/Notes/EngineDatabase.h"
#include "Engine/Notes/EngineNoteLibrary.h"
#include "Engine/Notes/TransactionName.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Profile/ProfileReader.h"
#include "Engine/Profile/SteppedDeletion.h"
#include "Engine/Synchronization/TransactionRecords.h"
#include "Host/SyncStrings.h"

namespace {

/// This many identifiers take about as much space as a usual transaction.
constexpr qsizetype IdentifiersInTransaction = 30000;
/// From this many on, transactions are written at once, so that large ones are not in memory at the
/// same time.
constexpr qsizetype CharactersAtOnce = 7 * Transaction::UsualSize;
/// If there are more, one transaction is large: they are written one after the other.
constexpr qsizetype MostCharactersAtOnce = CharactersAtOnce + Transaction::UsualSize;
/// Number of identifiers that one step on the main thread records as written.
constexpr qsizetype IdentifiersRecordedAtOnce = 500;

qsizetype charactersOf(const Transaction &transaction) {
    qsizetype characters = 0;
    for (const Operation &operation : transaction.operations) {
        characters += operation.text.size();
    }
    return characters;
}

}  // namespace

StoreSession::StoreSession(const ProfileDatabase &profile, EngineNoteLibrary &library,
                           Subject subject)
    : m_profile(profile), m_library(library), m_subject(std::move(subject)) {}

std::shared_ptr<EngineDatabase> StoreSession::database() const {
    return m_library.synchronizedDatabase(m_subject.databaseUUID);
}

void StoreSession::abandon() {
    interrupt();
    const QMutexLocker waiting(&m_profileUse);
}

Expected<void> StoreSession::readProfile(const std::function<Expected<void>()> &read) {
    return useProfile([&] {
        const auto reader = ProfileReader::open(m_profile, m_profile.path(), m_isInterrupted);
        return reader ? read() : failure(reader.error());
    });
}

Expected<void> StoreSession::useProfile(const std::function<Expected<void>()> &use) {
    const QMutexLocker lock(&m_profileUse);
    return m_isInterrupted ? failure(operationCancelled()) : use();
}

void StoreSession::rememberDatabase() {
    m_databaseId = database()->log().database();
}

void StoreSession::addTransactionOfSize(qint64 size) {
    m_largestTransaction = qMax(m_largestTransaction, size);
}

QString StoreSession::folder() const {
    return TransactionName::folder(m_subject.databaseUUID);
}

QString StoreSession::path(const QString &name) const {
    return folder() + u'/' + name;
}

Expected<void> StoreSession::noteLost(const QStringList &names) {
    if (names.isEmpty()) {
        return {};
    }
    QSet<OperationId> contained;
    for (const QString &name : names) {
        const Expected<KnownTransactions::Contents> contents = known().contents(name);
        if (!contents) {
            return failure(contents.error());
        }
        contained.unite({contents->operations.begin(), contents->operations.end()});
    }
    return lost().among(contained).map(
        [this](const QSet<OperationId> &found) { m_notedAsLost.unite(found); });
}

Expected<void> StoreSession::rememberLost() {
    if (m_notedAsLost.isEmpty()) {
        return {};
    }
    const auto remember = [this](const QSet<OperationId> &remembered) {
        return lost().remember(remembered + m_notedAsLost);
    };
    const auto change = [&] {
        return lost().remembered().and_then(remember).and_then(
            [this] { return known().setIncomplete(); });
    };
    return m_profile.write(change).map([this] { m_notedAsLost.clear(); });
}

Expected<qsizetype> StoreSession::forgetSome(const QStringList &names, Contents contents) {
    if (names.isEmpty()) {
        return 0;
    }
    // A record may have very many identifiers.
    const QDeadlineTimer deadline(SteppedDeletion::StepDuration);
    qsizetype count = 0;
    const auto forget = [&] {
        const Expected<void> noted =
            contents == Contents::MayBeLost ? known().setIncomplete() : Expected<void>();
        return noted
            .and_then([&] {
                return contents == Contents::MayBeInUnread
                           ? known().removeMovedUntil(deadline, names)
                           : known().removeReplacedUntil(deadline, names);
            })
            .map([&](qsizetype removed) { count = removed; });
    };
    return rememberLost().and_then([&] { return m_profile.write(forget); }).map([&] {
        return count;
    });
}

Expected<void> StoreSession::handleDamaged(const Operation &operation) {
    return database()->removeDamagedCopy(operation).map([&](bool isRemoved) {
        if (isRemoved) {
            reportRepaired(operation.computedId(), operation.title);
        } else {
            reportDamaged(operation);
        }
    });
}

void StoreSession::reportRepaired(const OperationId &identifier, const QString &title) {
    if (m_repaired.contains(identifier)) {
        return;
    }
    m_repaired.insert(identifier);
    addProblem(engineError(EngineErrorCode::RecordRepaired,
                           localizedSyncString("“%1” was damaged on this computer and was read "
                                               "again from the location.")
                               .arg(title.left(80))));
}

void StoreSession::reportDamaged(const Operation &operation) {
    m_hasFailedToWriteAll = true;
    database()->addDamaged({{operation.id, operation.title, true}});
    addProblem(operation.note.isEmpty()
                   ? engineError(EngineErrorCode::InvalidDatabase,
                                 "The name of the database “%1” is not valid and was not sent. "
                                 "Rename the database and synchronize again.",
                                 m_subject.databaseName)
                   : engineError(EngineErrorCode::InvalidDatabase,
                                 "The note “%1” is damaged on this computer and was not sent. If "
                                 "synchronizing again does not repair it, check its text, edit it "
                                 "and synchronize.",
                                 operation.title.left(80)));
}

Expected<bool> StoreSession::hasMoreToWrite() {
    const QList<Operation> damaged = std::exchange(m_damaged, {});
    for (const Operation &operation : damaged) {
        if (Expected<void> handled = handleDamaged(operation); !handled) {
            return failure(handled.error());
        }
    }
    return isRecording() || !isAllPrepared();
}

bool StoreSession::isAllPrepared() const {
    return m_operationsToWrite.isEmpty() &&
           (m_supersededToWrite.isEmpty() || m_hasFailedToWriteAll);
}

Expected<Transaction> StoreSession::takeTransaction() {
    const Expected<NoteLog::Portion> portion = log().firstOperations(m_operationsToWrite);
    if (!portion) {
        return failure(portion.error());
    }
    m_operationsToWrite.remove(0, portion->count);
    if (portion->operations.size() < portion->count) {
        m_hasFailedToWriteAll = true;
    }
    Transaction transaction;
    for (const Operation &operation : portion->operations) {
        if (!operation.isSound()) {
            m_damaged.append(operation);
            continue;
        }
        transaction.operations.append(operation);
        for (const OperationId &identifier : operation.supersedes) {
            m_supersededToWrite.remove(identifier);
        }
    }
    // A reader must not learn that an operation is superseded before it can read the successor.
    if (m_operationsToWrite.isEmpty() && m_damaged.isEmpty() && !m_hasFailedToWriteAll) {
        auto next = m_supersededToWrite.begin();
        while (next != m_supersededToWrite.end() &&
               transaction.superseded.size() < IdentifiersInTransaction) {
            transaction.superseded.append(*next);
            next = m_supersededToWrite.erase(next);
        }
    }
    return transaction;
}

Expected<QList<StoreSession::Outgoing>> StoreSession::takeTransactions(int most) {
    QList<Outgoing> taken;
    qsizetype characters = 0;
    while (!isAllPrepared() && m_damaged.isEmpty() && taken.size() < most &&
           characters < CharactersAtOnce) {
        Expected<Transaction> transaction = takeTransaction();
        if (!transaction) {
            return failure(transaction.error());
        }
        characters += charactersOf(*transaction);
        if (!transaction->isEmpty()) {
            taken.append({std::move(*transaction)});
        }
    }
    return taken;
}

Expected<void> StoreSession::writeTransactions(BlobStore &store, const EngineFuture &future) {
    if (isRecording()) {
        return {};
    }
    Expected<QList<Outgoing>> taken;
    return readProfile([&] {
               taken = takeTransactions(store.operationsAtOnce());
               return taken.map([](const QList<Outgoing> &) {});
           })
        .and_then([&] { return write(std::move(*taken), store, future); });
}

Expected<void> StoreSession::write(QList<Outgoing> transactions, BlobStore &store,
                                   const EngineFuture &future) {
    // What supersedes comes last, after its successors are written.
    const auto superseding = std::find_if(
        transactions.begin(), transactions.end(),
        [](const Outgoing &outgoing) { return !outgoing.transaction.superseded.isEmpty(); });
    const qsizetype independent = superseding - transactions.begin();
    qsizetype characters = 0;
    for (const Outgoing &outgoing : std::as_const(transactions)) {
        characters += charactersOf(outgoing.transaction);
    }
    const int atOnce = characters > MostCharactersAtOnce ? 1 : store.operationsAtOnce();
    std::vector<Expected<void>> results(static_cast<size_t>(transactions.size()));
    Outgoing *const outgoing = transactions.data();
    ParallelCalls::run(independent, atOnce, [&](qsizetype number) {
        results[static_cast<size_t>(number)] = write(outgoing[number], store, future);
    });
    for (qsizetype number = 0; number < transactions.size(); ++number) {
        Expected<void> &result = results[static_cast<size_t>(number)];
        if (number >= independent) {
            result = write(outgoing[number], store, future);
        }
        if (!result) {
            return result;
        }
    }
    m_written = std::move(transactions);
    return {};
}

Expected<void> StoreSession::write(Outgoing &outgoing, BlobStore &store,
                                   const EngineFuture &future) const {
    return writeRecord(outgoing, store, future).and_then([&] {
        return readBack(outgoing, store, future);
    });
}

Expected<void> StoreSession::writeRecord(Outgoing &outgoing, BlobStore &store,
                                         const EngineFuture &future) const {
    if (!store.parsing().take(future)) {
        return failure(operationCancelled());
    }
    const QByteArray record = outgoing.transaction.encoded();
    // Only the identifiers are needed from now on.
    for (Operation &operation : outgoing.transaction.operations) {
        operation.text.clear();
    }
    outgoing.name = TransactionName::of(record);
    outgoing.size = record.size();
    const QString name = path(outgoing.name);
    const bool isReadable = Transaction::decoded(record, name).has_value();
    store.parsing().release();
    if (!isReadable) {
        return failure(engineError(EngineErrorCode::InvalidDatabase,
                                   "A change in “%1” exceeds the limits of a record and was not "
                                   "sent. Please report this as an error of Velmora.",
                                   m_subject.databaseName));
    }
    // No two records are the same, so an existing record is that of an earlier attempt whose
    // response was lost.
    return store.writeIfAbsent(name, record, future).map([](BlobStore::Written) {});
}

Expected<void> StoreSession::readBack(const Outgoing &outgoing, BlobStore &store,
                                      const EngineFuture &future) const {
    const QString name = path(outgoing.name);
    const Expected<QByteArray> stored = store.read(name, outgoing.size, future);
    // If it is longer, or no plain file.
    const bool isRefused = !stored && isEngineError(stored.error(), EngineErrorCode::BlobRefused);
    if (!stored && !isRefused) {
        return failure(stored.error());
    }
    if (stored && TransactionName::matches(outgoing.name, *stored)) {
        return {};
    }
    // If this fails too, every reader skips the record as damaged.
    static_cast<void>(store.remove(name, future));
    return failure(
        engineError(EngineErrorCode::DamagedRecord,
                    "The record “%1” was not stored as it was written. Try again. If this happens "
                    "repeatedly, use another location.",
                    store.place(name)));
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

bool StoreSession::isRecording() const {
    return !m_written.isEmpty() || !m_toRecord.operations.isEmpty() ||
           !m_toRecord.superseded.isEmpty();
}

Expected<void> StoreSession::recordWrittenTransaction() {
    if (!m_toRecord.operations.isEmpty() || !m_toRecord.superseded.isEmpty()) {
        return recordSomeWritten();
    }
    if (m_written.isEmpty()) {
        return {};
    }
    const Outgoing written = m_written.takeFirst();
    const auto contents = KnownTransactions::Contents::of(written.transaction, written.size);
    const auto record = [&] {
        return known().addUnrecorded(written.name, contents).and_then([this] {
            return known().hasUnwritten();
        });
    };
    Expected<bool> hasUnwritten;
    return m_profile
        .write([&] {
            hasUnwritten = record();
            return hasUnwritten.map([](bool) {});
        })
        .map([&] {
            m_toRecord = *hasUnwritten ? contents : KnownTransactions::Contents();
            addTransactionOfSize(written.size);
            m_writtenTransactions.append(written.name);
            m_sent += written.transaction.operations.size();
            m_progress.advance(written.transaction.operations.size());
        });
}

Expected<void> StoreSession::recordSomeWritten() {
    const qsizetype operations = qMin(m_toRecord.operations.size(), IdentifiersRecordedAtOnce);
    const qsizetype superseded =
        qMin(m_toRecord.superseded.size(), IdentifiersRecordedAtOnce - operations);
    const KnownTransactions::Contents some{m_toRecord.operations.first(operations),
                                           m_toRecord.superseded.first(superseded)};
    m_toRecord.operations.remove(0, operations);
    m_toRecord.superseded.remove(0, superseded);
    return m_profile.write([&] { return known().setWritten(some); });
}
