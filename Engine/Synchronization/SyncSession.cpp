#include "Engine/Synchronization/SyncSession.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QRandomGenerator>
#include <algorithm>
#include <atomic>
#include <utility>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/ParallelCalls.h"
#include "Engine/Notes/DatabaseRecord.h"
#include "Engine/Notes/EngineNoteLibrary.h"
#include "Engine/Notes/TransactionName.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Host/SyncStoreLayout.h"
#include "Host/SyncStrings.h"

namespace {

/// Number of bytes after which the records that were read are merged before more are read.
constexpr qsizetype ReadAtOnce = 4LL << 20;
/// Approximate number of rows that one step on the main thread merges.
constexpr qsizetype RowsMergedAtOnce = 2000;
/// Number of operations that one step on the main thread renews, each of which writes several rows.
constexpr qsizetype OperationsRenewedAtOnce = 400;
/// Number of rows that take as long as it takes to record that a record is known.
constexpr qsizetype RowsOfRecord = 10;
/// Number of characters that take as long as another row.
constexpr qsizetype CharactersInRow = 200;
/// Size of the records whose transactions are kept in memory until all are compared, in bytes.
constexpr qint64 KeptUntilCompared = 16LL << 20;
/// A removal of more notes than this must be decided by the user if it is more than half of them.
constexpr qint64 FewNotes = 10;

bool isLarge(qint64 removed, qint64 total) {
    return removed > FewNotes && removed * 2 > total;
}

/// Returns a digest of what `transaction` does.
QByteArray digestOf(const Transaction &transaction) {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const Operation &operation : transaction.operations) {
        hash.addData(operation.id);
    }
    hash.addData("superseded");
    hash.addData(Operation::packed(transaction.superseded));
    return hash.result();
}

}  // namespace

SyncSession::SyncSession(const ProfileDatabase &profile, EngineNoteLibrary &library,
                         Subject subject, Verification verification)
    : StoreSession(profile, library, std::move(subject)), m_verification(verification) {
    if (database()) {
        rememberDatabase();
    }
}

Expected<void> SyncSession::accessStore(BlobStore &store, const EngineFuture &future) {
    switch (m_step) {
        case Step::Listing:
            return readStore(store, future);
        case Step::Comparing:
            return readProfile([this] { return compareListing(); });
        case Step::Forgetting:
        case Step::Restarting:
            return {};
        case Step::Reading:
            return readTransactions(store, future);
        case Step::Verifying:
            return handleDamage(store, future);
        case Step::Collecting:
            return readProfile([this] { return collectUnwritten(); });
        case Step::Writing:
            return writeTransactions(store, future);
        case Step::Naming:
            return writeDatabaseRecord(store, future);
    }
    return {};
}

Expected<void> SyncSession::accessProfile() {
    switch (m_step) {
        case Step::Listing:
            m_step = Step::Comparing;
            return importDatabase().map([this] {
                rememberDatabase();
                m_damagedOperations = database()->damaged();
            });
        case Step::Comparing:
        case Step::Forgetting:
            return forgetGone();
        case Step::Reading:
            return continueReading();
        case Step::Verifying:
            return recordVerification().and_then([this] { return beginCollecting(); });
        case Step::Restarting:
            return restartRecording();
        case Step::Collecting:
            return m_isRecordWrong ? restartRecording() : prepareWriting();
        case Step::Writing:
            return recordWrittenTransaction().and_then([this] { return continueWriting(); });
        case Step::Naming:
            setDone();
            return {};
    }
    return {};
}

Expected<void> SyncSession::forgetGone() {
    m_step = Step::Forgetting;
    Expected<void> forgotten = forgetSome(m_gone);
    if (!forgotten || !m_gone.isEmpty()) {
        return forgotten;
    }
    m_step = Step::Reading;
    return continueReading();
}

Expected<void> SyncSession::readStore(BlobStore &store, const EngineFuture &future) {
    if (!DatabaseRecord::isUUID(subject().databaseUUID)) {
        return failure(engineError(EngineErrorCode::InvalidDatabase,
                                   "“%1” is not a valid identifier of a database.",
                                   subject().databaseUUID));
    }
    if (Expected<void> chosen = readProfile([this] { return chooseSuspects(); }); !chosen) {
        return chosen;
    }
    Expected<void> record;
    Expected<QStringList> names;
    std::atomic_bool hasFailed = false;
    ParallelCalls::run(3, store.operationsAtOnce(), [&](qsizetype number) {
        if (number == 0) {
            record = readDatabaseRecord(store, future);
            hasFailed = hasFailed || !record;
        } else if (number == 1 && !hasFailed) {
            names = store.list(folder(), future);
            hasFailed = hasFailed || !names;
        } else if (!hasFailed) {
            verifySuspects(store, future);
        }
    });
    if (!record || !names) {
        return failure(record ? names.error() : record.error());
    }
    takeListing(store, *names);
    return {};
}

