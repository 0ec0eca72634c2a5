#include <QtCore/QTemporaryDir>
#include <atomic>

#include "Engine/DirectConnection/DirectConnectionPairings.h"
#include "Engine/DirectConnection/ServedDatabases.h"
#include "Engine/Plugin/BuiltInLocationKinds.h"
#include "Engine/Profile/ProfileReader.h"
#include "Engine/Profile/ProfileSnapshot.h"
#include "Host/QVSyncStore.h"
#include "Support/FailingTable.h"
#include "Support/Failure.h"
#include "Support/FaultyFileSystem.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

/// Reads of the profile beside those of notes: if they fail, at once or in the middle of the
/// result, they return an error.
class FailedProfileReadTest : public QObject {
    Q_OBJECT
    using TableFault = FailingTable::Fault;

    std::unique_ptr<TestHost> m_host;

    const ProfileDatabase &profile() const { return m_host->engine().profile(); }
    static void addFaults() {
        QTest::addColumn<bool>("areAllRows");
        QTest::addRow("all rows") << true;
        QTest::addRow("later rows") << false;
    }
    static TableFault fault(bool areAllRows) {
        return areAllRows ? TableFault::AllRows : TableFault::LaterRows;
    }
    void set(const QString &key, const QString &value) const {
        QVERIFY(profile().run(QStringLiteral("INSERT INTO settings VALUES (?, ?)"), {key, value}));
    }

    void addNotes(int count) const {
        for (int i = 0; i < count; ++i) {
            Note note{{}, QString::number(i), QString(1000, u'x'), {}};
            QVERIFY(m_host->inbox()->saveNote(note));
        }
    }
    Expected<QStringList> titles() const {
        QStringList titles;
        return profile()
            .read(QStringLiteral("SELECT title FROM operations ORDER BY id"), {},
                  [&](const QSqlQuery &row) { titles.append(row.value(0).toString()); })
            .map([&] { return titles; });
    }
    /// Moves everything from the log to the database file, and out of memory, so that the next
    /// statement reads the file.
    void beginReadingTheFile() const {
        for (const char *pragma : {"PRAGMA wal_checkpoint(TRUNCATE)", "PRAGMA shrink_memory"}) {
            QVERIFY(profile().read(QLatin1StringView(pragma), {}, [](const QSqlQuery &) {}));
        }
    }

private Q_SLOTS:
    void initTestCase() { FaultyFileSystem::install(); }
    void init() { m_host = std::make_unique<TestHost>(); }
    void cleanup() { m_host.reset(); }

    void ofPairings_data() { addFaults(); }
    void ofPairings() {
        QFETCH(bool, areAllRows);
        set(QStringLiteral("directConnectionServer a"), QStringLiteral("0a"));
        set(QStringLiteral("directConnectionServer b"), QStringLiteral("0b"));
        const auto pairings = std::make_shared<DirectConnectionPairings>(profile());
        {
            const FailingTable failing(profile(), QStringLiteral("settings"), fault(areAllRows));
            QCOMPARE(code(pairings->load()), EngineErrorCode::ProfileNotWritten);
        }
        QVERIFY(pairings->load());
        QVERIFY(pairings->fingerprint(QStringLiteral("b")));
        pairings->close();
    }

    void ofServedDatabases_data() { addFaults(); }
    void ofServedDatabases() {
        QFETCH(bool, areAllRows);
        set(QStringLiteral("notServed/a"), QStringLiteral("1"));
        set(QStringLiteral("notServed/b"), QStringLiteral("2"));
        ServedDatabases served(profile());
        {
            const FailingTable failing(profile(), QStringLiteral("settings"), fault(areAllRows));
            QCOMPARE(code(served.load()), EngineErrorCode::ProfileNotWritten);
        }
        QVERIFY(!served.contain(QStringLiteral("a")));
        QVERIFY(!served.contain(QStringLiteral("c")));
        QVERIFY(served.load());
        QVERIFY(!served.contain(QStringLiteral("b")));
        QVERIFY(served.contain(QStringLiteral("c")));
    }

    void ofLocations_data() {
        QTest::addColumn<QString>("table");
        QTest::addColumn<bool>("areAllRows");
        for (const char *table : {"locations", "states"}) {
            QTest::addRow("all rows of %s", table) << QString::fromLatin1(table) << true;
            QTest::addRow("later rows of %s", table) << QString::fromLatin1(table) << false;
        }
    }
    void ofLocations() {
        QFETCH(QString, table);
        QFETCH(bool, areAllRows);
        const auto other = m_host->addDatabase(QStringLiteral("other"));
        for (const auto &location : {m_host->addLocation(), m_host->addLocation()}) {
            m_host->addState(location, m_host->inbox());
            m_host->addState(location, other);
        }
        m_host->save();
        const EngineContext &context = m_host->engine().plugin().context();
        const auto kinds = std::make_shared<EngineLocationKinds>(context.storeOperations,
                                                                 builtInLocationKinds(context));
        {
            const FailingTable failing(profile(), table, fault(areAllRows));
            EngineLocationsController controller(profile(), kinds);
            QCOMPARE(code(controller.load()), EngineErrorCode::ProfileNotWritten);
        }
        EngineLocationsController controller(profile(), kinds);
        QVERIFY(controller.load());
        QCOMPARE(controller.syncLocations().size(), 2);
    }

