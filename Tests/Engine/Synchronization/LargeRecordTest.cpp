#include <ctime>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Notes/Transaction.h"
#include "Engine/Notes/TransactionName.h"
#include "Engine/Profile/ReadOnlyConnection.h"
#include "Engine/Synchronization/RecordTiers.h"
#include "Engine/Synchronization/SyncSession.h"
#include "Host/InboxUUID.h"
#include "Support/MemoryStore.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

constexpr int Identifiers = 20'000;
/// So many that they are merged in several steps.
constexpr int FewerIdentifiers = 4000;
constexpr int SmallRecords = 1000;
/// So many notes that a removal of them is foreseen.
constexpr int NotesToAsk = 11;
/// What a step may write in rows; a merge in one step writes many times as many.
constexpr qint64 MostRows = 5000;

/// Counts the rows that the main thread writes to a profile for one block of the main queue. Must
/// be used on the main thread.
class RowsPerBlock : public QObject {
public:
    explicit RowsPerBlock(const ProfileDatabase &profile)
        : m_profile(profile), m_before(written()), m_written(m_before) {
        qApp->installEventFilter(this);
    }

    /// Returns the most rows so far.
    qint64 most() {
        note();
        return m_most;
    }

    /// Returns all rows so far.
    qint64 all() const { return written() - m_before; }

    int blocks() const { return m_blocks; }

    bool eventFilter(QObject * /*receiver*/, QEvent *event) override {
        // Each block is an event of this type.
        if (event->type() == QEvent::User) {
            ++m_blocks;
            note();
        }
        return false;
    }

private:
    qint64 written() const {
        return m_profile.value(QStringLiteral("SELECT total_changes()")).value().toLongLong();
    }
    void note() {
        const qint64 now = written();
        m_most = std::max(m_most, now - std::exchange(m_written, now));
    }

    const ProfileDatabase &m_profile;
    const qint64 m_before;
    qint64 m_written;
    qint64 m_most = 0;
    int m_blocks = 0;
};

/// Returns the time that the processor has spent on the current thread or on the whole process.
std::chrono::nanoseconds processorTime(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

}  // namespace