Expected<void> SyncSession::readDatabaseRecord(BlobStore &store, const EngineFuture &future) {
    const QString &UUID = subject().databaseUUID;
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
        addProblem(isUnknown ? name.error()
                             : engineError(EngineErrorCode::RecordRepaired,
                                           "The record “%1” was damaged and is written again.",
                                           store.place(file)));
        return {};
    }
    m_record = Record::Sound;
    m_recordedName = *name;
    return {};
}

void SyncSession::takeListing(const BlobStore &store, const QStringList &names) {
    for (const QString &name : names) {
        if (TransactionName::isValid(name)) {
            m_unread.append(name);
        } else if (name.endsWith(SyncStoreLayout::RecordEnding)) {
            addProblem(damagedRecord(store.place(path(name))));
        }
    }
}

Expected<void> SyncSession::readTransactions(BlobStore &store, const EngineFuture &future) {
    const TransactionRecords records(store, subject().databaseUUID, future);
    m_readSize = 0;
    m_merged.clear();
    if (m_pass == Pass::Merging && !m_read.isEmpty()) {
        return future.isCancelled() ? failure(operationCancelled()) : Expected<void>();
    }
    const QStringList names = std::exchange(m_unread, {});
    const auto read = records.readSome(
        names, ReadAtOnce, [this] { progress().advance(m_pass == Pass::Comparing ? 1 : 0); });
    for (qsizetype i = 0; i < names.size(); ++i) {
        const std::optional<Expected<TransactionRecords::Record>> &record =
            read[static_cast<size_t>(i)];
        if (!record) {
            m_unread.append(names[i]);
        } else if (Expected<void> taken = takeTransaction(records, names[i], *record); !taken) {
            return taken;
        }
    }
    return m_pass == Pass::Comparing ? compareTransactions() : Expected<void>();
}

Expected<void> SyncSession::takeTransaction(const TransactionRecords &records, const QString &name,
                                            const Expected<TransactionRecords::Record> &record) {
    if (record) {
        m_readSize += record->size;
        const QByteArray digest = digestOf(record->transaction);
        if (m_released.value(name, digest) == digest) {
            Read read{name, record->transaction, record->size, digest};
            // Neighbours are inserted into the table in a fraction of the time.
            std::sort(read.transaction.superseded.begin(), read.transaction.superseded.end());
            m_read.append(read);
        } else {
            addProblem(
                engineError(EngineErrorCode::DamagedRecord,
                            "The record “%1” has changed while it was read. Synchronize again.",
                            records.place(name)));
        }
        return {};
    }
    const Error &error = record.error();
    const auto known = m_readAgain.constFind(name);
    const bool isKnown = known != m_readAgain.constEnd();
    const Suspect suspect{name, isKnown ? std::optional(*known) : std::nullopt};
    if (isEngineError(error, EngineErrorCode::BlobMissing)) {
        m_missing.append(suspect);
        return {};
    }
    if (!TransactionRecords::isOfOneRecord(error)) {
        return failure(error);
    }
    if (isKnown) {
        m_lost.append(name);
    }
    if (isEngineError(error, EngineErrorCode::DamagedRecord) &&
        m_damaged.size() < RecordsToSetAside) {
        m_damaged.append(suspect);
    } else {
        addProblem(error);
    }
    return {};
}

Expected<void> SyncSession::handleDamage(BlobStore &store, const EngineFuture &future) {
    const TransactionRecords records(store, subject().databaseUUID, future);
    for (const Verified &verified : std::as_const(m_verified)) {
        takeVerified(verified);
    }
    qint64 size = 0;
    for (const Suspect &damaged : std::as_const(m_damaged)) {
        if (future.isCancelled()) {
            break;
        }
        if (size < BytesToSetAside) {
            size += setAside(records, damaged);
        } else {
            addProblem(damagedRecord(records.place(damaged.name)));
        }
    }
    return future.isCancelled() ? failure(operationCancelled()) : reportMissing(records);
}

