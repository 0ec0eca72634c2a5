#include "Engine/Synchronization/SyncSession.h"

#include <QtCore/QElapsedTimer>
#include <algorithm>
#include <atomic>
#include <utility>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/ParallelCalls.h"
#include "Engine/Notes/DatabaseRecord.h"
#include "Engine/Notes/DerivedTables.h"
#include "Engine/Notes/EngineNoteLibrary.h"
#include "Engine/Notes/TransactionName.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Synchronization/RecordTiers.h"
#include "Host/SyncStoreLayout.h"
#include "Host/SyncStrings.h"

namespace {

/// Number of bytes after which the records that were read are merged before more are read.
constexpr qsizetype ReadAtOnce = 4LL << 20;
/// The most records of which one step reads as many as that. Looking at all that are unread in each
/// step would take long for a store with many small ones.
constexpr qsizetype NamesAtOnce = 1000;
/// The time that one step on the main thread should take, and the limits of the number of rows that
/// it merges. With fewer, most of the time would be that between the steps.
constexpr qint64 NanosecondsOfStep = 8'000'000;
constexpr qsizetype FewestRowsAtOnce = 100;
constexpr qsizetype MostRowsAtOnce = 2000;
/// Number of merged rows after which the log of the profile is moved. Each adds a few pages to it.
constexpr qsizetype RowsInLog = 1000;
/// Number of operations that one step on the main thread renews, each of which writes several rows.
constexpr qsizetype OperationsRenewedAtOnce = 100;
/// Size in bytes of a record whose identifiers one step on the main thread can handle. With larger
/// ones, so many notes were rewritten that comparing all of them costs little more.
constexpr qint64 MostInStep = 64LL << 10;
/// Size of the records whose transactions are kept in memory until all are compared, in bytes.
constexpr qint64 KeptUntilCompared = 16LL << 20;
/// The number of times that the store is listed again because others rewrite its records before
/// they are read.
constexpr int MostListingsAgain = 5;
/// A removal of more notes than this must be decided by the user if it is more than half of them.
constexpr qint64 FewNotes = 10;

bool isLarge(qint64 removed, qint64 total) {
    return removed > FewNotes && removed * 2 > total;
}

/// Returns the error of a removal that the user must decide about.
Error undecided(qint64 removed, qint64 total) {
    return engineError(
        EngineErrorCode::RemovalUndecided,
        localizedSyncCount("The location removes %1 of %2 notes. Nothing was changed. "
                           "Synchronize again to decide what happens to these notes.",
                           nullptr, total)
            .arg(QString::number(removed), QString::number(total)));
}

}  // namespace

SyncSession::SyncSession(const ProfileDatabase &profile, EngineNoteLibrary &library,
                         Subject subject, RecordVerification::Extent extent)
    : StoreSession(profile, library, std::move(subject)),
      m_verifiesAll(extent == RecordVerification::Extent::All),
      m_verification(extent),
      m_damagedRecords(collectedProblems()) {
    if (database()) {
        rememberDatabase();
    }
}

