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
        for (int i = 0; i < RecordTiers::MostInTier; ++i) {
            saveNote(QString::number(i));
            QVERIFY(run<SyncSession>());
        }
        const MemoryStore::Blobs before = m_blobs;
        {
            const FailingTable failing(profile(), table, fault);
            QCOMPARE(code(run<Compaction>()), EngineErrorCode::ProfileNotWritten);
            QCOMPARE(m_blobs, before);
        }
        QVERIFY(run<Compaction>());
        QVERIFY(m_blobs.size() < before.size());
        verifyNotesOfAnotherComputer();
    }

    void synchronizing_data() {
        addTables({"operations", "unwritten", "known_transactions"});
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