Expected<void> SyncSession::reportMissing(const TransactionRecords &records) {
    if (m_missing.isEmpty()) {
        return {};
    }
    return records.listed().map([&](const QSet<QString> &listed) {
        for (const Suspect &missing : std::as_const(m_missing)) {
            if (!listed.contains(missing.name)) {
                continue;
            }
            if (missing.written) {
                m_lost.append(missing.name);
            }
            addProblem(
                missing.written
                    ? engineError(EngineErrorCode::RecordRepaired,
                                  "The location lists the record “%1” but does not return it. This "
                                  "computer writes its contents again.",
                                  records.place(missing.name))
                    : records.notReturned(missing.name));
        }
    });
}

void SyncSession::verifySuspects(BlobStore &store, const EngineFuture &future) {
    const TransactionRecords records(store, subject().databaseUUID, future);
    bool isReadable = true;
    while (!m_suspects.isEmpty() && isReadable && !future.isCancelled()) {
        const QList<Suspect> some =
            m_suspects.first(qMin(m_suspects.size(), qsizetype(store.operationsAtOnce())));
        m_suspects.remove(0, some.size());
        QStringList names;
        QList<KnownTransactions::Contents> written;
        for (const Suspect &suspect : some) {
            names.append(suspect.name);
            written.append(suspect.written.value_or(KnownTransactions::Contents()));
        }
        const auto results = records.verifyAll(names, written);
        for (qsizetype i = 0; i < some.size() && isReadable; ++i) {
            const Expected<void> &result = results[static_cast<size_t>(i)];
            isReadable = result || TransactionRecords::isOfOneOrMissing(result.error());
            m_verified.append({some[i], result});
        }
    }
}

void SyncSession::takeVerified(const Verified &verified) {
    const auto &[suspect, record] = verified;
    m_lastVerified = suspect.name;
    if (record) {
        return;
    }
    if (isEngineError(record.error(), EngineErrorCode::BlobMissing)) {
        m_missing.append(suspect);
        return;
    }
    if (isEngineError(record.error(), EngineErrorCode::DamagedRecord) &&
        m_damaged.size() < RecordsToSetAside) {
        m_lost.append(suspect.name);
        m_damaged.append(suspect);
        return;
    }
    addProblem(record.error());
    if (TransactionRecords::isOfOneRecord(record.error())) {
        m_lost.append(suspect.name);
    }
}

qint64 SyncSession::setAside(const TransactionRecords &records, const Suspect &damaged) {
    const Expected<TransactionRecords::Copy> copy = records.setAside(damaged.name, damaged.written);
    if (!copy) {
        // Another computer has set it aside.
        if (!isEngineError(copy.error(), EngineErrorCode::BlobMissing)) {
            addProblem(copy.error());
        }
        return 0;
    }
    const EngineErrorCode code =
        damaged.written ? EngineErrorCode::RecordRepaired : EngineErrorCode::DamagedRecord;
    const QString text = damaged.written
                             ? localizedSyncString(
                                   "The record “%1” was damaged. It was moved to “%2”, and this "
                                   "computer writes its contents again.")
                             : localizedSyncString(
                                   "The record “%1” was damaged and was moved to “%2”. Synchronize "
                                   "on the computer that wrote it to restore its contents.");
    addProblem(engineError(code, text.arg(records.place(damaged.name), copy->place)));
    return copy->size;
}

Expected<void> SyncSession::writeDatabaseRecord(BlobStore &store, const EngineFuture &future) {
    const QString file = DatabaseRecord::path(subject().databaseUUID);
    if (m_record != Record::Absent) {
        if (Expected<void> removed = store.remove(file, future); !removed) {
            return removed;
        }
    }
    return store
        .writeIfAbsent(file, DatabaseRecord::encoded(subject().databaseUUID, m_nameToRecord),
                       future)
        .and_then([&](BlobStore::Written) { return problemOfDatabaseRecord(store, future); })
        .map([&](const std::optional<Error> &problem) {
            if (problem) {
                addProblem(*problem);
            }
        });
}

