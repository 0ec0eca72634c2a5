#include <sys/syscall.h>

#include <QtCore/QEventLoop>
#include <condition_variable>
#include <future>
#include <mutex>

#include "Engine/Notes/EngineDatabase.h"
#include "Engine/Notes/Transaction.h"
#include "Engine/Notes/TransactionName.h"
#include "Engine/Synchronization/CleanSession.h"
#include "Engine/Synchronization/SyncJob.h"
#include "Engine/Synchronization/SyncSession.h"
#include "Host/SyncStoreLayout.h"
#include "Platform/Foundation/MainQueue.h"
#include "Support/FailingSystemCall.h"
#include "Support/Failure.h"
#include "Support/SessionTestCase.h"

namespace {

/// A store whose reads of transactions wait for each other, as if it was far away, and so do its
/// writes.
class DistantStore : public MemoryStore {
public:
    static constexpr int AtOnce = 4;

    /// Reads wait until `reads` of them have come at the same time.
    explicit DistantStore(Blobs &blobs, int reads = AtOnce)
        : MemoryStore(blobs), m_readsToAwait(reads) {}

    int operationsAtOnce() const override { return AtOnce; }
    /// Return the greatest numbers of reads and of writes at the same time.
    int mostReads() const { return m_mostReads; }
    int mostWrites() const { return m_mostWrites; }
    /// Returns the transactions in the order in which they were written.
    const QList<Transaction> &written() const { return m_written; }

protected:
    Expected<QStringList> listFolder(const QString &folder, const EngineFuture &future) override {
        const std::lock_guard lock(m_mutex);
        return MemoryStore::listFolder(folder, future);
    }
    Expected<Written> writeBlob(const QString &name, const QByteArray &contents,
                                const EngineFuture &future) override {
        std::unique_lock lock(m_mutex);
        if (const auto transaction = Transaction::decoded(contents, name)) {
            m_mostWrites = qMax(m_mostWrites, ++m_writes);
            m_changed.notify_all();
            m_changed.wait_for(lock, std::chrono::seconds(5),
                               [&] { return m_mostWrites == operationsAtOnce(); });
            --m_writes;
            m_written.append(*transaction);
        }
        return MemoryStore::writeBlob(name, contents, future);
    }
    Expected<QByteArray> readBlob(const QString &name, qint64 limit,
                                  const EngineFuture &future) override {
        std::unique_lock lock(m_mutex);
        if (!name.startsWith(QStringLiteral("transactions/"))) {
            return MemoryStore::readBlob(name, limit, future);
        }
        m_mostReads = qMax(m_mostReads, ++m_reads);
        m_changed.notify_all();
        m_changed.wait_for(lock, std::chrono::seconds(5),
                           [&] { return m_mostReads >= m_readsToAwait; });
        --m_reads;
        return MemoryStore::readBlob(name, limit, future);
    }

private:
    const int m_readsToAwait;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    int m_reads = 0;
    int m_mostReads = 0;
    int m_writes = 0;
    int m_mostWrites = 0;
    QList<Transaction> m_written;
};

/// A store that calls a function on the worker thread after each listing and each read.
class WatchedStore : public MemoryStore {
public:
    WatchedStore(Blobs &blobs, std::function<void(const QString &path)> accessed)
        : MemoryStore(blobs), m_accessed(std::move(accessed)) {}

protected:
    Expected<QStringList> listFolder(const QString &folder, const EngineFuture &future) override {
        Expected<QStringList> names = MemoryStore::listFolder(folder, future);
        m_accessed(folder);
        return names;
    }
    Expected<QByteArray> readBlob(const QString &name, qint64 limit,
                                  const EngineFuture &future) override {
        Expected<QByteArray> contents = MemoryStore::readBlob(name, limit, future);
        m_accessed(name);
        return contents;
    }

private:
    const std::function<void(const QString &path)> m_accessed;
};

}  // namespace

/// What a session writes to a store and removes from it while profile or store are not what they
/// should be, or while its job is cancelled.
class StoreSessionTest : public SessionTestCase {
    Q_OBJECT
private:
    /// Runs a session whose first write is only half kept.
    template <class Session>
    Expected<void> runWithTornWrite() {
        Session session = newSession<Session>();
        const auto before = m_blobs.size();
        MemoryStore store(m_blobs, [&] {
            return m_blobs.size() == before ? MemoryStore::Fault::HalfKept
                                            : MemoryStore::Fault::None;
        });
        return runSession(session, store);
    }