Expected<void> SyncSession::accessStore(BlobStore &store, const EngineFuture &future) {
    switch (m_step) {
        case Step::Listing:
            return readStore(store, future);
        case Step::Importing:
            return useProfile([this] { return profile().moveLog(); });
        case Step::Comparing:
            return readProfile([this] { return compareListing(); });
        case Step::Forgetting:
        case Step::ForgettingDamaged:
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
        case Step::Importing:
            return importDatabase();
        case Step::Comparing:
            return rememberLost().and_then([this] { return forgetGone(); });
        case Step::Forgetting:
            return forgetGone();
        case Step::Reading:
            return continueReading();
        case Step::Verifying:
            m_gone = m_damagedRecords.lost();
            return rememberLost().and_then([this] { return forgetDamaged(); });
        case Step::ForgettingDamaged:
            return forgetDamaged();
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
    const Contents contents = m_isMuchGone ? Contents::MayBeLost : Contents::MayBeInUnread;
    return forgetSome(m_gone, contents).and_then([this](qsizetype count) -> Expected<void> {
        m_gone.remove(0, count);
        if (!m_gone.isEmpty()) {
            return {};
        }
        m_step = Step::Reading;
        return continueReading();
    });
}

Expected<void> SyncSession::forgetDamaged() {
    m_step = Step::ForgettingDamaged;
    return forgetSome(m_gone).and_then([this](qsizetype count) -> Expected<void> {
        m_gone.remove(0, count);
        return m_gone.isEmpty()
                   ? recordVerification().and_then([this] { return beginCollecting(); })
                   : Expected<void>();
    });
}

Expected<void> SyncSession::readStore(BlobStore &store, const EngineFuture &future) {
    if (!DatabaseRecord::isUUID(subject().databaseUUID)) {
        return failure(engineError(EngineErrorCode::InvalidDatabase,
                                   "“%1” is not a valid identifier of a database. Untick the "
                                   "location for this database.",
                                   subject().databaseUUID));
    }
    if (Expected<void> chosen = readProfile([this] { return m_verification.choose(known()); });
        !chosen) {
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
            m_verification.verify({store, subject().databaseUUID, future}, store.operationsAtOnce(),
                                  future);
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
            m_listed.insert(name);
        } else if (name.endsWith(SyncStoreLayout::RecordEnding)) {
            addProblem(foreignFile(store.place(path(name))));
        }
    }
}

Expected<void> SyncSession::readTransactions(BlobStore &store, const EngineFuture &future) {
    const TransactionRecords records(store, subject().databaseUUID, future);
    m_queue.releaseTaken();
    if (Expected<void> moved = moveLog(); !moved) {
        return moved;
    }
    if (m_pass == Pass::Merging && !isAllMerged()) {
        return future.isCancelled() ? failure(operationCancelled()) : takeParts();
    }
    if (Expected<void> listed = listRewritten(store, future); !listed) {
        return listed;
    }
    const QStringList names = m_unread.first(qMin(m_unread.size(), NamesAtOnce));
    const auto read = records.readSome(
        names, ReadAtOnce, [this] { progress().advance(m_pass == Pass::Comparing ? 1 : 0); });
    QStringList left;
    for (qsizetype i = 0; i < names.size(); ++i) {
        const std::optional<Expected<TransactionRecords::Record>> &record =
            read[static_cast<size_t>(i)];
        if (!record) {
            left.append(names[i]);
        } else if (Expected<void> taken = takeTransaction(records, names[i], *record); !taken) {
            return taken;
        }
    }
    m_unread.remove(0, names.size() - left.size());
    std::copy(left.begin(), left.end(), m_unread.begin());
    const Expected<void> compared =
        m_pass == Pass::Comparing ? compareTransactions() : Expected<void>();
    return compared.and_then([this] { return takeParts(); });
}

Expected<void> SyncSession::takeParts() {
    if (m_pass == Pass::Comparing || m_queue.isEmpty() || !m_parts.isEmpty()) {
        return {};
    }
    return readProfile([this]() -> Expected<void> {
        Expected<QSqlQuery> query = log().prepareSize();
        if (!query) {
            return failure(query.error());
        }
        const auto sizeOf = [&](const OperationId &identifier) {
            return log().size(*query, identifier);
        };
        return m_queue.takeParts(m_rowsAtOnce, sizeOf)
            .map([this](const QList<MergeQueue::Part> &parts) { m_parts = parts; });
    });
}

Expected<void> SyncSession::listRewritten(BlobStore &store, const EngineFuture &future) {
    if (!isRewrittenMeanwhile()) {
        return {};
    }
    m_isAnyMissing = false;
    const Expected<QStringList> names = store.list(folder(), future);
    if (!names) {
        return failure(names.error());
    }
    for (const QString &name : *names) {
        if (TransactionName::isValid(name) && !m_listed.contains(name)) {
            m_unread.append(name);
            m_listed.insert(name);
        }
    }
    if (m_unread.isEmpty()) {
        return {};
    }
    if (++m_listingsAgain > MostListingsAgain) {
        return failure(engineError(EngineErrorCode::StoreUnreachable,
                                   "The records in “%1” were replaced each time before they could "
                                   "be read. Synchronize again.",
                                   store.place(folder())));
    }
    beginPass();
    return {};
}