Expected<void> SyncSession::compareListing() {
    Expected<QHash<QString, qint64>> all = known().sizes();
    if (!all) {
        return failure(all.error());
    }
    const QSet<QString> listed(m_unread.begin(), m_unread.end());
    if (Expected<void> chosen = chooseToReadAgain(listed); !chosen) {
        return chosen;
    }
    // What is not listed any more says nothing, unless the store has failed.
    m_verified.removeIf([&](const Verified &verified) {
        const QString &name = verified.suspect.name;
        return m_readAgain.contains(name) ||
               (!listed.contains(name) &&
                (verified.result || TransactionRecords::isOfOneOrMissing(verified.result.error())));
    });
    all->removeIf(
        [&](QHash<QString, qint64>::iterator each) { return m_readAgain.contains(each.key()); });
    for (auto each = all->keyBegin(); each != all->keyEnd(); ++each) {
        if (!listed.contains(*each)) {
            m_gone.append(*each);
        }
    }
    m_unread.removeIf([&](const QString &name) { return all->contains(name); });
    const Expected<bool> isGuarded = log().hasMoreNotesThan(FewNotes);
    if (!isGuarded) {
        return failure(isGuarded.error());
    }
    m_pass = *isGuarded ? Pass::Comparing : Pass::Merging;
    progress().begin(m_pass == Pass::Comparing ? SessionProgress::Phase::Reading
                                               : SessionProgress::Phase::Merging,
                     m_unread.size());
    return {};
}

Expected<void> SyncSession::chooseToReadAgain(const QSet<QString> &listed) {
    const bool areAllVerified = m_verification == Verification::All;
    if (!areAllVerified && m_damagedOperations.isEmpty()) {
        return {};
    }
    Expected<QHash<QString, KnownTransactions::Contents>> all = known().all();
    const Expected<QList<OperationId>> operations = log().operationIds();
    const Expected<QSet<OperationId>> superseded = log().supersededIds();
    if (!all) {
        return failure(all.error());
    }
    if (!operations || !superseded) {
        return failure(operations ? superseded.error() : operations.error());
    }
    QSet<OperationId> present(operations->begin(), operations->end());
    const QSet<OperationId> damaged = QSet(m_damagedOperations).intersect(present);
    present.unite(*superseded);
    all->removeIf([&](QHash<QString, KnownTransactions::Contents>::iterator each) {
        const bool isNeeded =
            std::any_of(each->operations.begin(), each->operations.end(),
                        [&](const OperationId &id) {
                            return damaged.contains(id) ||
                                   (areAllVerified && !present.contains(id));
                        }) ||
            (areAllVerified &&
             !std::all_of(each->superseded.begin(), each->superseded.end(),
                          [&](const OperationId &id) { return superseded->contains(id); }));
        return !isNeeded || !listed.contains(each.key());
    });
    m_readAgain = *all;
    return {};
}

Expected<void> SyncSession::chooseSuspects() {
    const Expected<QHash<QString, qint64>> sizes = known().sizes();
    if (!sizes) {
        return failure(sizes.error());
    }
    const Expected<QString> last = known().lastVerified();
    if (!last) {
        return failure(last.error());
    }
    m_lastVerified = *last;
    QStringList names = sizes->keys();
    names.sort();
    std::rotate(names.begin(), std::upper_bound(names.begin(), names.end(), *last), names.end());
    qint64 size = 0;
    for (const QString &name : std::as_const(names)) {
        size += sizes->value(name);
        const bool isEnough = m_suspects.size() == RecordsToVerify ||
                              (m_suspects.isEmpty() ? !isTurnOf(size) : size > BytesToVerify);
        if (isEnough && m_verification == Verification::Some) {
            break;
        }
        const Expected<KnownTransactions::Contents> contents = TransactionName::hasDigest(name)
                                                                   ? KnownTransactions::Contents()
                                                                   : known().contents(name);
        if (!contents) {
            return failure(contents.error());
        }
        m_suspects.append({name, *contents});
    }
    return {};
}

bool SyncSession::isTurnOf(qint64 size) const {
    return QRandomGenerator::global()->generateDouble() * static_cast<double>(size) <
           static_cast<double>(BytesToVerify);
}

Expected<void> SyncSession::compareTransactions() {
    qint64 size = 0;
    for (const Read &each : std::as_const(m_read)) {
        size += each.size;
    }
    for (; m_compared < m_read.size(); ++m_compared) {
        m_forecast.add(m_read[m_compared].transaction);
    }
    if (size > KeptUntilCompared) {
        for (const Read &each : std::as_const(m_read)) {
            m_released.insert(each.name, each.digest);
        }
        m_read.clear();
        m_compared = 0;
    }
    if (!m_unread.isEmpty()) {
        return {};
    }
    return readProfile([this] { return checkRemoval(); }).map([this] {
        m_pass = Pass::Merging;
        m_unread = m_released.keys();
        progress().begin(SessionProgress::Phase::Merging, m_unread.size() + m_read.size());
    });
}

