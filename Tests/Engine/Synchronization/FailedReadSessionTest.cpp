#include <optional>
#include <utility>

#include "Engine/Notes/KeptOperations.h"
#include "Engine/Notes/TransactionName.h"
#include "Engine/Synchronization/RecordTiers.h"
#include "Engine/Synchronization/SyncSession.h"
#include "Support/Compaction.h"
#include "Support/FailingTable.h"
#include "Support/Failure.h"
#include "Support/SessionTestCase.h"

using Fault = FailingTable::Fault;

/// A session that cannot read the profile ends with the error, and writes to the store and removes
/// from it nothing.
class FailedReadSessionTest : public SessionTestCase {
    Q_OBJECT
private:
    static void addTables(const QList<const char *> &tables = {"operations", "superseded",
                                                               "known_transactions"}) {
        QTest::addColumn<QString>("table");
        QTest::addColumn<Fault>("fault");
        for (const char *table : tables) {
            QTest::addRow("%s, all rows", table) << QString::fromLatin1(table) << Fault::AllRows;
            QTest::addRow("%s, later rows", table)
                << QString::fromLatin1(table) << Fault::LaterRows;
        }
    }

    std::shared_ptr<EngineDatabase> database() const {
        return m_host->library().synchronizedDatabase(InboxUUID);
    }

    /// Saves as many notes as fill a tier, each in a record of its own.
    void fillTier() {
        for (int i = 0; i < RecordTiers::MostInTier; ++i) {
            saveNote(QString::number(i));
            QVERIFY(run<SyncSession>());
        }
    }

    template <class Session>
    void verifyMerging(const QString &table, Fault fault) {
        fillTier();
        const MemoryStore::Blobs before = m_blobs;
        {
            const FailingTable failing(profile(), table, fault);
            QCOMPARE(code(run<Session>()), EngineErrorCode::ProfileNotWritten);
            QCOMPARE(m_blobs, before);
        }
        QVERIFY(run<Session>());
        QVERIFY(m_blobs.size() < before.size());
        verifyNotesOfAnotherComputer();
    }

    struct Run {
        Expected<void> result;
        bool hasTableFailed = false;
    };
    /// Synchronizes. `table` fails only during the call of the session with the number `failing`,
    /// from 0 on: another one must not end the session instead.
    Run runFailing(const QString &table, Fault fault, int failing) {
        SyncSession session = newSession<SyncSession>();
        MemoryStore store(m_blobs);
        const EngineFuture future;
        Run synchronization;
        for (int call = 0; synchronization.result && !session.isDone(); ++call) {
            std::optional<FailingTable> unreadable;
            if (call == failing) {
                unreadable.emplace(profile(), table, fault);
                synchronization.hasTableFailed = true;
            }
            synchronization.result =
                call % 2 == 0 ? session.accessStore(store, future) : session.accessProfile();
        }
        return synchronization;
    }