void SyncSession::beginPass() {
    if (m_pass == Pass::Merging) {
        // What was compared before is merged by now.
        m_released.clear();
        m_compared = 0;
    }
    m_pass = m_isGuarded ? Pass::Comparing : Pass::Merging;
    progress().begin(m_pass == Pass::Comparing ? SessionProgress::Phase::Reading
                                               : SessionProgress::Phase::Merging,
                     m_unread.size());
}

Expected<void> SyncSession::moveLog() {
    if (m_rowsInLog < RowsInLog) {
        return {};
    }
    m_rowsInLog = 0;
    return useProfile([this] { return profile().moveLog(); });
}

Expected<void> SyncSession::takeTransaction(const TransactionRecords &records, const QString &name,
                                            const Expected<TransactionRecords::Record> &record) {
    if (record) {
        const MergeQueue::Entry entry = MergeQueue::entryOf(name, *record);
        if (m_released.value(name, entry.digest) == entry.digest) {
            m_queue.append(entry);
        } else {
            addProblem(
                engineError(EngineErrorCode::DamagedRecord,
                            "The record “%1” has changed while it was read. Synchronize again.",
                            records.place(name)));
            advanceUnmerged();
        }
        return {};
    }
    if (!TransactionRecords::isOfOneOrMissing(record.error())) {
        return failure(record.error());
    }
    advanceUnmerged();
    m_isAnyMissing = m_isAnyMissing || isEngineError(record.error(), EngineErrorCode::BlobMissing);
    const auto known = m_readAgain.constFind(name);
    m_damagedRecords.add(
        {name, known == m_readAgain.constEnd() ? std::nullopt : std::optional(*known)},
        record.error());
    return {};
}

void SyncSession::advanceUnmerged() {
    // Comparing counts every record that is read.
    progress().advance(m_pass == Pass::Merging ? 1 : 0);
}

Expected<void> SyncSession::handleDamage(BlobStore &store, const EngineFuture &future) {
    m_verification.takeResults(m_damagedRecords);
    return m_damagedRecords.setAside({store, subject().databaseUUID, future}, future)
        .and_then([this] {
            const QStringList &lost = m_damagedRecords.lost();
            return lost.isEmpty() ? Expected<void>() : readProfile([&] { return noteLost(lost); });
        });
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
    const Expected<QHash<QString, qint64>> all = known().sizes();
    if (!all) {
        return failure(all.error());
    }
    m_isMergeDue = m_mustCompare && !RecordTiers::full(*all).isEmpty();
    if (Expected<void> chosen = chooseToReadAgain(*all); !chosen) {
        return chosen;
    }
    // What is not listed any more says nothing.
    m_verification.dropResults(m_readAgain, m_listed);
    for (auto each = all->begin(); each != all->end(); ++each) {
        if (!m_listed.contains(each.key()) && !m_readAgain.contains(each.key())) {
            m_gone.append(each.key());
            m_isMuchGone = m_isMuchGone || each.value() >= MostInStep;
        }
    }
    m_unread.removeIf(
        [&](const QString &name) { return all->contains(name) && !m_readAgain.contains(name); });
    const Expected<bool> isGuarded = log().hasMoreNotesThan(FewNotes);
    if (!isGuarded) {
        return failure(isGuarded.error());
    }
    const Expected<QSet<OperationId>> kept = this->kept().all();
    if (!kept) {
        return failure(kept.error());
    }
    m_remembered = *kept;
    m_isGuarded = *isGuarded || isAnswered();
    beginPass();
    return noteLost(m_gone).and_then([this] { return noteMoved(); });
}

Expected<void> SyncSession::noteMoved() {
    if (m_isMuchGone) {
        return {};
    }
    for (const QString &name : std::as_const(m_gone)) {
        const Expected<KnownTransactions::Contents> contents = known().contents(name);
        if (!contents) {
            return failure(contents.error());
        }
        m_movedOperations.unite({contents->operations.begin(), contents->operations.end()});
        m_movedSuperseded.unite({contents->superseded.begin(), contents->superseded.end()});
    }
    return {};
}