Expected<void> SyncSession::checkRemoval() {
    const Expected<QList<RemovalForecast::Note>> removed =
        m_forecast.removedNotes(profile(), log().database());
    if (!removed) {
        return failure(removed.error());
    }
    const Expected<qint64> count = log().countOfNotes();
    if (!count) {
        return failure(count.error());
    }
    Removal removal{{}, {}, *count};
    qint64 undecided = 0;
    QSet<QString> decided;
    if (m_decision.decision != RemovalDecision::Later) {
        decided = QSet(m_decision.UUIDs.begin(), m_decision.UUIDs.end());
    }
    for (const RemovalForecast::Note &note : *removed) {
        removal.UUIDs.append(note.UUID);
        removal.titles.append(note.title);
        const bool isDecided = decided.contains(note.UUID);
        undecided += isDecided ? 0 : 1;
        if (isDecided && m_decision.decision == RemovalDecision::Keep) {
            const Expected<QList<OperationId>> operations = log().operationIds(note.UUID);
            if (!operations) {
                return failure(operations.error());
            }
            m_operationsToKeep.append(*operations);
        }
    }
    if (undecided > 0 && isLarge(removed->size(), *count)) {
        setUndecidedRemoval(removal);
        return failure(engineError(
            EngineErrorCode::RemovalUndecided,
            localizedSyncCount("The location removes %1 of %2 notes. Nothing was changed. "
                               "Synchronize again to decide what happens to these notes.",
                               nullptr, *count)
                .arg(QString::number(removed->size()), QString::number(*count))));
    }
    return {};
}

Expected<void> SyncSession::recordVerification() {
    const Expected<QString> last = known().lastVerified();
    if (!last) {
        return failure(last.error());
    }
    if (m_lost.isEmpty() && *last == m_lastVerified) {
        return {};
    }
    return profile().write([this] {
        return known().remove(m_lost).and_then(
            [this] { return known().setLastVerified(m_lastVerified); });
    });
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
    if (m_pass == Pass::Comparing) {
        return {};
    }
    if (!m_operationsToKeep.isEmpty()) {
        return keepNotes();
    }
    return mergeTransactions().and_then([this]() -> Expected<void> {
        return m_unread.isEmpty() && m_read.isEmpty() ? endReading() : Expected<void>();
    });
}

Expected<void> SyncSession::endReading() {
    progress().begin(SessionProgress::Phase::Preparing);
    if (m_verified.isEmpty() && m_damaged.isEmpty() && m_missing.isEmpty() && m_lost.isEmpty()) {
        return beginCollecting();
    }
    m_step = Step::Verifying;
    return {};
}

Expected<void> SyncSession::beginCollecting() {
    return known().isComplete().map([this](bool isComplete) {
        m_step = isComplete && !mustCompare() ? Step::Collecting : Step::Restarting;
    });
}

bool SyncSession::mustCompare() const {
    return m_verification == Verification::All || !m_damagedOperations.isEmpty() ||
           database()->isComparisonDue(subject().store);
}

Expected<void> SyncSession::restartRecording() {
    m_step = Step::Restarting;
    m_isRecordWrong = false;
    Expected<bool> isRestarted;
    return profile()
        .write([&] {
            isRestarted = known().restartRecording();
            return isRestarted.map([](bool) {});
        })
        .map([&] { m_step = *isRestarted ? Step::Collecting : Step::Restarting; });
}

Expected<void> SyncSession::keepNotes() {
    QList<OperationId> some =
        m_operationsToKeep.first(qMin(m_operationsToKeep.size(), OperationsRenewedAtOnce));
    const qsizetype count = some.size();
    const Expected<QList<Operation>> operations = log().takeOperations(some);
    if (!operations) {
        return failure(operations.error());
    }
    m_operationsToKeep.remove(0, count - some.size());
    return library().merge(database(), {{}, subject().place, *operations, m_forecast.superseded()},
                           [] { return Expected<void>(); });
}

