#include "Support/Compaction.h"

#include "Engine/Notes/EngineDatabase.h"
#include "Engine/Synchronization/RecordTiers.h"
#include "Engine/Synchronization/SyncJob.h"
#include "Host/SyncStoreLayout.h"
#include "Support/Failure.h"
#include "Support/SessionTestCase.h"

/// Stores stay small while they are synchronized.
class CompactionTest : public SessionTestCase {
    Q_OBJECT
private:
    QHash<QString, qint64> sizes() const {
        QHash<QString, qint64> sizes;
        for (const auto &[name, record] : m_blobs) {
            if (name.startsWith(QStringLiteral("transactions/"))) {
                sizes.insert(name, record.size());
            }
        }
        return sizes;
    }

    void edit(const QString &text) {
        Note note = m_host->inbox()->notes().value().first();
        note.text = text;
        QVERIFY(m_host->inbox()->saveNote(note));
        QVERIFY(run<SyncSession>());
    }

    /// Saves and synchronizes as many new notes as fill a tier.
    void fillTier() {
        for (int i = 1; i < RecordTiers::MostInTier; ++i) {
            saveNote(QString::number(i));
            QVERIFY(run<SyncSession>());
        }
        QCOMPARE(sizes().size(), RecordTiers::MostInTier);
    }

    /// Merges all records into one, but removes none; returns the name of the new one.
    QString mergeWithoutRemoval() {
        const QStringList old = sizes().keys();
        Compaction session = newSession<Compaction>();
        // The new record is written and read back, then nothing can be removed.
        MemoryStore store(m_blobs, [calls = 0]() mutable {
            return ++calls > 2 ? MemoryStore::Fault::Unreachable : MemoryStore::Fault::None;
        });
        const Expected<void> merged = runSession(session, store);
        QStringList added = sizes().keys();
        added.removeIf([&](const QString &name) { return old.contains(name); });
        return merged || added.size() != 1 ? QString() : added.first();
    }

    void runJob() {
        WorkerThreads threads;
        const auto job =
            std::make_shared<SyncJob>(SyncJob::Kind::Synchronization, profile(), m_host->library(),
                                      subject(), std::make_shared<MemoryStore>(m_blobs));
        bool hasEnded = false;
        job->start(threads, [&] { hasEnded = true; });
        QTRY_VERIFY_WITH_TIMEOUT(hasEnded, 60000);
        QCOMPARE(description(job->result()), QString());
        QCOMPARE(job->problems().count(), 0);
    }

    std::shared_ptr<EngineDatabase> inbox() const {
        return m_host->library().synchronizedDatabase(InboxUUID);
    }
    KnownTransactions known() const {
        return {profile(), subject().store, inbox()->log().database()};
    }

    void verifyComplete() const {
        QVERIFY(known().isComplete().value());
        QVERIFY(!known().hasUnwritten().value());
    }

    /// Adds a known record, which the store does not have, with an operation that the profile
    /// neither has nor knows to be superseded. Returns its name.
    QString addKnownRecord(qint64 size) const {
        const QString name =
            QUuid::createUuid().toString(QUuid::WithoutBraces) + SyncStoreLayout::RecordEnding;
        const OperationId unknown(Operation::IdentifierSize, 'x');
        const auto add = [&] { return known().add(name, {{unknown}, {}, size}); };
        return profile().write(add) ? name : QString();
    }

    /// Reports what the profile has lost, then forgets that.
    void repair() {
        SyncSession session(profile(), m_host->library(), subject(),
                            RecordVerification::Extent::All);
        MemoryStore store(m_blobs);
        QVERIFY(runSession(session, store));
        QCOMPARE(session.problems().count(), 1);
    }

    QStringList titles() {
        QStringList titles;
        const QList<Note> notes = m_host->inbox()->notes().value();
        for (const Note &note : notes) {
            titles.append(note.title);
        }
        titles.sort();
        return titles;
    }

    /// Another computer must get the same notes from the store.
    void verifyNotesOfAnotherComputer() {
        const QStringList expected = titles();
        m_host->goToComputer(QStringLiteral("Other"));
        QVERIFY(run<SyncSession>());
        QCOMPARE(titles(), expected);
    }

private Q_SLOTS:
    void init() { beginWithNotes({QStringLiteral("first")}); }
    void cleanup() {
        verifySound();
        m_host.reset();
    }