bool SyncSession::isMovedLeft(const KnownTransactions::Unwritten &unwritten) const {
    const QSet<OperationId> operations(unwritten.operations.begin(), unwritten.operations.end());
    return operations.intersects(m_movedOperations) ||
           unwritten.superseded.intersects(m_movedSuperseded);
}

Expected<void> SyncSession::chooseToReadAgain(const QHash<QString, qint64> &sizes) {
    const Expected<bool> isComplete = known().isComplete();
    if (!isComplete || (*isComplete && !m_mustCompare)) {
        return isComplete.map([](bool) {});
    }
    const Expected<NoteLog::IdentifierSets> present = log().identifierSets();
    if (!present) {
        return failure(present.error());
    }
    m_damagedOperations.removeIf(
        [&](const OperationId &id) { return !present->operations.contains(id); });
    QSet<QString> needed;
    QHash<QString, RecordTiers::Use> uses;
    Expected<void> chosen =
        known().visitParts([&](const QString &name, const KnownTransactions::Contents &part) {
            if (m_listed.contains(name)) {
                uses[name].add(part.operations, present->operations);
                if (isNeeded(name, part, *present)) {
                    needed.insert(name);
                }
            }
        });
    if (!chosen) {
        return chosen;
    }
    for (auto each = uses.begin(); each != uses.end(); ++each) {
        m_isMergeDue = m_isMergeDue || each->isLow(sizes.value(each.key()));
    }
    for (const QString &name : std::as_const(needed)) {
        const Expected<KnownTransactions::Contents> contents = known().contents(name);
        if (!contents) {
            return failure(contents.error());
        }
        m_readAgain.insert(name, *contents);
    }
    return {};
}

bool SyncSession::isNeeded(const QString &name, const KnownTransactions::Contents &part,
                           const NoteLog::IdentifierSets &present) {
    bool isNeeded =
        !std::all_of(part.superseded.begin(), part.superseded.end(),
                     [&](const OperationId &id) { return present.superseded.contains(id); });
    for (const OperationId &id : part.operations) {
        if (!present.operations.contains(id) && !present.superseded.contains(id)) {
            m_damagedOperations.insert(id);
            // The digest of a name shows that the list of what it contains is damaged instead.
            if (!TransactionName::hasDigest(name)) {
                noteLost(id);
            }
        }
        isNeeded = isNeeded || m_damagedOperations.contains(id);
    }
    return isNeeded;
}

Expected<void> SyncSession::compareTransactions() {
    qint64 size = 0;
    const QList<MergeQueue::Entry> &read = m_queue.waiting();
    for (const MergeQueue::Entry &each : read) {
        size += each.size;
    }
    for (; m_compared < read.size(); ++m_compared) {
        m_forecast.add(read[m_compared].transaction);
    }
    if (size > KeptUntilCompared) {
        for (const MergeQueue::Entry &each : read) {
            m_released.insert(each.name, each.digest);
        }
        m_queue.clear();
        m_compared = 0;
    }
    if (!m_unread.isEmpty() || isRewrittenMeanwhile()) {
        return {};
    }
    // Nothing disappears unless something is superseded.
    const Expected<void> checked = m_forecast.superseded().isEmpty() && !isAnswered()
                                       ? Expected<void>()
                                       : readProfile([this] { return checkRemoval(); });
    return checked.map([this] {
        m_pass = Pass::Merging;
        m_unread = m_released.keys();
        progress().begin(SessionProgress::Phase::Merging,
                         m_unread.size() + m_queue.waiting().size());
    });
}

Expected<void> SyncSession::checkRemoval() {
    const Expected<QList<RemovalForecast::Note>> removed =
        m_forecast.removedNotes(profile(), log().database());
    if (!removed) {
        return failure(removed.error());
    }
    // Counting reads all notes.
    const Expected<qint64> count =
        removed->size() > FewNotes ? log().countOfNotes() : Expected<qint64>(0);
    if (!count) {
        return failure(count.error());
    }
    const Expected<qsizetype> undecidedNotes = countUndecided(*removed);
    if (!undecidedNotes) {
        return failure(undecidedNotes.error());
    }
    if (*undecidedNotes > 0 && isLarge(removed->size(), *count)) {
        Removal removal{{}, {}, *count};
        for (const RemovalForecast::Note &note : *removed) {
            removal.UUIDs.append(note.UUID);
            removal.titles.append(note.title);
        }
        setUndecidedRemoval(removal);
        return failure(undecided(removed->size(), *count));
    }
    return findKept(*removed);
}

