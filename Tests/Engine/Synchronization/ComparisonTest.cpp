#include "Engine/Notes/NoteInspection.h"
#include "Engine/Synchronization/CleanSession.h"
#include "Engine/Synchronization/UnsentChanges.h"
#include "Support/Failure.h"
#include "Support/SessionTestCase.h"

/// What the profile has recorded about what a store lacks is wrong, or the store has changed behind
/// its back: sooner or later everything is compared, and no note stays unsent.
class ComparisonTest : public SessionTestCase {
    Q_OBJECT
private:
    std::shared_ptr<EngineDatabase> database() const {
        return m_host->library().synchronizedDatabase(InboxUUID);
    }

    bool isInStore(const QByteArray &text) const {
        return std::any_of(m_blobs.begin(), m_blobs.end(),
                           [&](const auto &blob) { return blob.second.contains(text); });
    }

    /// A note is saved, but not recorded as unwritten.
    void loseRecord() {
        saveNote(QStringLiteral("forgotten"));
        QVERIFY(profile().run(QStringLiteral("DELETE FROM unwritten")));
        QVERIFY(run<SyncSession>());
        // The record is trusted for a while: otherwise these tests would show nothing.
        QVERIFY(!isInStore("forgotten"));
    }

private Q_SLOTS:
    void init() { beginWithNotes({QStringLiteral("a"), QStringLiteral("b")}); }
    void cleanup() { m_host.reset(); }

    void theFirstSessionAfterAStartComparesEverything() {
        loseRecord();
        m_host->restart();
        QVERIFY(run<SyncSession>());
        QVERIFY(isInStore("forgotten"));
        verifySound();
    }

    void aSessionOfEachDayComparesEverything() {
        loseRecord();
        database()->setCompared(subject().store, std::chrono::milliseconds(0));
        QVERIFY(run<SyncSession>());
        QVERIFY(isInStore("forgotten"));
        QVERIFY(!database()->isComparisonDue(subject().store));
        QVERIFY(database()->isComparisonDue(QStringLiteral("other")));
        verifySound();
    }

    void aSessionThatVerifiesAllRecordsComparesEverything() {
        loseRecord();
        SyncSession session(profile(), m_host->library(), subject(),
                            RecordVerification::Extent::All);
        MemoryStore store(m_blobs);
        QVERIFY(runSession(session, store));
        QVERIFY(isInStore("forgotten"));
        verifySound();
    }

    void damageMakesTheNextSessionCompareEverything() {
        loseRecord();
        QVERIFY(profile().run(QStringLiteral("UPDATE operations SET text = '' WHERE title = 'a'")));
        database()->addDamaged(
            NoteInspection::damagedOperations(profile(), database()->log().database()).value());
        QVERIFY(run<SyncSession>());
        QVERIFY(isInStore("forgotten"));
        verifySound();
    }

    void whatStandsForNothingMakesTheNextSessionCompareEverything_data() {
        QTest::addColumn<bool>("isSuperseded");
        QTest::addRow("operation") << false;
        QTest::addRow("superseded") << true;
    }
    void whatStandsForNothingMakesTheNextSessionCompareEverything() {
        QFETCH(bool, isSuperseded);
        loseRecord();
        QVERIFY(profile().run(QStringLiteral("INSERT INTO unwritten SELECT place, database, ?,"
                                             " zeroblob(16) FROM compared_places"),
                              {isSuperseded}));
        QVERIFY(run<SyncSession>());
        QVERIFY(isInStore("forgotten"));
        QVERIFY(!isInStore(QByteArray(32, '0')));
        verifySound();
    }

    /// That the store contains it elsewhere was recorded long ago.
    void aCleanUpThatEndsAnEarlierOneMakesTheNextSessionCompareEverything() {
        {
            CleanSession session = newSession<CleanSession>();
            // The new record is written and read back, then nothing can be removed.
            MemoryStore store(m_blobs, [&, calls = 0]() mutable {
                return ++calls > 2 ? MemoryStore::Fault::Unreachable : MemoryStore::Fault::None;
            });
            QCOMPARE(code(runSession(session, store)), EngineErrorCode::StoreUnreachable);
        }
        CleanSession session(profile(), m_host->library(), subject(),
                             CleanSession::Extent::FullTiersAndLarge);
        MemoryStore store(m_blobs);
        QVERIFY(runSession(session, store));
        QVERIFY(database()->isComparisonDue(subject().store));
        QVERIFY(!UnsentChanges::exist(
                     database()->log(),
                     KnownTransactions(profile(), subject().store, database()->log().database()))
                     .value());
        verifySound();
    }

    void aWrongNumberOfConflictsIsCorrected() {
        QVERIFY(profile().run(QStringLiteral("UPDATE counts SET conflicts = 7")));
        m_host->restart();
        QVERIFY(run<SyncSession>());
        QCOMPARE(database()->countOfConflicts().value(), 0);
        verifySound();
    }

    void aStoreThatHasLostRecordsGetsThemAgain_data() {
        QTest::addColumn<bool>("isEmptied");
        QTest::addRow("restored from an old copy") << false;
        QTest::addRow("replaced by an empty one") << true;
    }
    void aStoreThatHasLostRecordsGetsThemAgain() {
        QFETCH(bool, isEmptied);
        const MemoryStore::Blobs old = isEmptied ? MemoryStore::Blobs() : m_blobs;
        saveNote(QStringLiteral("later"));
        QVERIFY(run<SyncSession>());
        m_blobs = old;
        QVERIFY(!isInStore("later"));
        QVERIFY(run<SyncSession>());
        QVERIFY(isInStore("later"));
        verifySound();
    }

    /// An edit during a session that compares is recorded, not taken for written.
    void whatIsSavedWhileEverythingIsComparedIsSentNext() {
        m_host->restart();
        SyncSession session = newSession<SyncSession>();
        MemoryStore store(m_blobs);
        const EngineFuture future;
        for (int step = 0; !session.isDone(); ++step) {
            QVERIFY(session.accessStore(store, future));
            saveNote(QStringLiteral("between %1").arg(step));
            QVERIFY(session.accessProfile());
            saveNote(QStringLiteral("after %1").arg(step));
        }
        QVERIFY(run<SyncSession>());
        verifySound();
    }
};

VELMORA_TEST(ComparisonTest)
#include "ComparisonTest.moc"