    void onlyFullTiersAreRewritten() {
        QCOMPARE(RecordTiers::full({}), QStringList());
        QHash<QString, qint64> sizes;
        for (int i = 0; i < RecordTiers::MostInTier - 1; ++i) {
            sizes.insert(QStringLiteral("small %1").arg(i), 100);
            sizes.insert(QStringLiteral("medium %1").arg(i), 10'000);
            sizes.insert(QStringLiteral("large %1").arg(i), RecordTiers::LargeSize);
        }
        QCOMPARE(RecordTiers::full(sizes), QStringList());
        sizes.insert(QStringLiteral("large, too"), RecordTiers::LargeSize);
        QCOMPARE(RecordTiers::full(sizes), QStringList());
        sizes.insert(QStringLiteral("small, too"), 8191);
        QStringList names = RecordTiers::full(sizes);
        QCOMPARE(names.size(), RecordTiers::MostInTier);
        QVERIFY(names.contains(QStringLiteral("small, too")));
        // With a full tier, all that are smaller.
        sizes.insert(QStringLiteral("medium, too"), 8192);
        QCOMPARE(RecordTiers::full(sizes).size(), 2 * RecordTiers::MostInTier);
    }

    void theSmallestRecordsAreRewritten() {
        QHash<QString, qint64> sizes;
        for (int size = 1; size <= 1000; ++size) {
            sizes.insert(QString::number(size), size);
        }
        QStringList expected;
        for (int size = 1; size <= RecordTiers::MostAtOnce; ++size) {
            expected.append(QString::number(size));
        }
        QCOMPARE(RecordTiers::full(sizes), expected);
    }

    void recordsAreMergedWhenATierIsFull() {
        fillTier();
        QVERIFY(run<UsualCompaction>());
        QCOMPARE(sizes().size(), 1);
        verifyNotesOfAnotherComputer();
    }

    /// Merging takes time in proportion to what is merged.
    void whatIsNotMergedIsNotExamined() {
        fillTier();
        addKnownRecord(RecordTiers::LargeSize);
        QVERIFY(run<UsualCompaction>());
        QCOMPARE(sizes().size(), 1);
        QVERIFY(!inbox()->isComparisonDue(subject().store));
        QVERIFY(run<Compaction>());
        QVERIFY(inbox()->isComparisonDue(subject().store));
        repair();
        verifyNotesOfAnotherComputer();
    }

    void recordsWithUnknownOperationsAreNotMerged() {
        fillTier();
        const QString name = addKnownRecord(1);
        QVERIFY(run<UsualCompaction>());
        QCOMPARE(sizes().size(), 1);
        QVERIFY(known().sizes().value().contains(name));
        QVERIFY(inbox()->isComparisonDue(subject().store));
        repair();
        verifyNotesOfAnotherComputer();
    }

    /// Without it, the tier is not full.
    void recordsWithUnknownOperationsDoNotFillATier() {
        for (int i = 2; i < RecordTiers::MostInTier; ++i) {
            saveNote(QString::number(i));
            QVERIFY(run<SyncSession>());
        }
        addKnownRecord(1);
        const MemoryStore::Blobs before = m_blobs;
        QVERIFY(run<UsualCompaction>());
        QCOMPARE(m_blobs, before);
        QVERIFY(inbox()->isComparisonDue(subject().store));
        repair();
    }

    void nothingIsRewrittenBeforeATierIsFull() {
        for (int i = 2; i < RecordTiers::MostInTier; ++i) {
            saveNote(QString::number(i));
            QVERIFY(run<SyncSession>());
        }
        const MemoryStore::Blobs before = m_blobs;
        QVERIFY(run<Compaction>());
        QCOMPARE(m_blobs, before);
    }

    void manyEditsLeaveFewRecords() {
        constexpr int edits = 150;
        for (int i = 0; i < edits; ++i) {
            edit(QString(200, QChar(u'a' + i % 26)));
            QVERIFY(run<Compaction>());
        }
        QVERIFY2(sizes().size() < 2 * RecordTiers::MostInTier,
                 qPrintable(QString::number(sizes().size())));
        verifyNotesOfAnotherComputer();
    }

    /// As an earlier version has left it.
    void aStoreWithManyRecordsIsMergedWithoutAnEdit() {
        for (int i = 0; i < 2 * RecordTiers::MostAtOnce; ++i) {
            saveNote(QString::number(i));
            QVERIFY(run<SyncSession>());
        }
        QVERIFY(sizes().size() > 2 * RecordTiers::MostAtOnce);
        // Compared everything already.
        runJob();
        QVERIFY(sizes().size() > 2 * RecordTiers::MostAtOnce);
        m_host->goToComputer(QStringLiteral("Other"));
        m_host->goToComputer(QStringLiteral("Profile"));
        runJob();
        QVERIFY(sizes().size() < RecordTiers::MostInTier);
        verifyNotesOfAnotherComputer();
    }

    /// Another computer has not read them, and merges them after this one.
    void aRecordThatAnotherComputerMergedMeanwhileIsNoProblem() {
        fillTier();
        const QString merged = mergeWithoutRemoval();
        m_blobs.erase(merged);
        Compaction session = newSession<Compaction>();
        MemoryStore store(m_blobs);
        QVERIFY(runSession(session, store));
        QCOMPARE(session.problems().count(), 0);
        QVERIFY(run<SyncSession>());
        verifyNotesOfAnotherComputer();
    }

    void afterARewriteNothingIsComparedAgain() {
        fillTier();
        QVERIFY(run<Compaction>());
        const MemoryStore::Blobs before = m_blobs;
        QVERIFY(run<SyncSession>());
        QCOMPARE(m_blobs, before);
        verifyComplete();
    }

    /// As on a server that refuses deletions, or after the program was killed.
    void recordsThatCouldNotBeRemovedAreNotRewrittenAgain() {
        fillTier();
        const auto before = m_blobs.size();
        {
            Compaction session = newSession<Compaction>();
            // The new record is written and read back, then nothing can be removed.
            MemoryStore store(m_blobs, [&, calls = 0]() mutable {
                return ++calls > 2 ? MemoryStore::Fault::Unreachable : MemoryStore::Fault::None;
            });
            QCOMPARE(code(runSession(session, store)), EngineErrorCode::StoreUnreachable);
        }
        QCOMPARE(m_blobs.size(), before + 1);
        const MemoryStore::Blobs failed = m_blobs;
        {
            Compaction session = newSession<Compaction>();
            MemoryStore store(m_blobs, [] { return MemoryStore::Fault::Unreachable; });
            QCOMPARE(code(runSession(session, store)), EngineErrorCode::StoreUnreachable);
        }
        QCOMPARE(m_blobs, failed);
        QVERIFY(run<Compaction>());
        QCOMPARE(sizes().size(), 1);
        verifyNotesOfAnotherComputer();
    }

    /// Then what it contained would be lost.
    void nothingIsRemovedIfTheRecordThatReplacedItIsGone() {
        fillTier();
        const QString merged = mergeWithoutRemoval();
        m_blobs.erase(merged);
        QVERIFY(run<SyncSession>());
        QVERIFY(run<Compaction>());
        QCOMPARE(sizes().size(), 1);
        verifyNotesOfAnotherComputer();
    }

    /// As on a server that lost power before the new record was on its disk.
    void nothingIsRemovedIfTheRecordThatReplacedItIsDamaged() {
        fillTier();
        const QStringList old = sizes().keys();
        m_blobs[mergeWithoutRemoval()].clear();
        Compaction session = newSession<Compaction>();
        MemoryStore store(m_blobs);
        QVERIFY(runSession(session, store));
        QCOMPARE(session.problems().count(), 1);
        for (const QString &name : old) {
            QVERIFY(m_blobs.contains(name));
        }
        QVERIFY(run<SyncSession>());
        QVERIFY(run<Compaction>());
        verifyNotesOfAnotherComputer();
    }

    void twoComputersMergeAtOnce() {
        fillTier();
        const QString first = QStringLiteral("First");
        m_host->goToComputer(first);
        QVERIFY(run<SyncSession>());
        m_host->goToComputer(QStringLiteral("Second"));
        QVERIFY(run<SyncSession>());
        const MemoryStore::Blobs before = m_blobs;
        QVERIFY(run<Compaction>());
        QCOMPARE(sizes().size(), 1);
        // The first one has not seen that.
        m_host->goToComputer(first);
        m_blobs.insert(before.begin(), before.end());
        QVERIFY(run<Compaction>());
        QCOMPARE(sizes().size(), 2);
        QVERIFY(run<SyncSession>());
        verifyNotesOfAnotherComputer();
    }

    /// What it has rewritten is found again, the rest is not looked at.
    void afterARewriteByAnotherComputerNothingIsComparedAgain_data() {
        QTest::addColumn<bool>("isEdited");
        QTest::addRow("nothing to send") << false;
        QTest::addRow("an edit to send") << true;
    }
    void afterARewriteByAnotherComputerNothingIsComparedAgain() {
        QFETCH(const bool, isEdited);
        fillTier();
        const QString other = QStringLiteral("Merging");
        m_host->goToComputer(other);
        QVERIFY(run<SyncSession>());
        QVERIFY(inbox()->removeNote(inbox()->notes().value().first()));
        QVERIFY(run<SyncSession>());
        m_host->goToComputer(QStringLiteral("Profile"));
        QVERIFY(run<SyncSession>());
        m_host->goToComputer(other);
        QVERIFY(run<UsualCompaction>());
        QCOMPARE(sizes().size(), 1);
        m_host->goToComputer(QStringLiteral("Profile"));
        inbox()->setCompared(subject().store);
        saveNote(QStringLiteral("not recorded"));
        QVERIFY(profile().run(QStringLiteral("DELETE FROM unwritten")));
        if (isEdited) {
            Note note = inbox()->notes().value().first();
            note.text = QStringLiteral("edited");
            QVERIFY(inbox()->saveNote(note));
        }
        QVERIFY(run<SyncSession>());
        QCOMPARE(sizes().size(), isEdited ? 2 : 1);
        QVERIFY(std::none_of(m_blobs.begin(), m_blobs.end(), [](const auto &blob) {
            return blob.second.contains("not recorded");
        }));
        verifyComplete();
        inbox()->setComparisonDue(subject().store);
        QVERIFY(run<SyncSession>());
        verifyNotesOfAnotherComputer();
    }

    /// A third computer reads the merged record before the others are removed.
    void contentsThatAnotherRecordHasAlreadyAreNotWrittenAgain() {
        fillTier();
        const QString third = QStringLiteral("Third");
        m_host->goToComputer(third);
        QVERIFY(run<SyncSession>());
        m_host->goToComputer(QStringLiteral("Profile"));
        QVERIFY(!mergeWithoutRemoval().isEmpty());
        m_host->goToComputer(third);
        QVERIFY(run<SyncSession>());
        m_host->goToComputer(QStringLiteral("Profile"));
        QVERIFY(run<Compaction>());
        QCOMPARE(sizes().size(), 1);
        const MemoryStore::Blobs before = m_blobs;
        m_host->goToComputer(third);
        inbox()->setCompared(subject().store);
        QVERIFY(run<SyncSession>());
        QCOMPARE(m_blobs, before);
        verifyComplete();
        verifyNotesOfAnotherComputer();
    }

    void aLargeRecordIsRewrittenWhenMostOfItIsSuperseded() {
        edit(QString(RecordTiers::LargeSize, u'x'));
        edit(QStringLiteral("short"));
        QVERIFY(run<Compaction>());
        const QList<qint64> left = sizes().values();
        QVERIFY(std::all_of(left.begin(), left.end(),
                            [](qint64 size) { return size < RecordTiers::LargeSize; }));
        verifyNotesOfAnotherComputer();
    }

    void aLargeRecordIsRewrittenAfterTheNextComparison() {
        edit(QString(RecordTiers::LargeSize, u'x'));
        edit(QStringLiteral("short"));
        const auto hasLarge = [this] {
            const QList<qint64> all = sizes().values();
            return std::any_of(all.begin(), all.end(),
                               [](qint64 size) { return size >= RecordTiers::LargeSize; });
        };
        runJob();
        QVERIFY(hasLarge());
        m_host->goToComputer(QStringLiteral("Other"));
        m_host->goToComputer(QStringLiteral("Profile"));
        runJob();
        QVERIFY(!hasLarge());
        verifyNotesOfAnotherComputer();
    }

    /// Others must not learn that an edit is superseded before they can read its successor.
    void nothingIsRewrittenWhileAnEditWaits() {
        fillTier();
        Note note = m_host->inbox()->notes().value().first();
        note.text = QStringLiteral("not synchronized yet");
        QVERIFY(m_host->inbox()->saveNote(note));
        const MemoryStore::Blobs before = m_blobs;
        QVERIFY(run<Compaction>());
        QCOMPARE(m_blobs, before);
    }
};

VELMORA_TEST(CompactionTest)
#include "CompactionTest.moc"