Expected<qsizetype> SyncSession::countUndecided(const QList<RemovalForecast::Note> &removed) const {
    const QSet<QString> decided(m_decision.UUIDs.begin(), m_decision.UUIDs.end());
    return kept().all().and_then([&](const QSet<OperationId> &kept) -> Expected<qsizetype> {
        qsizetype count = 0;
        for (const RemovalForecast::Note &note : removed) {
            const Expected<QList<OperationId>> operations = log().operationIds(note.UUID);
            if (!operations) {
                return failure(operations.error());
            }
            const bool isKept = kept.contains({operations->begin(), operations->end()});
            count += isKept || decided.contains(note.UUID) ? 0 : 1;
        }
        return count;
    });
}

Expected<QList<OperationId>> SyncSession::operationsOf(const QStringList &notes) const {
    QList<OperationId> all;
    for (const QString &note : notes) {
        const Expected<QList<OperationId>> operations = log().operationIds(note);
        if (!operations) {
            return failure(operations.error());
        }
        all.append(*operations);
    }
    return all;
}

Expected<void> SyncSession::findKept(const QList<RemovalForecast::Note> &removed) {
    QStringList removedNotes;
    for (const RemovalForecast::Note &note : removed) {
        removedNotes.append(note.UUID);
    }
    const auto threatened = operationsOf(removedNotes);
    const auto decided = operationsOf(m_decision.UUIDs);
    const auto remembered = kept().all();
    if (!threatened || !decided || !remembered) {
        return failure(!threatened ? threatened.error()
                       : !decided  ? decided.error()
                                   : remembered.error());
    }
    // A note that stays because of another edit needs no edit that this one has replaced.
    const QSet<OperationId> replaced =
        m_forecast.superseded() - QSet(threatened->begin(), threatened->end());
    const bool isKept = m_decision.decision == RemovalDecision::Keep;
    const QSet<OperationId> others =
        *remembered - QSet(decided->begin(), decided->end()) - replaced;
    m_operationsToKeep = isKept ? *decided : QList<OperationId>();
    m_operationsToKeep.removeIf([&](const OperationId &each) { return replaced.contains(each); });
    m_isKeepRemembered = false;
    m_remembered = *remembered;
    const auto add = [&](const OperationId &each) {
        if (others.contains(each)) {
            m_operationsToKeep.append(each);
        }
    };
    // Other computers show the notes in the order in which they are renewed.
    return (others.isEmpty() ? Expected<void>() : log().visitOperationIds(add)).map([&] {
        m_decision = isKept ? Decision() : m_decision;
    });
}

Expected<void> SyncSession::recordVerification() {
    const Expected<QString> last = known().lastVerified();
    if (!last) {
        return failure(last.error());
    }
    if (*last == m_verification.last()) {
        return {};
    }
    return profile().write([this] { return known().setLastVerified(m_verification.last()); });
}

Expected<void> SyncSession::importDatabase() {
    m_step = Step::Importing;
    if (database()) {
        beginComparing();
        return {};
    }
    if (m_record == Record::Absent && m_unread.isEmpty()) {
        return failure(
            engineError(EngineErrorCode::InvalidDatabase,
                        "The database “%1” exists neither on this computer nor at the location. "
                        "Synchronize on the computer that has it, then here.",
                        subject().databaseName));
    }
    const QString name = m_recordedName.isEmpty() ? subject().databaseName : m_recordedName;
    return library().importDatabase(subject().databaseUUID, name).map([this](bool isImported) {
        if (isImported) {
            beginComparing();
        }
    });
}

void SyncSession::beginComparing() {
    m_step = Step::Comparing;
    rememberDatabase();
    m_damagedOperations = database()->damaged();
    m_mustCompare = m_verifiesAll || !m_damagedOperations.isEmpty() ||
                    database()->isComparisonDue(subject().store);
}