/// Valid records of any size and number are merged in short steps, between which the main thread
/// returns to its event loop.
class LargeRecordTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;
    std::shared_ptr<QVSyncState> m_state;

    void write(const Transaction &transaction) const {
        const QByteArray record = transaction.encoded();
        const QString folder =
            m_state->destination()->URL().path() + QStringLiteral("/transactions/@inbox/");
        QVERIFY(QDir().mkpath(folder));
        QFile file(folder + TransactionName::of(record));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(record), record.size());
    }
    static OperationId identifier(int number) {
        return QByteArray::number(number).rightJustified(Operation::IdentifierSize, 'x');
    }
    void writeLargeRecord(int identifiers = Identifiers) const {
        Transaction transaction;
        for (int i = 0; i < identifiers; ++i) {
            transaction.superseded.append(identifier(i));
        }
        write(transaction);
    }

    void synchronize() const {
        bool isDone = false;
        m_host->engine().plugin().dispatcher()->performSynchronizationsWithSynchronizationStates(
            {m_state}, [&] { isDone = true; });
        QTRY_VERIFY_WITH_TIMEOUT(isDone, 100'000);
    }
    int count(const char *table) const {
        return m_host->engine()
            .profile()
            .value(QStringLiteral("SELECT count(*) FROM %1").arg(QLatin1StringView(table)))
            .value()
            .toInt();
    }
    qsizetype knownRecords() const {
        const auto location = std::dynamic_pointer_cast<EngineSyncLocation>(m_state->destination());
        const auto inbox = m_host->library().synchronizedDatabase(InboxUUID);
        return KnownTransactions(m_host->engine().profile(), location->identifier(),
                                 inbox->log().database())
            .sizes()
            .value()
            .size();
    }
    bool hasEntry(const QString &text) const {
        const auto entries = m_host->application().logEntries();
        return std::any_of(entries.begin(), entries.end(),
                           [&](const auto &entry) { return entry.info.contains(text); });
    }

private Q_SLOTS:
    void init() {
        m_host = std::make_unique<TestHost>();
        const auto location = m_host->addLocation();
        m_state = m_host->addState(location, m_host->inbox());
        m_state->setEnabled(true);
        m_host->save();
    }
    void cleanup() {
        m_state.reset();
        m_host.reset();
    }

    void aLargeRecordIsMergedInShortStepsAndComparedOffTheMainThread() {
        writeLargeRecord();
        // How long a step takes is not known before the first one, which is small.
        int first = 0;
        const QMetaObject::Connection connection =
            connect(m_host->inbox().get(), &NoteDatabase::notesChanged, this,
                    [&] { first = first == 0 ? count("superseded") : first; });
        RowsPerBlock rows(m_host->engine().profile());
        synchronize();
        disconnect(connection);
        QCOMPARE_GT(first, 0);
        QCOMPARE_LT(first, 500);
        QCOMPARE_LE(rows.most(), MostRows);
        QCOMPARE(count("superseded"), Identifiers);
        QCOMPARE(knownRecords(), 1);

        const auto ofThread = processorTime(CLOCK_THREAD_CPUTIME_ID);
        const auto ofProcess = processorTime(CLOCK_PROCESS_CPUTIME_ID);
        synchronize();
        const auto threadTime = processorTime(CLOCK_THREAD_CPUTIME_ID) - ofThread;
        const auto processTime = processorTime(CLOCK_PROCESS_CPUTIME_ID) - ofProcess;
        QCOMPARE_LT(threadTime.count() * 2, processTime.count());
        QCOMPARE(knownRecords(), 1);
    }

    void whatIsMergedIsMovedFromTheLogIntoTheFileMeanwhile() {
        writeLargeRecord();
        synchronize();
        const QTemporaryDir folder;
        const QString copy = folder.filePath(QStringLiteral("copy.sqlite"));
        QVERIFY(QFile::copy(m_host->engine().profile().path(), copy));
        const auto file = ReadOnlyConnection::open(copy, ReadOnlyConnection::Sharing::Immutable);
        QVERIFY(file);
        const auto moved = (*file)->value(QStringLiteral("SELECT count(*) FROM superseded"));
        QCOMPARE_GT(moved.value().toInt(), Identifiers / 2);
    }

    void aLargeRecordIsMergedInShortStepsAfterAForecast() {
        for (int i = 0; i < NotesToAsk; ++i) {
            Note note{.UUID = QUuid::createUuid().toString(QUuid::WithoutBraces)};
            QVERIFY(m_host->inbox()->saveNote(note));
        }
        writeLargeRecord(Identifiers / 2);
        RowsPerBlock rows(m_host->engine().profile());
        synchronize();
        QCOMPARE_LE(rows.most(), MostRows);
        QCOMPARE_GT(rows.all(), MostRows);
        QCOMPARE(count("superseded"), Identifiers / 2);
        QCOMPARE(count("operations"), NotesToAsk);
    }

    void aProfileCanBeClosedDuringEachStep() {
        writeLargeRecord(FewerIdentifiers);
        synchronize();
        for (int blocks = 0; blocks < 5; ++blocks) {
            {
                const RowsPerBlock rows(m_host->engine().profile());
                m_host->engine()
                    .plugin()
                    .dispatcher()
                    ->performSynchronizationsWithSynchronizationStates({m_state});
                QTRY_COMPARE_GE(rows.blocks(), blocks);
            }
            m_state.reset();
            m_host->restart();
            m_state = m_host->locations().syncLocations().last()->synchronizationStates().first();
        }
        synchronize();
        QCOMPARE(count("superseded"), FewerIdentifiers);
        QCOMPARE(knownRecords(), 1);
    }

    void anAbandonedSessionDoesNotReadTheProfile() {
        SyncSession session(m_host->engine().profile(), m_host->library(),
                            {InboxUUID, m_host->inbox()->name(), QStringLiteral("Store")});
        MemoryStore::Blobs blobs;
        MemoryStore store(blobs, [] { return MemoryStore::Fault::None; });
        const EngineFuture future;
        QVERIFY(session.accessStore(store, future));
        QVERIFY(session.accessProfile());
        session.abandon();
        const Expected<void> compared = session.accessStore(store, future);
        QVERIFY(!compared);
        QVERIFY(isEngineError(compared.error(), EngineErrorCode::Cancelled));
    }

    void manySmallRecordsAreMergedInShortSteps() {
        for (int i = 0; i < SmallRecords; ++i) {
            write({{Operation::make(QUuid::createUuid().toString(QUuid::WithoutBraces),
                                    QStringLiteral("Title"), QStringLiteral("Text"), 0, {})},
                   {identifier(i)}});
        }
        RowsPerBlock rows(m_host->engine().profile());
        synchronize();
        QCOMPARE_LE(rows.most(), MostRows);
        QCOMPARE(count("operations"), SmallRecords);
        QCOMPARE(count("superseded"), SmallRecords);
        QCOMPARE_LT(knownRecords(), RecordTiers::MostInTier);
    }

    void theNameIsFoundWithoutReadingAllNames() {
        m_host->leaveUnverified("the digests of the names are random");
        const NoteLog &log = m_host->library().synchronizedDatabase(InboxUUID)->log();
        const auto addNames = [&](int first, int last) {
            const QString names = QStringLiteral(
                "INSERT INTO operations (database, digest, note_uuid, title, text, modified,"
                " supersedes, salt, position) WITH RECURSIVE numbers(i) AS (SELECT ? UNION ALL"
                " SELECT i + 1 FROM numbers WHERE i < ?) SELECT ?, randomblob(16), '',"
                " 'Name ' || i, '', i, x'', randomblob(16), 0 FROM numbers");
            const ProfileDatabase &profile = m_host->engine().profile();
            QVERIFY(profile.write([&] {
                return profile.run(names, {first, last, log.database()});
            }));
            QCOMPARE(log.name().value(), QStringLiteral("Name %1").arg(last));
        };
        const auto timeOfName = [&] {
            const auto before = processorTime(CLOCK_THREAD_CPUTIME_ID);
            for (int i = 0; i < 20; ++i) {
                log.name().value();
            }
            return (processorTime(CLOCK_THREAD_CPUTIME_ID) - before).count();
        };
        addNames(1, 10);
        const auto few = timeOfName();
        addNames(11, 20'000);
        QCOMPARE_LT(timeOfName(), 50 * few);
    }

    void mergesAfterManyChangesAreAnnouncedTogether() {
        constexpr int many = 100;
        constexpr int single = 4;
        const auto inbox = m_host->library().synchronizedDatabase(InboxUUID);
        QList<qint64> announced;
        QObject receiver;
        connect(inbox.get(), &NoteDatabase::notesChanged, &receiver,
                [&] { announced.append(inbox->log().countOfNotes().value()); });
        const auto merge = [&](int count) {
            Merge notes;
            for (int i = 0; i < count; ++i) {
                notes.operations.append(
                    Operation::make(QUuid::createUuid().toString(QUuid::WithoutBraces),
                                    QStringLiteral("Title"), QStringLiteral("Text"), 0, {}));
            }
            QVERIFY(m_host->library().merge(inbox, notes, [] { return Expected<void>(); }));
        };
        merge(many);
        for (int i = 0; i < single; ++i) {
            merge(1);
        }
        QCOMPARE(announced, QList<qint64>{many});
        QTRY_COMPARE(announced, (QList<qint64>{many, many + single}));
        // These were few.
        merge(1);
        QCOMPARE(announced.last(), many + single + 1);
    }

    void aStepThatFailsIsReportedAndTheRecordIsReadAgain() {
        writeLargeRecord(FewerIdentifiers);
        const QMetaObject::Connection firstStep =
            connect(m_host->inbox().get(), &NoteDatabase::notesChanged, this,
                    [this] { m_host->makeSavesFail(); });
        synchronize();
        disconnect(firstStep);
        QVERIFY(hasEntry(QStringLiteral("could not be synchronized")));
        QVERIFY(count("superseded") > 0);
        QVERIFY(count("superseded") < FewerIdentifiers);
        QCOMPARE(knownRecords(), 0);

        m_host->letSavesPass();
        synchronize();
        QCOMPARE(count("superseded"), FewerIdentifiers);
        QCOMPARE(knownRecords(), 1);
    }
};

VELMORA_TEST(LargeRecordTest)
#include "LargeRecordTest.moc"