    void ofRemovedLocations_data() { addFaults(); }
    void ofRemovedLocations() {
        QFETCH(bool, areAllRows);
        set(QStringLiteral("removedLocation a"), QStringLiteral("file:///a"));
        set(QStringLiteral("removedLocation b"), QStringLiteral("file:///b"));
        const auto &locations = m_host->locations();
        QCOMPARE(locations.removedLocations().value(),
                 QStringList({QStringLiteral("a"), QStringLiteral("b")}));
        const FailingTable failing(profile(), QStringLiteral("settings"), fault(areAllRows));
        QCOMPARE(code(locations.removedLocations()), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(locations.removedURL(QStringLiteral("b"))),
                 EngineErrorCode::ProfileNotWritten);
    }

    void ofTheDatabasesOfThisComputer_data() { addFaults(); }
    void ofTheDatabasesOfThisComputer() {
        QFETCH(bool, areAllRows);
        m_host->addDatabase(QStringLiteral("other"));
        const auto store = m_host->engine().plugin().localStore();
        const FailingTable failing(profile(), QStringLiteral("databases"), fault(areAllRows));
        std::optional<Error> error;
        std::atomic_bool isDone = false;
        store->fetchDatabasesWithCompletionHandler(
            [&](const auto & /*databases*/, const std::optional<Error> &result) {
                error = result;
                isDone = true;
            });
        QTRY_VERIFY(isDone);
        QVERIFY(error);
        QVERIFY(isEngineError(*error, EngineErrorCode::StoreUnreachable));
    }

    void ofTheLastCheckOfSchedules() {
        // The value of a row fails; a profile without the table would be damaged.
        for (const char *statement : {"ALTER TABLE settings RENAME TO hidden_settings",
                                      "CREATE TABLE settings (key TEXT PRIMARY KEY NOT NULL)",
                                      "INSERT INTO settings VALUES ('lastScheduleCheck')",
                                      "ALTER TABLE settings ADD COLUMN value AS"
                                      " (abs(-9223372036854775807 - (length(key) > 0)))"}) {
            QVERIFY(profile().run(QLatin1StringView(statement)));
        }
        m_host->restart();
        const auto entries = m_host->application().logEntries();
        QVERIFY(std::any_of(entries.begin(), entries.end(), [](const auto &entry) {
            return entry.info.contains(QStringLiteral("integer overflow"));
        }));
    }

    void ofAVerification() {
        const FailingTable failing(profile(), QStringLiteral("operations"), TableFault::AllRows);
        const VerificationReport report = m_host->engine().verify(VerificationMode::Report);
        const VerificationReport::Part part = report.parts.first();
        QCOMPARE(part.outcome, VerificationReport::Outcome::NotChecked);
        QCOMPARE(part.problems.size(), 1);
    }

    void ofTheChecksOfAVerification() {
        addNotes(20);
        bool hasFailed = true;
        for (qint64 read = 1; hasFailed; ++read) {
            beginReadingTheFile();
            VerificationReport::Part part;
            {
                const FaultyFileSystem disk(profile().path(), read);
                part = m_host->engine().verify(VerificationMode::Report).parts.first();
                hasFailed = disk.hasFailed();
            }
            QCOMPARE(part.outcome, hasFailed ? VerificationReport::Outcome::NotChecked
                                             : VerificationReport::Outcome::Sound);
            QVERIFY(part.problems.isEmpty() != hasFailed);
            QVERIFY(read > 1 || hasFailed);
        }
    }

    void ofTwoEditsOfANote() {
        addNotes(300);
        Note note = m_host->inbox()->notes().value().first();
        Note other = note;
        for (Note *edit : {&note, &other}) {
            edit->text = QString(1000, edit == &note ? u'y' : u'z');
            QVERIFY(m_host->inbox()->saveNote(*edit));
        }
        const QList<Note> before = m_host->inbox()->notes().value();
        QCOMPARE(before.size(), 301);
        bool hasFailed = true;
        for (qint64 read = 1; hasFailed; ++read) {
            beginReadingTheFile();
            const FaultyFileSystem disk(profile().path(), read);
            const Expected<QList<Note>> notes = m_host->inbox()->notes();
            hasFailed = disk.hasFailed();
            QCOMPARE(!notes, hasFailed);
            QCOMPARE(notes.value_or(before), before);
            QVERIFY(read > 1 || hasFailed);
        }
    }

    void ofAReaderOnAnotherThread() {
        addNotes(20);
        const QStringList before = titles().value();
        const std::atomic_bool isCancelled = false;
        int failures = 0;
        bool hasFailed = true;
        for (qint64 call = 1; hasFailed; ++call) {
            const FaultyFileSystem disk(FaultyFileSystem::Fault::Error, call,
                                        FaultyFileSystem::Duration::FromThenOn);
            const auto reader = ProfileReader::open(profile(), profile().path(), isCancelled);
            const Expected<QStringList> read = reader ? titles() : failure(reader.error());
            hasFailed = disk.hasFailed();
            QCOMPARE(read.value_or(before), before);
            QVERIFY(read || hasFailed);
            failures += read ? 0 : 1;
        }
        QVERIFY(failures > 0);
    }

    void ofASnapshot() {
        addNotes(20);
        beginReadingTheFile();
        bool hasFailed = true;
        for (qint64 read = 1; hasFailed; ++read) {
            const QTemporaryDir target;
            const FaultyFileSystem disk(profile().path(), read);
            const Expected<void> written = ProfileSnapshot::write(
                m_host->directory(), target.path(),
                [] { return Expected<void>(failure(operationCancelled())); });
            hasFailed = disk.hasFailed();
            QCOMPARE(!written, hasFailed);
            QVERIFY(read > 1 || hasFailed);
        }
    }
};

VELMORA_TEST(FailedProfileReadTest)
#include "FailedProfileReadTest.moc"