Expected<void> SyncSession::continueReading() {
    if (m_pass == Pass::Comparing) {
        return {};
    }
    if (!m_operationsToKeep.isEmpty()) {
        return keepNotes();
    }
    return forgetKept()
        .and_then([this] { return mergeTransactions(); })
        .and_then([this]() -> Expected<void> {
            const bool isDone = m_unread.isEmpty() && isAllMerged() && !isRewrittenMeanwhile();
            return isDone ? endReading() : Expected<void>();
        });
}

Expected<void> SyncSession::endReading() {
    progress().begin(SessionProgress::Phase::Preparing);
    if (!m_verification.hasResults() && m_damagedRecords.isEmpty()) {
        return beginCollecting();
    }
    m_step = Step::Verifying;
    return {};
}

Expected<void> SyncSession::beginCollecting() {
    return known().isComplete().map([this](bool isComplete) {
        m_step = isComplete && !m_mustCompare ? Step::Collecting : Step::Restarting;
    });
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
    const Expected<NoteLog::Portion> portion = log().firstOperations(
        m_operationsToKeep.first(qMin(m_operationsToKeep.size(), OperationsRenewedAtOnce)));
    if (!portion) {
        return failure(portion.error());
    }
    const QSet<OperationId> all = m_isKeepRemembered
                                      ? m_remembered
                                      : QSet(m_operationsToKeep.begin(), m_operationsToKeep.end());
    m_operationsToKeep.remove(0, portion->count);
    return library()
        .merge(database(),
               {.place = subject().place,
                .operationsToKeep = portion->operations,
                .supersededByAll = m_forecast.superseded()},
               [&] {
                   return m_isKeepRemembered ? Expected<void>() : kept().replace(m_remembered, all);
               })
        .map([&] {
            m_isKeepRemembered = true;
            m_remembered = all;
        });
}

Expected<void> SyncSession::forgetKept() {
    const QSet<OperationId> remembered = std::exchange(m_remembered, {});
    return remembered.isEmpty() ? Expected<void>()
                                : profile().write([&] { return kept().replace(remembered, {}); });
}

Expected<void> SyncSession::mergeTransactions() {
    if (m_parts.isEmpty()) {
        return {};
    }
    QElapsedTimer elapsed;
    elapsed.start();
    const QList<MergeQueue::Part> parts = std::exchange(m_parts, {});
    Merge merge{.place = subject().place};
    for (const MergeQueue::Part &part : parts) {
        merge.operations.append(part.operations);
        merge.superseded.append(part.contents.superseded);
    }
    return library().merge(database(), merge, [&] { return addToKnown(parts); }).map([&] {
        addReceived(merge.operations.size());
        reportRepaired(merge.operations);
        for (const MergeQueue::Part &part : parts) {
            m_rowsInLog += part.rows;
            addTransactionOfSize(part.contents.size);
            progress().advance(part.isLast ? 1 : 0);
        }
        adaptRowsAtOnce(elapsed.nsecsElapsed());
    });
}

void SyncSession::reportRepaired(const QList<Operation> &operations) {
    for (const Operation &operation : operations) {
        if (m_damagedOperations.remove(operation.id)) {
            StoreSession::reportRepaired(operation.id, operation.title);
        }
    }
}

void SyncSession::adaptRowsAtOnce(qint64 nanoseconds) {
    // Slowly upwards: one step may be quick by chance.
    const qint64 fitting = m_rowsAtOnce * NanosecondsOfStep / qMax(nanoseconds, qint64(1));
    m_rowsAtOnce =
        qBound(FewestRowsAtOnce, qMin(qsizetype(fitting), m_rowsAtOnce * 5 / 4), MostRowsAtOnce);
}

Expected<void> SyncSession::addToKnown(const QList<MergeQueue::Part> &parts) {
    for (const MergeQueue::Part &part : parts) {
        if (Expected<void> added = addToKnown(part); !added) {
            return added;
        }
    }
    return {};
}