    /// The user keeps a note, but the session that keeps it was interrupted before that: the
    /// profile remembers the answer, and a record of the store removes the note.
    void keepNote(const QString &title) {
        OperationId kept;
        const QList<Note> notes = m_host->inbox()->notes().value();
        for (const Note &note : notes) {
            kept = note.title == title ? QByteArray::fromHex(note.revision.toLatin1()) : kept;
        }
        QVERIFY(profile().write([&] {
            return KeptOperations(profile(), database()->log().database()).replace({}, {kept});
        }));
        const QByteArray removal = Transaction{{}, {kept}}.encoded();
        m_blobs[QStringLiteral("transactions/@inbox/") + TransactionName::of(removal)] = removal;
    }

private Q_SLOTS:
    void init() {
        beginWithNotes({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
        // Two superseded operations, in the store and in the profile.
        for (int i = 0; i < 2; ++i) {
            Note note = m_host->inbox()->notes().value().at(i);
            note.text = QStringLiteral("changed");
            QVERIFY(m_host->inbox()->saveNote(note));
        }
        QVERIFY(run<SyncSession>());
    }
    void cleanup() { m_host.reset(); }

    void cleaningUp_data() { addTables(); }
    void cleaningUp() {
        QFETCH(QString, table);
        QFETCH(Fault, fault);
        const MemoryStore::Blobs before = m_blobs;
        {
            const FailingTable failing(profile(), table, fault);
            QCOMPARE(code(run<CleanSession>()), EngineErrorCode::ProfileNotWritten);
            QCOMPARE(m_blobs, before);
        }
        QVERIFY(run<SyncSession>());
        QVERIFY(run<CleanSession>());
        QCOMPARE(m_host->inbox()->notes().value().size(), 3);
        verifyNotesOfAnotherComputer();
    }

    void merging_data() {
        addTables();
        QTest::newRow("settings") << QStringLiteral("settings") << Fault::AllRows;
    }
    void merging() {
        QFETCH(QString, table);
        QFETCH(Fault, fault);
        verifyMerging<Compaction>(table, fault);
    }

    void mergingFullTiersOnly_data() {
        merging_data();
        QTest::newRow("compared_places") << QStringLiteral("compared_places") << Fault::AllRows;
        QTest::newRow("unwritten") << QStringLiteral("unwritten") << Fault::AllRows;
    }
    void mergingFullTiersOnly() {
        QFETCH(QString, table);
        QFETCH(Fault, fault);
        verifyMerging<UsualCompaction>(table, fault);
    }

    void synchronizing_data() {
        addTables({"operations", "unwritten", "known_transactions"});
        QTest::newRow("settings") << QStringLiteral("settings") << Fault::AllRows;
        QTest::newRow("superseded") << QStringLiteral("superseded") << Fault::AllRows;
        QTest::newRow("compared_places") << QStringLiteral("compared_places") << Fault::AllRows;
    }
    void synchronizing() {
        QFETCH(QString, table);
        QFETCH(Fault, fault);
        saveNote(QStringLiteral("new"));
        saveNote(QStringLiteral("newer"));
        const MemoryStore::Blobs before = m_blobs;
        {
            const FailingTable failing(profile(), table, fault);
            QCOMPARE(code(run<SyncSession>()), EngineErrorCode::ProfileNotWritten);
            QCOMPARE(m_blobs, before);
        }
        QVERIFY(run<SyncSession>());
        QVERIFY(m_blobs != before);
        verifyNotesOfAnotherComputer();
    }

    /// Another computer has merged records. The store has lost one as well, which must be written
    /// again: what has moved is known only by reading.
    void forgettingWhatAnotherComputerHasMerged_data() {
        addTables({"operations", "superseded", "unwritten", "known_transactions"});
        QTest::newRow("compared_places") << QStringLiteral("compared_places") << Fault::AllRows;
    }
    void forgettingWhatAnotherComputerHasMerged() {
        QFETCH(QString, table);
        QFETCH(Fault, fault);
        fillTier();
        m_host->goToComputer(QStringLiteral("Merging"));
        QVERIFY(run<SyncSession>());
        const qsizetype count = m_host->inbox()->notes().value().size();
        const MemoryStore::Blobs before = m_blobs;
        QVERIFY(run<UsualCompaction>());
        const MemoryStore::Blobs merged = std::exchange(m_blobs, before);
        QVERIFY(merged.size() < m_blobs.size());
        m_host->goToComputer(QStringLiteral("Profile"));
        saveNote(QStringLiteral("lost"));
        // Compares everything, as the first one after a start does.
        QVERIFY(run<SyncSession>());
        m_blobs = merged;
        // The session has compared, and is about to forget.
        constexpr int call = 3;
        const Run failed = runFailing(table, fault, call);
        QVERIFY(failed.hasTableFailed);
        QCOMPARE(code(failed.result), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(m_blobs, merged);
        QVERIFY(run<SyncSession>());
        QCOMPARE(m_host->inbox()->notes().value().size(), count + 1);
        verifySound();
        verifyNotesOfAnotherComputer();
    }

    void keepingANote() {
        int failures = 0;
        bool hasTableFailed = true;
        for (int call = 0; hasTableFailed; ++call) {
            m_host.reset();
            init();
            keepNote(QStringLiteral("c"));
            const Run failed = runFailing(QStringLiteral("settings"), Fault::AllRows, call);
            hasTableFailed = failed.hasTableFailed;
            QVERIFY(failed.result || code(failed.result) == EngineErrorCode::ProfileNotWritten);
            failures += failed.result ? 0 : 1;
            QVERIFY(run<SyncSession>());
            QCOMPARE(m_host->inbox()->notes().value().size(), 3);
            verifySound();
        }
        QVERIFY(failures > 0);
    }

private:
    /// Another computer must get the same notes from the store.
    void verifyNotesOfAnotherComputer() {
        const QList<Note> notes = m_host->inbox()->notes().value();
        m_host->goToComputer(QStringLiteral("Other"));
        QVERIFY(run<SyncSession>());
        QList<Note> others = m_host->inbox()->notes().value();
        QCOMPARE(others.size(), notes.size());
        for (const Note &note : notes) {
            QVERIFY(others.contains(note));
        }
    }
};

VELMORA_TEST(FailedReadSessionTest)
#include "FailedReadSessionTest.moc"