    /// Synchronizes and returns the problems. `nextFault` is called before each operation.
    QStringList problems(const MemoryStore::NextFault &nextFault) {
        SyncSession session = newSession<SyncSession>();
        MemoryStore store(m_blobs, nextFault);
        QStringList problems{description(runSession(session, store))};
        for (const Error &problem : session.problems().kept()) {
            problems.append(problem.localizedDescription);
        }
        problems.removeAll(QString());
        return problems;
    }
    QStringList problems() {
        return problems([] { return MemoryStore::Fault::None; });
    }

    /// Runs a job that is cancelled while the store returns what begins with `path`.
    Expected<void> runCancelledJob(const QString &path) {
        WorkerThreads threads;
        std::shared_ptr<SyncJob> job;
        const auto cancel = [&](const QString &accessed) {
            if (accessed.startsWith(path)) {
                std::promise<void> cancelled;
                MainQueue::dispatchAsync([&] {
                    job->cancel();
                    cancelled.set_value();
                });
                cancelled.get_future().wait();
            }
        };
        job =
            std::make_shared<SyncJob>(SyncJob::Kind::Synchronization, profile(), m_host->library(),
                                      subject(), std::make_shared<WatchedStore>(m_blobs, cancel));
        QEventLoop loop;
        job->start(threads, [&] { loop.quit(); });
        loop.exec();
        return job->result();
    }

    QStringList records() const {
        QStringList names;
        for (const auto &[name, record] : m_blobs) {
            if (name.startsWith(QStringLiteral("transactions/")) &&
                name.endsWith(QStringLiteral(".json"))) {
                names.append(name);
            }
        }
        return names;
    }

    /// Renames all records as a program did that wrote no digests.
    void giveOldNames() {
        const QStringList names = records();
        for (const QString &name : names) {
            const QString old = QUuid::createUuid().toString(QUuid::WithoutBraces);
            m_blobs[QStringLiteral("transactions/@inbox/%1.json").arg(old)] = m_blobs.at(name);
            m_blobs.erase(name);
        }
    }

    /// Changes a superseded identifier, which leaves a valid record.
    void changeSuperseded() {
        for (auto &[name, record] : m_blobs) {
            const QByteArray key = "\"superseded\":[\"";
            const qsizetype at = record.indexOf(key);
            if (at >= 0) {
                char &digit = record[at + key.size()];
                digit = digit == '0' ? '1' : '0';
            }
        }
    }

    QSet<QString> titles() {
        QSet<QString> titles;
        const QList<Note> notes = m_host->inbox()->notes().value();
        for (const Note &note : notes) {
            titles.insert(note.title);
        }
        return titles;
    }

    QSet<QString> titlesOnAnotherComputer() {
        m_host->goToComputer(QStringLiteral("Other"));
        return run<SyncSession>() ? titles() : QSet<QString>();
    }

private Q_SLOTS:
    void init() { beginWithNotes({QStringLiteral("a"), QStringLiteral("b")}); }
    void cleanup() { m_host.reset(); }

    void recordsOfADistantStoreAreReadSeveralAtATime() {
        for (int i = 0; i < 10; ++i) {
            saveNote(QString::number(i));
            QVERIFY(run<SyncSession>());
        }
        const QSet<QString> expected = titles();
        m_host->goToComputer(QStringLiteral("Other"));
        {
            SyncSession session = newSession<SyncSession>();
            DistantStore store(m_blobs);
            QVERIFY(runSession(session, store));
            QCOMPARE(store.mostReads(), store.operationsAtOnce());
            QCOMPARE(titles(), expected);
        }
        // Nothing is new, so records are verified.
        SyncSession session = newSession<SyncSession>();
        DistantStore store(m_blobs);
        QVERIFY(runSession(session, store));
        QCOMPARE(store.mostReads(), store.operationsAtOnce());
        QVERIFY(session.problems().kept().isEmpty());
    }

    void ofManyProblemsOnlyTheFirstAreKept() {
        constexpr qint64 count = 2 * Problems::MostKept;
        for (int i = 0; i < count; ++i) {
            m_blobs[QStringLiteral("transactions/@inbox/no-record-%1.json").arg(i)] = "x";
        }
        MemoryStore store(m_blobs);
        SyncSession session = newSession<SyncSession>();
        QVERIFY(runSession(session, store));
        QCOMPARE(session.problems().count(), count);
        QCOMPARE(session.problems().kept().size(), Problems::MostKept);
    }