Expected<void> SyncSession::addToKnown(const MergeQueue::Part &part) {
    if (!part.isLast) {
        return known().addPart(part.name, part.number, part.contents);
    }
    return part.number == 0 ? known().add(part.name, part.contents)
                            : known().addLastPart(part.name, part.contents);
}

Expected<void> SyncSession::prepareWriting() {
    progress().begin(SessionProgress::Phase::Writing, m_operationsToWrite.size());
    Expected<void> prepared = reportLost().and_then([this] { return eraseReturned(); });
    if (prepared && (!m_operationsToWrite.isEmpty() || m_isCountWrong)) {
        prepared = profile().write([this] {
            const Expected<void> counted =
                m_isCountWrong ? DerivedTables::recountConflicts(profile(), log().database())
                               : Expected<void>();
            return counted.and_then([this] {
                return m_operationsToWrite.isEmpty() ? Expected<void>() : log().markAllSent();
            });
        });
    }
    return prepared.and_then([this] { return continueWriting(); });
}

Expected<void> SyncSession::findFaults() {
    const Expected<bool> isCountSound =
        DerivedTables::isCountOfConflictsSound(profile(), log().database());
    const Expected<QList<OperationId>> returned = log().returnedIds();
    if (!isCountSound || !returned) {
        return failure(isCountSound ? returned.error() : isCountSound.error());
    }
    m_isCountWrong = !*isCountSound;
    m_returned = *returned;
    return findLost();
}

Expected<void> SyncSession::findLost() {
    return lost().remembered().and_then([this](const QSet<OperationId> &remembered) {
        return lost().among(remembered).map([&](const QSet<OperationId> &stillLost) {
            m_hasLostReturned = stillLost.size() < remembered.size();
            m_stillLost = stillLost;
        });
    });
}

Expected<void> SyncSession::reportLost() {
    if (m_stillLost.isEmpty() && !m_hasLostReturned) {
        return {};
    }
    if (!m_stillLost.isEmpty()) {
        const QString text =
            m_verifiesAll ? localizedSyncString(
                                "This computer has lost changes of notes that were not found "
                                "in any record of the location either: %1. They are not "
                                "reported again, and their backups are kept as long as "
                                "others. Synchronize on the other computers, then here, or "
                                "restore a backup of the profile soon.")
                          : localizedSyncString(
                                "This computer has lost changes of notes that are not at the "
                                "location any more either: %1. Synchronize on the other "
                                "computers, then here. If that does not bring them back, "
                                "restore a backup of the profile.");
        addProblem(engineError(EngineErrorCode::InvalidDatabase, text.arg(m_stillLost.size())));
    }
    // A repair has reported that nothing is left to try.
    return profile().write(
        [this] { return lost().remember(m_verifiesAll ? QSet<OperationId>() : m_stillLost); });
}

Expected<void> SyncSession::eraseReturned() {
    return m_returned.isEmpty() ? Expected<void>()
                                : database()->eraseReturned(std::exchange(m_returned, {}));
}

Expected<void> SyncSession::collectUnwritten() {
    m_queue.releaseTaken();
    const Expected<bool> isComplete = known().isComplete();
    if (!isComplete) {
        return failure(isComplete.error());
    }
    if (Expected<void> found = *isComplete ? Expected<void>() : findFaults(); !found) {
        return found;
    }
    const auto unwritten =
        *isComplete ? known().unwritten()
                    : known().compare().map([](const KnownTransactions::Unwritten &compared) {
                          return std::optional(compared);
                      });
    return unwritten.map([&](const std::optional<KnownTransactions::Unwritten> &found) {
        // What has moved may be in a record that was known before, which only a comparison finds.
        m_isRecordWrong = !found || (*isComplete && isMovedLeft(*found));
        if (!m_isRecordWrong) {
            const QSet<OperationId> returned(m_returned.begin(), m_returned.end());
            m_operationsToWrite = found->operations;
            m_operationsToWrite.removeIf(
                [&](const OperationId &identifier) { return returned.contains(identifier); });
            m_supersededToWrite = found->superseded;
        }
    });
}

Expected<void> SyncSession::continueWriting() {
    const Expected<bool> remains = hasMoreToWrite();
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