Transaction SyncSession::Read::takePart(qsizetype &room) {
    Transaction part;
    ++mergedParts;
    room -= RowsOfRecord;
    while (mergedOperations < transaction.operations.size() && room > 0) {
        part.operations.append(transaction.operations[mergedOperations++]);
        const Operation &operation = part.operations.last();
        room -= 1 + operation.supersedes.size() +
                (operation.title.size() + operation.text.size()) / CharactersInRow;
    }
    const qsizetype count =
        qMin(qMax(room, qsizetype(0)), transaction.superseded.size() - mergedSuperseded);
    part.superseded.append(transaction.superseded.mid(mergedSuperseded, count));
    mergedSuperseded += count;
    room -= count;
    return part;
}

Expected<void> SyncSession::mergeTransactions() {
    if (m_read.isEmpty()) {
        return {};
    }
    Merge merge{{Transaction()}, subject().place, {}, {}};
    Transaction &all = merge.transactions.first();
    QList<Part> parts;
    const qsizetype mergedBefore = m_merged.size();
    qsizetype room = RowsMergedAtOnce;
    while (!m_read.isEmpty() && room > 0) {
        Read &read = m_read.first();
        parts.append({read.name, read.takePart(room), read.mergedParts - 1, {}});
        all.operations.append(parts.last().transaction.operations);
        all.superseded.append(parts.last().transaction.superseded);
        if (read.isMerged()) {
            parts.last().size = read.size;
            m_merged.append(m_read.takeFirst());
        }
    }
    const qint64 count = all.operations.size();
    const QSet<OperationId> damaged = database()->damaged();
    return library().merge(database(), merge, [&] { return addToKnown(parts); }).map([&] {
        addReceived(count);
        reportRepaired(all.operations, damaged);
        for (const Part &part : std::as_const(parts)) {
            addTransactionOfSize(part.size.value_or(0));
        }
        progress().advance(m_merged.size() - mergedBefore);
    });
}

void SyncSession::reportRepaired(const QList<Operation> &operations,
                                 const QSet<OperationId> &damaged) {
    for (const Operation &operation : operations) {
        if (damaged.contains(operation.id)) {
            addProblem(engineError(
                EngineErrorCode::RecordRepaired,
                localizedSyncString("“%1” was damaged on this computer and was read again from the "
                                    "location.")
                    .arg(operation.title.left(80))));
        }
    }
}

Expected<void> SyncSession::addToKnown(const QList<Part> &parts) {
    for (const Part &part : parts) {
        if (Expected<void> added = part.size
                                       ? known().add(part.name, part.transaction, *part.size)
                                       : known().addPart(part.name, part.number, part.transaction);
            !added) {
            return added;
        }
    }
    return {};
}

Expected<void> SyncSession::prepareWriting() {
    progress().begin(SessionProgress::Phase::Writing, m_operationsToWrite.size());
    Expected<void> prepared;
    if (!m_operationsToWrite.isEmpty() || m_isCountWrong) {
        prepared = profile().write([this] {
            const Expected<void> counted =
                m_isCountWrong ? log().recountConflicts() : Expected<void>();
            return counted.and_then([this] {
                return m_operationsToWrite.isEmpty() ? Expected<void>() : log().markAllSent();
            });
        });
    }
    return prepared.and_then([this] { return continueWriting(); });
}

Expected<void> SyncSession::collectUnwritten() {
    m_merged.clear();
    const Expected<bool> isComplete = known().isComplete();
    if (!isComplete) {
        return failure(isComplete.error());
    }
    if (!*isComplete) {
        const Expected<bool> isCountSound = log().isCountOfConflictsSound();
        if (!isCountSound) {
            return failure(isCountSound.error());
        }
        m_isCountWrong = !*isCountSound;
    }
    const auto unwritten =
        *isComplete ? known().unwritten()
                    : known().compare().map([](const KnownTransactions::Unwritten &compared) {
                          return std::optional(compared);
                      });
    return unwritten.map([this](const std::optional<KnownTransactions::Unwritten> &found) {
        m_isRecordWrong = !found;
        if (found) {
            m_operationsToWrite = found->operations;
            m_supersededToWrite = found->superseded;
        }
    });
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
    if (Expected<void> recorded = recordWritten(); !recorded) {
        return recorded;
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

Expected<void> SyncSession::recordWritten() {
    const Expected<bool> isComplete = known().isComplete();
    if (!isComplete || *isComplete || hasFailedToWriteAll()) {
        return isComplete.map([](bool) {});
    }
    return profile().write([this] { return known().setComplete(); }).map([this] {
        database()->setCompared(subject().store);
    });
}
