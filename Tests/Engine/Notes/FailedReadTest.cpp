#include <QtCore/QDeadlineTimer>

#include "Engine/Notes/ChangeRescue.h"
#include "Engine/Notes/DeletedDatabase.h"
#include "Engine/Notes/DerivedTables.h"
#include "Engine/Notes/KeptOperations.h"
#include "Engine/Notes/KnownTransactions.h"
#include "Engine/Notes/LostOperations.h"
#include "Engine/Notes/NoteHistory.h"
#include "Engine/Notes/NoteInspection.h"
#include "Engine/Profile/ReadOnlyConnection.h"
#include "Engine/Synchronization/UnsentChanges.h"
#include "Host/InboxUUID.h"
#include "Support/FailingTable.h"
#include "Support/Failure.h"
#include "Support/FaultyFileSystem.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

Q_DECLARE_METATYPE(FailingTable::Fault)

using Fault = FailingTable::Fault;

namespace {

const QString Store = QStringLiteral("store");

}  // namespace

/// A read of the profile that fails returns an error, whether it fails at once or in the middle of
/// the result, and never an empty or a shorter result.
class FailedReadTest : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<TestHost> m_host;

    const ProfileDatabase &profile() const { return m_host->engine().profile(); }
    std::shared_ptr<EngineDatabase> database() const {
        return m_host->library().synchronizedDatabase(InboxUUID);
    }
    const NoteLog &log() const { return database()->log(); }
    KnownTransactions known() const { return {profile(), Store, log().database()}; }

    static void addFaults() {
        QTest::addColumn<Fault>("fault");
        QTest::addRow("all rows") << Fault::AllRows;
        QTest::addRow("later rows") << Fault::LaterRows;
    }

    /// Three notes, two of them in the store; two superseded operations.
    void addNotes() {
        QList<Note> notes;
        for (const QString &title :
             {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d")}) {
            Note note{{}, title, title, {}};
            QVERIFY(database()->saveNote(note));
            notes.append(note);
        }
        QVERIFY(log().markAllSent());
        notes[1].text = QStringLiteral("changed");
        QVERIFY(database()->saveNote(notes[1]));
        QVERIFY(database()->removeNote(notes[3]));
        for (const Operation &operation : operations()) {
            QVERIFY(known().add(QString::fromLatin1(operation.id.toHex()),
                                Transaction{{operation}, {}}, 100));
        }
    }

    /// They take several pages of the file.
    static QList<OperationId> manyIdentifiers() {
        QList<OperationId> identifiers;
        for (int i = 0; i < 500; ++i) {
            identifiers.append(
                QByteArray::number(i).rightJustified(Operation::IdentifierSize, '0'));
        }
        return identifiers;
    }

    QList<Operation> operations() const {
        return log().firstOperations(log().operationIds().value()).value().operations;
    }

    /// Records that the store lacks nothing.
    void beginRecording() const {
        Expected<bool> isRestarted = false;
        while (isRestarted && !*isRestarted) {
            isRestarted = known().restartRecording();
        }
        QVERIFY(isRestarted);
        QVERIFY(known().setComplete());
    }

    /// Moves everything from the log to the database file, and out of memory, so that the next
    /// statement reads the file.
    void beginReadingTheFile() const {
        for (const char *pragma : {"PRAGMA wal_checkpoint(TRUNCATE)", "PRAGMA shrink_memory"}) {
            QVERIFY(profile().read(QLatin1StringView(pragma), {}, [](const QSqlQuery &) {}));
        }
    }

    /// Calls `change` in transactions that are rolled back. In each, another call of the disk
    /// fails, from the first one to the last one. Returns how often `change` or its transaction
    /// failed.
    template <class Change>
    int failAtEachCall(const Change &change) const {
        int failures = 0;
        bool hasFailed = true;
        for (qint64 call = 1; hasFailed; ++call) {
            beginReadingTheFile();
            const FaultyFileSystem disk(FaultyFileSystem::Fault::Error, call,
                                        FaultyFileSystem::Duration::Once);
            const Expected<void> done = profile().write([&]() -> Expected<void> {
                const Expected<void> changed = change();
                return changed ? failure(operationCancelled()) : changed;
            });
            hasFailed = disk.hasFailed();
            failures += code(done) == EngineErrorCode::ProfileNotWritten ? 1 : 0;
        }
        return failures;
    }

private Q_SLOTS:
    void initTestCase() { FaultyFileSystem::install(); }
    void init() {
        m_host = std::make_unique<TestHost>();
        addNotes();
    }
    void cleanup() { m_host.reset(); }

    void ofOperations_data() { addFaults(); }
    void ofOperations() {
        QFETCH(Fault, fault);
        const QList<OperationId> allIdentifiers = log().operationIds().value();
        const QList<Note> all = database()->notes().value();
        Note note = all.last();
        note.revision.clear();
        note.text = QStringLiteral("lost");
        const FailingTable failing(profile(), QStringLiteral("operations"), fault);
        QCOMPARE(code(log().countOfNotes()), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(DerivedTables::isCountOfConflictsSound(profile(), log().database())),
                 EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(DerivedTables::recountConflicts(profile(), log().database())),
                 EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(database()->rows(0, 10)), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(database()->rowsAt(1)), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(database()->hasMoreEdits(note.UUID, 1)), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(database()->completeNote(all.last())), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(NoteInspection::damagedOperations(profile(), log().database())),
                 EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(log().operationIds(note.UUID)), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(log().remove({.UUID = note.UUID})), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(log().countOf({note.UUID})), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(log().hasMoreNotesThan(100)), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(log().returnedIds()), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(log().isDamaged(allIdentifiers.last())), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(NoteHistory(profile(), log().database()).contains(allIdentifiers.last())),
                 EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(database()->notes()), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(log().operationIds()), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(log().identifierSets()), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(log().identifierSetsOf(allIdentifiers)), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(log().name()), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(log().firstOperations(allIdentifiers)), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(log().save(note)), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(log().remove(note)), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(log().setName(QStringLiteral("n"))), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(log().merge({})), EngineErrorCode::ProfileNotWritten);
    }

    void ofWhetherThereIsAnything() {
        for (const char *table : {"operations", "superseded"}) {
            const FailingTable failing(profile(), QLatin1StringView(table), Fault::AllRows);
            QCOMPARE(code(log().isEmpty()), EngineErrorCode::ProfileNotWritten);
        }
    }

    void ofWhatHasReturned_data() { addFaults(); }
    void ofWhatHasReturned() {
        QFETCH(Fault, fault);
        const FailingTable failing(profile(), QStringLiteral("superseded"), fault);
        QCOMPARE(code(log().returnedIds()), EngineErrorCode::ProfileNotWritten);
    }

    void ofLostOperations_data() {
        QTest::addColumn<QString>("table");
        QTest::addColumn<Fault>("fault");
        for (const char *table :
             {"databases", "known_transactions", "settings", "operations", "superseded"}) {
            QTest::addRow("%s, all rows", table) << QString::fromLatin1(table) << Fault::AllRows;
            QTest::addRow("%s, later rows", table)
                << QString::fromLatin1(table) << Fault::LaterRows;
        }
    }
    void ofLostOperations() {
        QFETCH(QString, table);
        QFETCH(Fault, fault);
        m_host->addDatabase(QStringLiteral("Letters"));
        const LostOperations lost(profile(), Store, log().database());
        const QSet<OperationId> unknown{QByteArray(Operation::IdentifierSize, 'x')};
        m_host->leaveUnverified("a change is lost");
        QVERIFY(lost.remember(unknown));
        QVERIFY(known().setLastVerified(QStringLiteral("name")));
        const std::atomic_bool isCancelled = false;
        QCOMPARE(NoteInspection::check(profile().path(), isCancelled).value().lost, 1);
        QCOMPARE(lost.among(unknown).value(), unknown);
        const FailingTable failing(profile(), table, fault);
        QCOMPARE(code(NoteInspection::check(profile().path(), isCancelled)),
                 EngineErrorCode::ProfileNotWritten);
        if (table == QStringLiteral("operations") || table == QStringLiteral("superseded")) {
            QCOMPARE(code(lost.among(unknown)), EngineErrorCode::ProfileNotWritten);
        }
        if (table == QStringLiteral("settings")) {
            QCOMPARE(code(lost.remembered()), EngineErrorCode::ProfileNotWritten);
            QCOMPARE(code(known().lastVerified()), EngineErrorCode::ProfileNotWritten);
        }
        if (table != QStringLiteral("databases")) {
            QCOMPARE(code(LostOperations::all(profile(), log().database())),
                     EngineErrorCode::ProfileNotWritten);
        }
    }

    void ofCounts() {
        const FailingTable failing(profile(), QStringLiteral("counts"), Fault::AllRows);
        QCOMPARE(code(DerivedTables::countOfConflicts(profile(), log().database())),
                 EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(DerivedTables::isCountOfConflictsSound(profile(), log().database())),
                 EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(DerivedTables::recountConflicts(profile(), log().database())),
                 EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(database()->countOfConflicts()), EngineErrorCode::ProfileNotWritten);
    }

    void ofWhatIsUnwritten_data() { addFaults(); }
    void ofWhatIsUnwritten() {
        QFETCH(Fault, fault);
        m_host->leaveUnverified("what is recorded as written is not");
        QCOMPARE(known().restartRecording().value(), true);
        QVERIFY(known().setComplete());
        QVERIFY(log().merge({{}, {QByteArray(16, '\1'), QByteArray(16, '\2')}}));
        QVERIFY(UnsentChanges::exist(log(), known()).value());
        const FailingTable failing(profile(), QStringLiteral("unwritten"), fault);
        QCOMPARE(code(known().unwritten()), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(known().isRecordSound()), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(DerivedTables::check(profile(), log().database())),
                 EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(known().add(QStringLiteral("name"), {{}, {QByteArray(16, '\1')}}, 1)),
                 EngineErrorCode::ProfileNotWritten);
    }

    void whileComparing_data() {
        QTest::addColumn<QString>("table");
        QTest::addColumn<Fault>("fault");
        for (const char *table : {"operations", "superseded", "known_transactions"}) {
            QTest::addRow("%s, all rows", table) << QString::fromLatin1(table) << Fault::AllRows;
            QTest::addRow("%s, later rows", table)
                << QString::fromLatin1(table) << Fault::LaterRows;
        }
    }
    void whileComparing() {
        QFETCH(QString, table);
        QFETCH(Fault, fault);
        QVERIFY(log().merge({{}, {QByteArray(16, '\1'), QByteArray(16, '\2')}}));
        const FailingTable failing(profile(), table, fault);
        QCOMPARE(code(known().compare()), EngineErrorCode::ProfileNotWritten);
    }

    void ofComparedPlaces() {
        const FailingTable failing(profile(), QStringLiteral("compared_places"), Fault::AllRows);
        QCOMPARE(code(UnsentChanges::exist(log(), known())), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(known().restartRecording()), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(known().setComplete()), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(known().isRecordSound()), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(DerivedTables::check(profile(), log().database())),
                 EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(known().remove({QStringLiteral("name")})),
                 EngineErrorCode::ProfileNotWritten);
    }

    void ofTheDatabaseOfAnOperation() {
        const Note note = database()->notes().value().first();
        const FailingTable failing(profile(), QStringLiteral("databases"), Fault::AllRows);
        QCOMPARE(code(log().remove(note)), EngineErrorCode::ProfileNotWritten);
    }

    void ofSupersededIdentifiers_data() { addFaults(); }
    void ofSupersededIdentifiers() {
        QFETCH(Fault, fault);
        const QSet<OperationId> all = log().supersededIds().value();
        QCOMPARE(all.size(), 2);
        const FailingTable failing(profile(), QStringLiteral("superseded"), fault);
        QCOMPARE(code(log().supersededIds()), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(log().identifierSets()), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(log().identifierSetsOf(all.values())), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(NoteInspection::damagedOperations(profile(), log().database())),
                 EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(log().merge(Transaction{{}, {QByteArray(16, '\1')}})),
                 EngineErrorCode::ProfileNotWritten);
    }

    void ofKnownTransactions_data() { addFaults(); }
    void ofKnownTransactions() {
        QFETCH(Fault, fault);
        QCOMPARE(known().all().value().size(), 3);
        const FailingTable failing(profile(), QStringLiteral("known_transactions"), fault);
        QCOMPARE(code(known().all()), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(known().sizes()), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(known().contents(QStringLiteral("name"))),
                 EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(known().remove({QStringLiteral("name")})),
                 EngineErrorCode::ProfileNotWritten);
    }

    void ofKeptOperations_data() { addFaults(); }
    void ofKeptOperations() {
        QFETCH(Fault, fault);
        const QList<OperationId> operations = log().operationIds().value();
        const KeptOperations kept(profile(), log().database());
        const QSet all{operations.first(), operations.last()};
        QVERIFY(profile().write([&] { return kept.replace({}, all); }));
        QCOMPARE(kept.all().value(), all);
        const FailingTable failing(profile(), QStringLiteral("settings"), fault);
        QCOMPARE(code(kept.all()), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(kept.replace(all, {})), EngineErrorCode::ProfileNotWritten);
    }

    void ofWhatHasMoved_data() {
        QTest::addColumn<QString>("table");
        QTest::addColumn<Fault>("fault");
        for (const char *table : {"known_transactions", "operations", "superseded", "unwritten"}) {
            QTest::addRow("%s, all rows", table) << QString::fromLatin1(table) << Fault::AllRows;
            QTest::addRow("%s, later rows", table)
                << QString::fromLatin1(table) << Fault::LaterRows;
        }
        QTest::addRow("compared_places, all rows")
            << QStringLiteral("compared_places") << Fault::AllRows;
    }
    void ofWhatHasMoved() {
        QFETCH(QString, table);
        QFETCH(Fault, fault);
        beginRecording();
        const QString name = QStringLiteral("moved");
        const QList<OperationId> operations = log().operationIds().value();
        const QList<OperationId> superseded = log().supersededIds().value().values();
        QVERIFY(known().add(name, {operations, superseded, 100}));
        const auto recordMove = [&] {
            return known().removeMovedUntil(QDeadlineTimer(QDeadlineTimer::Forever), {name});
        };
        {
            const FailingTable failing(profile(), table, fault);
            QCOMPARE(code(recordMove()), EngineErrorCode::ProfileNotWritten);
        }
        QVERIFY(known().sizes().value().contains(name));
        QVERIFY(!known().hasUnwritten().value());
        QVERIFY(known().isComplete().value());
        QCOMPARE(recordMove().value(), 1);
        QCOMPARE(known().unwritten().value()->operations, operations);
    }

    /// After the call of the disk that fails, the next ones succeed.
    void ofWhatHasMovedForAMoment() {
        QVERIFY(log().merge({{}, manyIdentifiers()}));
        beginRecording();
        const QString name = QStringLiteral("moved");
        const QList<OperationId> superseded = log().supersededIds().value().values();
        QVERIFY(known().add(name, {{}, superseded, 100}));
        const int failures = failAtEachCall([&] {
            const QDeadlineTimer deadline(QDeadlineTimer::Forever);
            return known()
                .removeMovedUntil(deadline, {name})
                .and_then([&](qsizetype) { return known().unwritten(); })
                .map([&](const std::optional<KnownTransactions::Unwritten> &unwritten) {
                    QVERIFY(unwritten);
                    QCOMPARE(unwritten->superseded.size(), superseded.size());
                });
        });
        QVERIFY(failures > 0);
    }

    void ofTheEditThatACopyShows() {
        for (int i = 0; i < 300; ++i) {
            Note note{{}, QString::number(i), QString(100, u'x'), {}};
            QVERIFY(database()->saveNote(note));
        }
        QVERIFY(log().markAllSent());
        Note note = database()->notes().value().first();
        Note other = note;
        for (Note *edit : {&note, &other}) {
            edit->text = QString(1000, edit == &note ? u'y' : u'z');
            QVERIFY(database()->saveNote(*edit));
        }
        Note copy;
        const QList<Note> all = database()->notes().value();
        for (const Note &each : all) {
            copy = !each.conflict.isEmpty() && each.conflict != each.UUID ? each : copy;
        }
        QVERIFY(!copy.UUID.isEmpty());
        copy.revision.clear();
        const int failures = failAtEachCall(
            [&] { return log().remove(copy).map([](bool isRemoved) { QVERIFY(isRemoved); }); });
        QVERIFY(failures > 0);
    }

    /// The rows of a position with so many edits are read in several statements.
    void ofSomeOfManyEdits() {
        const Note note = database()->notes().value().first();
        QList<Operation> edits;
        for (int i = 0; i < 2 * NoteRows::MostRows; ++i) {
            edits.append(Operation::make(note.UUID, QString::number(i), {}, i, {}));
        }
        QVERIFY(log().merge({edits, {}}));
        const qint64 position = database()->rows(0, 1).value().first().position;
        const QList<NoteRow> some = database()->rowsAt(position).value();
        QVERIFY(some.size() > 1 && some.size() < edits.size());
        const int failures = failAtEachCall([&] {
            return database()->rowsAt(position).map(
                [&](const QList<NoteRow> &rows) { QCOMPARE(rows, some); });
        });
        QVERIFY(failures > 0);
    }

    void ofDeletedDatabases_data() {
        QTest::addColumn<QString>("table");
        QTest::addColumn<Fault>("fault");
        QTest::addRow("settings, all rows") << QStringLiteral("settings") << Fault::AllRows;
        QTest::addRow("settings, later rows") << QStringLiteral("settings") << Fault::LaterRows;
        QTest::addRow("databases, all rows") << QStringLiteral("databases") << Fault::AllRows;
    }
    void ofDeletedDatabases() {
        QFETCH(QString, table);
        QFETCH(Fault, fault);
        QStringList UUIDs{m_host->addDatabase(QStringLiteral("Letters"))->UUID(),
                          m_host->addDatabase(QStringLiteral("Plans"))->UUID()};
        UUIDs.sort();
        for (const QString &UUID : std::as_const(UUIDs)) {
            QVERIFY(DeletedDatabase::mark(profile(), UUID));
        }
        // The row of its mark is not the first one.
        const QString &second = UUIDs.last();
        {
            const FailingTable failing(profile(), table, fault);
            if (table == QStringLiteral("settings")) {
                QCOMPARE(code(DeletedDatabase::marked(profile())),
                         EngineErrorCode::ProfileNotWritten);
            }
            const auto erased =
                profile().write([&] { return DeletedDatabase::erase(profile(), second); });
            QCOMPARE(code(erased), EngineErrorCode::ProfileNotWritten);
            QCOMPARE(code(DeletedDatabase::eraseSome(profile(), second)),
                     EngineErrorCode::ProfileNotWritten);
        }
        QCOMPARE(DeletedDatabase::marked(profile()).value().size(), 2);
        const qint64 remaining =
            profile().value(QStringLiteral("SELECT count(*) FROM databases")).value().toLongLong();
        QCOMPARE(remaining, 3);
    }

    void ofARestoredProfile_data() {
        QTest::addColumn<QString>("table");
        for (const char *table : {"operations", "superseded", "databases"}) {
            QTest::newRow(table) << QString::fromLatin1(table);
        }
    }
    void ofARestoredProfile() {
        QFETCH(QString, table);
        const QString damaged = m_host->directory() + QStringLiteral("/Damaged.sqlite");
        const auto source =
            ReadOnlyConnection::open(profile().path(), ReadOnlyConnection::Sharing::Shared);
        QVERIFY((*source)->copyTo(damaged));
        QCOMPARE(ChangeRescue::run(damaged, profile()).value().added, 0);
        const FailingTable failing(profile(), table, Fault::AllRows);
        QCOMPARE(code(ChangeRescue::run(damaged, profile())), EngineErrorCode::ProfileNotWritten);
    }

    void ofDatabases_data() { addFaults(); }
    void ofDatabases() {
        QFETCH(Fault, fault);
        m_host->addDatabase(QStringLiteral("Letters"));
        EngineNoteLibrary library(profile());
        const FailingTable failing(profile(), QStringLiteral("databases"), fault);
        QCOMPARE(code(library.load()), EngineErrorCode::ProfileNotWritten);
    }

    void ofAnyStatement_data() { addFaults(); }
    void ofAnyStatement() {
        QFETCH(Fault, fault);
        const QString statement = QStringLiteral("SELECT title FROM operations");
        QCOMPARE(profile().value(statement), QStringLiteral("a"));
        QVERIFY(!profile().value(QStringLiteral("SELECT 1 WHERE 0")).value().isValid());
        const FailingTable failing(profile(), QStringLiteral("operations"), fault);
        QCOMPARE(code(profile().value(statement)), EngineErrorCode::ProfileNotWritten);
        QVERIFY(description(profile().value(statement)).contains(profile().path()));
        QStringList titles;
        QCOMPARE(code(profile().read(
                     statement, {},
                     [&](const QSqlQuery &row) { titles.append(row.value(0).toString()); })),
                 EngineErrorCode::ProfileNotWritten);
        QCOMPARE(titles,
                 fault == Fault::LaterRows ? QStringList{QStringLiteral("a")} : QStringList());
    }
};

VELMORA_TEST(FailedReadTest)
#include "FailedReadTest.moc"