    void recordsThatCannotBeReadCountAsProgress() {
        constexpr qint64 count = 5;
        for (int i = 0; i < count; ++i) {
            const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces);
            m_blobs[QStringLiteral("transactions/@inbox/%1.json").arg(name)] = "x";
        }
        MemoryStore store(m_blobs);
        SyncSession session = newSession<SyncSession>();
        const EngineFuture future;
        qint64 done = 0;
        while (!session.isDone()) {
            QVERIFY(session.accessStore(store, future));
            const SessionProgress &progress = std::as_const(session).progress();
            if (progress.phase() == SessionProgress::Phase::Merging) {
                QCOMPARE(progress.total(), count);
                done = progress.done();
            }
            QVERIFY(session.accessProfile());
        }
        QCOMPARE(done, count);
    }

    void damagedRecordsAreForgottenInShortSteps() {
        constexpr int count = 1000;
        const qint64 database = m_host->library().synchronizedDatabase(InboxUUID)->log().database();
        const KnownTransactions known(profile(), subject().store, database);
        QVERIFY(profile().write([&] {
            Expected<void> added;
            for (int i = 0; added && i < count; ++i) {
                const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces) +
                                     SyncStoreLayout::RecordEnding;
                m_blobs[QStringLiteral("transactions/@inbox/") + name] = "x";
                added = known.add(name, {{}, {OperationId(16, 'x')}}, 1);
            }
            return added;
        }));
        MemoryStore store(m_blobs);
        SyncSession session(profile(), m_host->library(), subject(),
                            RecordVerification::Extent::All);
        const EngineFuture future;
        qsizetype left = known.sizes().value().size();
        QCOMPARE_GE(left, count);
        while (!session.isDone()) {
            QVERIFY(session.accessStore(store, future));
            QVERIFY(session.accessProfile());
            const qsizetype now = known.sizes().value().size();
            QCOMPARE_LE(left - now, 400);
            left = now;
        }
        QCOMPARE_LT(left, 10);
    }

    void recordsAreWrittenToADistantStoreSeveralAtATime() {
        QVERIFY(m_host->inbox()->removeNote(m_host->inbox()->notes().value().first()));
        for (int i = 0; i < 5; ++i) {
            Note note{{}, QString::number(i), QString(Transaction::UsualSize, u'x'), {}};
            QVERIFY(m_host->inbox()->saveNote(note));
        }
        SyncSession session = newSession<SyncSession>();
        DistantStore store(m_blobs, 1);
        QCOMPARE(description(runSession(session, store)), QString());
        QCOMPARE(store.mostWrites(), store.operationsAtOnce());
        QCOMPARE(session.sent(), 5);
        // What is superseded comes last, also of what is written at the same time.
        QCOMPARE(store.written().size(), 5);
        for (const Transaction &transaction : store.written().first(4)) {
            QVERIFY(transaction.superseded.isEmpty());
        }
        QCOMPARE(store.written().last().superseded.size(), 1);
        const QSet<QString> expected = titles();
        QCOMPARE(titlesOnAnotherComputer(), expected);
    }

    void largeRecordsOfADistantStoreAreReadToo() {
        for (int i = 0; i < 3; ++i) {
            Note note{{}, QStringLiteral("large %1").arg(i), QString(5 << 20, u'x'), {}};
            QVERIFY(m_host->inbox()->saveNote(note));
        }
        const QSet<QString> expected = titles();
        QVERIFY(run<SyncSession>());
        m_host->goToComputer(QStringLiteral("Other"));
        SyncSession session = newSession<SyncSession>();
        DistantStore store(m_blobs, 1);
        QVERIFY(runSession(session, store));
        QCOMPARE(titles(), expected);
    }

    void cleaningUpKeepsWhatTheProfileHasLost() {
        QVERIFY(profile().run(QStringLiteral("DELETE FROM operations WHERE title = 'a'")));
        QCOMPARE(titles(), QSet{QStringLiteral("b")});
        QVERIFY(run<CleanSession>());
        m_host->leaveUnverified("the profile has lost a change");
        QCOMPARE(titlesOnAnotherComputer(), (QSet{QStringLiteral("a"), QStringLiteral("b")}));
    }

    void synchronizingAfterCleaningUpRestoresWhatTheProfileHasLost() {
        QVERIFY(profile().run(QStringLiteral("DELETE FROM operations WHERE title = 'a'")));
        QVERIFY(run<CleanSession>());
        QVERIFY(run<SyncSession>());
        QCOMPARE(titles(), (QSet{QStringLiteral("a"), QStringLiteral("b")}));
    }

    void nothingIsSupersededBeforeItsSuccessorIsWritten() {
        const QList<Note> notes = m_host->inbox()->notes().value();
        for (Note note : notes) {
            note.text = QString(Transaction::UsualSize, u'x');
            QVERIFY(m_host->inbox()->saveNote(note));
        }
        const MemoryStore::Blobs before = m_blobs;
        QVERIFY(run<SyncSession>());
        QCOMPARE(m_blobs.size(), before.size() + notes.size());
        for (const auto &[name, record] : m_blobs) {
            if (name.startsWith(QLatin1StringView("transactions/"))) {
                const auto transaction = Transaction::decoded(record, name);
                QVERIFY(transaction && transaction->superseded.isEmpty());
            }
        }
    }

    void aChangedDeletionIsNoticedByTheNameOfItsRecord() {
        QVERIFY(m_host->inbox()->removeNote(m_host->inbox()->notes().value().first()));
        QVERIFY(run<SyncSession>());
        changeSuperseded();
        m_host->goToComputer(QStringLiteral("Other"));
        QCOMPARE(problems().size(), 1);
        QCOMPARE(titles(), (QSet{QStringLiteral("a"), QStringLiteral("b")}));
        m_host->goToComputer(QStringLiteral("Profile"));
        QCOMPARE(problems(), QStringList());
        QCOMPARE(titlesOnAnotherComputer(), QSet{QStringLiteral("b")});
    }

    void aChangedRecordWithAnOldNameIsNoticedByComputersThatHaveReadIt() {
        QVERIFY(m_host->inbox()->removeNote(m_host->inbox()->notes().value().first()));
        QVERIFY(run<SyncSession>());
        giveOldNames();
        QCOMPARE(problems(), QStringList());
        QCOMPARE(problems(), QStringList());
        changeSuperseded();
        QCOMPARE(problems().size(), 1);
        QCOMPARE(titlesOnAnotherComputer(), QSet{QStringLiteral("b")});
    }

    void aFailedVerificationIsReportedAndChangesNothing() {
        const MemoryStore::Blobs before = m_blobs;
        int operations = 0;
        // After the record of the database and the listing.
        const QStringList told = problems([&] {
            return ++operations > 2 ? MemoryStore::Fault::Unreachable : MemoryStore::Fault::None;
        });
        QCOMPARE(operations, 3);
        QCOMPARE(told.size(), 1);
        QCOMPARE(m_blobs, before);
        QCOMPARE(problems(), QStringList());
        QCOMPARE(m_blobs, before);
    }

    void eachSynchronizationVerifiesAShareOfTheRecords() {
        constexpr qsizetype count = 20;
        for (qsizetype i = records().size(); i < count; ++i) {
            saveNote(QString::number(i));
            QVERIFY(run<SyncSession>());
        }
        QCOMPARE(records().size(), count);
        const QString last = records().last();
        m_blobs[last] = "damaged";
        QStringList told;
        int sessions = 0;
        while (told.isEmpty() && sessions < 10) {
            ++sessions;
            int operations = 0;
            told = problems([&] {
                ++operations;
                return MemoryStore::Fault::None;
            });
            QVERIFY(!told.isEmpty() || operations == 2 + RecordVerification::MostRecords);
        }
        QVERIFY(sessions <= 3);
        QVERIFY(told.first().contains(QFileInfo(last).fileName()));
        QCOMPARE(records().size(), count);
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(problems(), QStringList());
        }
    }

    void aRecordThatIsListedButNotReturnedIsWrittenAgain() {
        const QString withheld = records().first();
        m_blobs[withheld] = MemoryStore::Withheld;
        const QStringList told = problems();
        QCOMPARE(told.size(), 1);
        QVERIFY(told.first().contains(QFileInfo(withheld).fileName()));
        QVERIFY(told.first().contains(QStringLiteral("writes its contents again")));
        QCOMPARE(records().size(), 3);
        QCOMPARE(titlesOnAnotherComputer(), (QSet{QStringLiteral("a"), QStringLiteral("b")}));
    }

    void aNewRecordThatIsListedButNotReturnedIsAProblemUntilItIsReturned() {
        m_host->goToComputer(QStringLiteral("Other"));
        for (int i = 0; i < 2; ++i) {
            const QStringList told = problems([operations = 0]() mutable {
                // After the record of the database and the listing.
                return ++operations == 3 ? MemoryStore::Fault::Withhold : MemoryStore::Fault::None;
            });
            QCOMPARE(told.size(), 1);
            QVERIFY(told.first().contains(QStringLiteral("does not return it. Check")));
            m_host->goToComputer(QStringLiteral("Third"));
        }
        m_host->goToComputer(QStringLiteral("Other"));
        QCOMPARE(problems(), QStringList());
        QCOMPARE(titles(), (QSet{QStringLiteral("a"), QStringLiteral("b")}));
    }

    void aRecordThatAnotherComputerRemovesMeanwhileIsNoProblem() {
        for (const QString &computer : {QStringLiteral("Profile"), QStringLiteral("Other")}) {
            m_host->goToComputer(computer);
            const QString removed = records().first();
            QCOMPARE(problems([&, operations = 0]() mutable {
                         if (++operations == 3) {
                             m_blobs.erase(removed);
                         }
                         return MemoryStore::Fault::None;
                     }),
                     QStringList());
        }
    }

    /// As after a program was killed while it wrote the copy to a server that keeps what arrived.
    void aDamagedRecordIsMovedAlthoughACopyWasCutOff() {
        const QString name = records().first();
        QByteArray &record = m_blobs[name];
        record.chop(1);
        const QByteArray damaged = record;
        const QString fileName = name.section(u'/', -1);
        const QString cutOff =
            name.chopped(fileName.size()) + TransactionName::ofDamaged(fileName, damaged);
        m_blobs[cutOff] = damaged.first(10);
        SyncSession session(profile(), m_host->library(),
                            {InboxUUID, QStringLiteral("Inbox"), QStringLiteral("store")},
                            RecordVerification::Extent::All);
        MemoryStore store(m_blobs);
        QVERIFY(runSession(session, store));
        QVERIFY(!m_blobs.contains(name));
        QCOMPARE(m_blobs.at(cutOff), damaged.first(10));
        QCOMPARE(std::count_if(m_blobs.begin(), m_blobs.end(),
                               [&](const auto &blob) { return blob.second == damaged; }),
                 1);
        QCOMPARE(titlesOnAnotherComputer(), (QSet{QStringLiteral("a"), QStringLiteral("b")}));
    }

    void aRecordOfANewerVersionIsNeitherMovedNorChanged() {
        const QByteArray newer = "{\"version\":2}";
        m_blobs[QStringLiteral("transactions/@inbox/") + TransactionName::of(newer)] = newer;
        // A later version may derive names in another way.
        m_blobs[QStringLiteral("transactions/@inbox/") + TransactionName::of("other")] = newer;
        const MemoryStore::Blobs before = m_blobs;
        for (int i = 0; i < 2; ++i) {
            QVERIFY(problems().value(0).contains(QStringLiteral("newer version")));
            QCOMPARE(m_blobs, before);
        }
    }

    void aRecordThatIsChangedToLookNewerIsWrittenAgain() {
        const QString changed = records().first();
        QByteArray &record = m_blobs[changed];
        record.replace("\"version\":1", "\"version\":3");
        const QByteArray before = record;
        QVERIFY(problems().value(0).contains(QStringLiteral("newer version")));
        QCOMPARE(m_blobs.at(changed), before);
        QCOMPARE(titlesOnAnotherComputer(), (QSet{QStringLiteral("a"), QStringLiteral("b")}));
    }

    void aDatabaseRecordOfWhichTheStoreKeepsHalfIsReportedAndWrittenAgain() {
        m_blobs.erase(QStringLiteral("databases/@inbox.json"));
        const auto before = m_blobs.size();
        const QStringList told = problems([&, isKept = false]() mutable {
            // The first operation that writes follows the reads of the records.
            const bool isWrite = !std::exchange(isKept, m_blobs.size() > before);
            return isWrite ? MemoryStore::Fault::HalfKept : MemoryStore::Fault::None;
        });
        QCOMPARE(told.size(), 1);
        QVERIFY(told.first().contains(QStringLiteral("databases/@inbox.json” is damaged")));
        QVERIFY(problems().value(0).contains(QStringLiteral("is written again")));
        QCOMPARE(problems(), QStringList());
    }

    void aNameThatReplacesMoreNamesThanOneOperationHoldsIsSynchronized() {
        const auto database =
            std::dynamic_pointer_cast<EngineDatabase>(m_host->addDatabase(QStringLiteral("Mine")));
        Merge names;
        for (qint64 i = 0; i < Operation::SupersedesLimit + 10; ++i) {
            names.operations.append(Operation::make({}, QString::number(i), {}, i, {}));
        }
        QVERIFY(m_host->library().merge(database, names, [] { return Expected<void>(); }));
        m_host->renameDatabase(database, QStringLiteral("First"));
        m_host->renameDatabase(database, QStringLiteral("Second"));
        const StoreSession::Subject subject{database->UUID(), QStringLiteral("?"),
                                            QStringLiteral("store")};
        for (const QString &computer : {QStringLiteral("Profile"), QStringLiteral("Other")}) {
            SyncSession session(profile(), m_host->library(), subject);
            MemoryStore store(m_blobs);
            QCOMPARE(description(runSession(session, store)), QString());
            QCOMPARE(session.problems().count(), 0);
            const auto found = m_host->library().synchronizedDatabase(subject.databaseUUID);
            QCOMPARE(found->name(), QStringLiteral("Second"));
            QCOMPARE(found->log().operationIds().value().size(), 1);
            if (computer == QStringLiteral("Profile")) {
                m_host->goToComputer(QStringLiteral("Other"));
            }
        }
    }

    void aRecordOfWhichTheStoreKeepsHalfIsWrittenAgain() {
        saveNote(QStringLiteral("c"));
        const Expected<void> synchronized = runWithTornWrite<SyncSession>();
        QCOMPARE(code(synchronized), EngineErrorCode::DamagedRecord);
        QVERIFY(description(synchronized).contains(QStringLiteral("transactions/@inbox/")));
        QVERIFY(run<SyncSession>());
        QCOMPARE(titlesOnAnotherComputer(),
                 (QSet{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
    }

    void aJobThatIsCancelledWithNothingToSendIsNotASuccess() {
        const Expected<void> ended = runCancelledJob(QStringLiteral("transactions/@inbox"));
        QVERIFY(!ended);
        QCOMPARE(code(ended), EngineErrorCode::Cancelled);
    }

    void aJobWithoutAThreadFails() {
        WorkerThreads threads;
        const auto job =
            std::make_shared<SyncJob>(SyncJob::Kind::Synchronization, profile(), m_host->library(),
                                      subject(), std::make_shared<MemoryStore>(m_blobs));
        QEventLoop loop;
        runWithFailingSystemCall(SYS_clone3, EAGAIN,
                                 [&] { job->start(threads, [&] { loop.quit(); }); });
        loop.exec();
        QCOMPARE(code(job->result()), EngineErrorCode::StoreUnreachable);
        QVERIFY(description(job->result()).contains(QStringLiteral("thread")));
    }

    void whatACancelledJobHasWrittenIsRecorded() {
        m_host.reset();
        beginWithNotes({});
        QVERIFY(run<SyncSession>());
        // So many are recorded in several steps.
        constexpr int count = 1100;
        Merge merge{.place = {}};
        for (int i = 0; i < count; ++i) {
            const QString UUID = QUuid::createUuid().toString(QUuid::WithoutBraces);
            merge.operations.append(Operation::make(UUID, UUID, {}, i, {}));
        }
        const auto database = m_host->library().synchronizedDatabase(InboxUUID);
        QVERIFY(m_host->library().merge(database, merge, [] { return Expected<void>(); }));
        const KnownTransactions known(profile(), subject().store, database->log().database());
        QVERIFY(known.hasUnwritten().value());
        // That was all there was to do.
        QCOMPARE(description(runCancelledJob(QStringLiteral("transactions/@inbox/"))), QString());
        QCOMPARE(records().size(), 1);
        QVERIFY(!known.hasUnwritten().value());
    }

    void anInterruptedSessionDoesNotReadTheProfile() {
        auto session = newSession<SyncSession>();
        MemoryStore store(m_blobs);
        const EngineFuture future;
        QVERIFY(session.accessStore(store, future));
        QVERIFY(session.accessProfile());
        session.interrupt();
        QCOMPARE(code(session.accessStore(store, future)), EngineErrorCode::Cancelled);
    }

    void cleaningUpRemovesNothingIfTheStoreKeepsHalf() {
        const MemoryStore::Blobs before = m_blobs;
        QCOMPARE(code(runWithTornWrite<CleanSession>()), EngineErrorCode::DamagedRecord);
        QCOMPARE(m_blobs, before);
    }
};

VELMORA_TEST(StoreSessionTest)
#include "StoreSessionTest.moc"
