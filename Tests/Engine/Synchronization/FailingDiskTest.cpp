#include "Engine/Profile/ProfileInspection.h"
#include "Support/Failure.h"
#include "Support/FaultTestCase.h"
#include "Support/FaultyFileSystem.h"
#include "Support/OldProfile.h"

Q_DECLARE_METATYPE(FaultyFileSystem::Fault)
Q_DECLARE_METATYPE(FaultyFileSystem::Duration)

/// The disk of a profile fails at any call, once or from then on. What was reported as done is
/// there afterwards, nothing else was lost, the profile opens, and the failure was reported.
class FailingDiskTest : public FaultTestCase {
    Q_OBJECT
private:
    using Fault = FaultyFileSystem::Fault;
    using Duration = FaultyFileSystem::Duration;

    struct Story {
        /// The profile that it begins with; empty for none.
        QString profile;
        /// What happens before the disk fails.
        std::function<Expected<void>(Computer &)> preparation;
        /// Returns the problems with single records.
        std::function<Expected<QList<Error>>(Computer &)> action;
        /// Whether profile and store have the same afterwards.
        bool isSynchronized = false;
    };

    /// The stores as they are before each story, by the profile that it begins with.
    QMap<QString, MemoryStore::Blobs> m_firstBlobs;
    /// The store as a story changes it.
    MemoryStore::Blobs m_blobs;

    template <class Session>
    Expected<QList<Error>> run(Computer &computer) {
        MemoryStore store(m_blobs);
        return computer.run<Session>(UUID(), store);
    }
    template <class Session>
    Expected<void> runSoundly(Computer &computer) {
        return run<Session>(computer).map([](const QList<Error> & /*problems*/) {});
    }

    static Expected<QList<Error>> withoutProblems(const Expected<void> &result) {
        return result.map([] { return QList<Error>(); });
    }

    QMap<QString, Story> stories() {
        const auto open = [](Computer &computer) { return computer.open(); };
        const auto start = [](Computer &computer) { return withoutProblems(computer.open()); };
        const auto synchronize = [this](Computer &computer) { return run<SyncSession>(computer); };
        const auto openAndSynchronize = [this](Computer &computer) {
            return computer.open().and_then([&] { return runSoundly<SyncSession>(computer); });
        };
        const auto merge = [this](Computer &computer) { return run<Compaction>(computer); };
        const auto nothing = [](Computer &) { return Expected<void>(); };
        const QString used = QStringLiteral("Used");
        const QString unused = QStringLiteral("Unused");
        return {
            {QStringLiteral("first start"), {{}, nothing, start}},
            {QStringLiteral("start"), {used, nothing, start}},
            {QStringLiteral("save"),
             {used, open,
              [](Computer &one) { return withoutProblems(one.add(QStringLiteral("new"))); }}},
            {QStringLiteral("edit"),
             {used, open,
              [](Computer &one) { return withoutProblems(one.edit(QStringLiteral("a"))); }}},
            {QStringLiteral("delete"),
             {used, open,
              [](Computer &one) { return withoutProblems(one.remove(QStringLiteral("b"))); }}},
            {QStringLiteral("rename"),
             {used, open,
              [](Computer &one) {
                  return withoutProblems(
                      one.library().renameDatabase(one.database(), QStringLiteral("Plans")));
              }}},
            {QStringLiteral("synchronize"), {used, open, synchronize, true}},
            {QStringLiteral("import"), {unused, open, synchronize, true}},
            {QStringLiteral("clean up"),
             {used, openAndSynchronize, [this](Computer &one) { return run<CleanSession>(one); },
              true}},
            {QStringLiteral("merge records"), {QStringLiteral("Full"), open, merge, true}},
            {QStringLiteral("resume merging"), {QStringLiteral("Merged"), open, merge, true}},
        };
    }

    /// Begins the story on a new computer.
    std::unique_ptr<Computer> begin(const Story &story, const QString &profile) {
        if (!story.profile.isEmpty()) {
            copyProfile(folder(story.profile), profile);
        }
        m_blobs = m_firstBlobs[story.profile];
        auto computer = std::make_unique<Computer>(profile);
        orThrow(story.preparation(*computer));
        return computer;
    }

    /// The number of the calls that may fail.
    qint64 countCalls(const Story &story, Fault fault, Contents *before, Contents *after) {
        const QString profile = newFolder();
        qint64 calls = 0;
        {
            const std::unique_ptr<Computer> computer = begin(story, profile);
            *before = computer->contents();
            const FaultyFileSystem disk(fault, std::numeric_limits<qint64>::max(), Duration::Once);
            orThrow(story.action(*computer));
            calls = disk.calls();
        }
        *after = contentsAt(profile);
        return calls;
    }

    void verifyFailure(const Story &story, Fault fault, qint64 call, Duration duration,
                       const Contents &before, const Contents &after) {
        const QString profile = newFolder();
        Expected<QList<Error>> result;
        {
            std::unique_ptr<Computer> computer = begin(story, profile);
            const FaultyFileSystem disk(fault, call, duration);
            result = story.action(*computer);
            QVERIFY(disk.hasFailed());
            computer.reset();
        }
        QVERIFY(result || !description(result).isEmpty());
        const Contents found = contentsAt(profile);
        verifyBetween(found, before, after);
        QVERIFY(!result || !result->isEmpty() || found == after);
        MemoryStore store(m_blobs);
        if (result && result->isEmpty() && story.isSynchronized) {
            verifySound(profile, store);
        }
        verifyNothingIsLost(profile, store);
        QDir(profile).removeRecursively();
    }

    /// The power fails when the story has ended, after the disk could not store something.
    void verifyPowerFailure(const Story &story, qint64 call, Duration duration,
                            const Contents &before, const Contents &after) {
        const QString profile = newFolder();
        Expected<QList<Error>> result;
        const QString left = newFolder();
        {
            const std::unique_ptr<Computer> computer = begin(story, profile);
            const FaultyFileSystem disk(Fault::Flush, call, duration);
            result = story.action(*computer);
            copyProfile(profile, left);
            QFile::remove(left + QStringLiteral("/profile.sqlite-shm"));
            disk.losePower(left);
        }
        const bool isReported = !result || !result->isEmpty();
        const Contents found = contentsAt(left);
        verifyBetween(found, before, after);
        QVERIFY(isReported || found == after);
        MemoryStore store(m_blobs);
        if (!isReported && story.isSynchronized) {
            verifySound(left, store);
        }
        verifyNothingIsLost(left, store);
        QDir(profile).removeRecursively();
        QDir(left).removeRecursively();
    }

private Q_SLOTS:
    void initTestCase() {
        FaultyFileSystem::install();
        MemoryStore::Blobs blobs;
        MemoryStore store(blobs);
        writeProfiles(store);
        for (const QString &profile :
             {QString(), QStringLiteral("Unused"), QStringLiteral("Used")}) {
            m_firstBlobs.insert(profile, blobs);
        }
        fillTier(blobs);
        m_firstBlobs.insert(QStringLiteral("Full"), blobs);
        mergeWithoutRemoval(blobs);
        m_firstBlobs.insert(QStringLiteral("Merged"), blobs);
    }

    void losesNothing_data() {
        QTest::addColumn<QString>("story");
        QTest::addColumn<Fault>("fault");
        QTest::addColumn<Duration>("duration");
        const QStringList names = stories().keys();
        for (const QString &name : names) {
            const QByteArray text = name.toUtf8();
            QTest::addRow("%s, one error", text.constData())
                << name << Fault::Error << Duration::Once;
            QTest::addRow("%s, errors", text.constData())
                << name << Fault::Error << Duration::FromThenOn;
            QTest::addRow("%s, full for a moment", text.constData())
                << name << Fault::Full << Duration::Once;
            QTest::addRow("%s, full", text.constData())
                << name << Fault::Full << Duration::FromThenOn;
        }
    }
    void losesNothing() {
        QFETCH(QString, story);
        QFETCH(Fault, fault);
        QFETCH(Duration, duration);
        const Story told = stories().value(story);
        Contents before;
        Contents after;
        const qint64 calls = countCalls(told, fault, &before, &after);
        forCalls(calls, 2,
                 [&](qint64 call) { verifyFailure(told, fault, call, duration, before, after); });
    }

    void aPowerFailureLosesNothing_data() {
        QTest::addColumn<QString>("story");
        QTest::addColumn<Duration>("duration");
        const QStringList names = stories().keys();
        for (const QString &name : names) {
            const QByteArray text = name.toUtf8();
            QTest::addRow("%s, one failed flush", text.constData()) << name << Duration::Once;
            QTest::addRow("%s, failed flushes", text.constData()) << name << Duration::FromThenOn;
        }
    }
    void aPowerFailureLosesNothing() {
        QFETCH(QString, story);
        QFETCH(Duration, duration);
        const Story told = stories().value(story);
        Contents before;
        Contents after;
        const qint64 flushes = countCalls(told, Fault::Flush, &before, &after);
        // Also if all is flushed.
        forCalls(flushes + 1, 2,
                 [&](qint64 flush) { verifyPowerFailure(told, flush, duration, before, after); });
    }

    void aMigrationLosesNothing_data() {
        QTest::addColumn<int>("version");
        QTest::addColumn<Fault>("fault");
        QTest::addColumn<Duration>("duration");
        for (int version = ProfileInspection::OldestSchemaVersion;
             version < ProfileInspection::SchemaVersion; ++version) {
            QTest::addRow("%d, one error", version) << version << Fault::Error << Duration::Once;
            QTest::addRow("%d, errors", version) << version << Fault::Error << Duration::FromThenOn;
            QTest::addRow("%d, full for a moment", version)
                << version << Fault::Full << Duration::Once;
            QTest::addRow("%d, full", version) << version << Fault::Full << Duration::FromThenOn;
        }
    }
    void aMigrationLosesNothing() {
        QFETCH(int, version);
        QFETCH(Fault, fault);
        QFETCH(Duration, duration);
        const QString old = folder(QStringLiteral("Old %1").arg(version));
        if (!QFileInfo::exists(old)) {
            QVERIFY(QDir().mkdir(old));
            OldProfile::write(old + QStringLiteral("/profile.sqlite"), 30, text(), version);
        }
        Contents expected{{{}, QStringLiteral("Plans")}};
        for (int i = 0; i < 30; ++i) {
            expected.insert(QString::number(i), text());
        }
        const auto open = [&](qint64 call, const QString &profile, qint64 *calls) {
            copyProfile(old, profile);
            Computer computer(profile);
            const FaultyFileSystem disk(fault, call, duration);
            const Expected<void> opened = computer.open();
            *calls = disk.calls();
            return opened;
        };
        qint64 calls = 0;
        QVERIFY(open(std::numeric_limits<qint64>::max(), newFolder(), &calls));
        forCalls(calls, 2, [&](qint64 call) {
            const QString profile = newFolder();
            qint64 count = 0;
            const Expected<void> opened = open(call, profile, &count);
            QVERIFY(count >= call);
            QVERIFY(opened || !description(opened).isEmpty());
            QCOMPARE(contentsAt(profile), expected);
            QCOMPARE(Verification::problems(profile), QStringList());
            QDir(profile).removeRecursively();
        });
    }

    /// So many operations are sorted in a temporary file, which may be on another disk.
    void losesNothingWithoutTemporaryFiles_data() {
        QTest::addColumn<bool>("isCleaningUp");
        QTest::addRow("synchronize") << false;
        QTest::addRow("clean up") << true;
    }
    void losesNothingWithoutTemporaryFiles() {
        QFETCH(bool, isCleaningUp);
        const QString profile = newFolder();
        copyProfile(folder(QStringLiteral("Used")), profile);
        m_blobs = m_firstBlobs[QStringLiteral("Used")];
        Computer computer(profile);
        orThrow(computer.open());
        orThrow(run<SyncSession>(computer));
        const Contents expected = computer.contents();
        orThrow(computer.profile().value(QStringLiteral("PRAGMA cache_size = 1")));
        orThrow(computer.profile().run(
            QStringLiteral("INSERT INTO operations (database, digest, note_uuid, title, text,"
                           " supersedes, salt, position) WITH RECURSIVE number (n) AS (SELECT 1"
                           " UNION ALL SELECT n + 1 FROM number WHERE n < 60000)"
                           " SELECT databases.id, randomblob(16), 'u' || n, '', '', x'', x'', n"
                           " FROM number, databases WHERE uuid = ?"),
            {UUID()}));
        const MemoryStore::Blobs blobs = m_blobs;
        {
            const FaultyFileSystem disk(Fault::NoTemporaryFiles, 1, Duration::FromThenOn);
            const Expected<void> result = isCleaningUp ? runSoundly<CleanSession>(computer)
                                                       : runSoundly<SyncSession>(computer);
            QVERIFY(disk.hasFailed());
            QCOMPARE(code(result), EngineErrorCode::ProfileNotWritten);
            QVERIFY(!description(result).isEmpty());
        }
        QCOMPARE(m_blobs, blobs);
        orThrow(computer.profile().run(
            QStringLiteral("DELETE FROM operations WHERE note_uuid LIKE 'u%'")));
        orThrow(run<SyncSession>(computer));
        QCOMPARE(computer.contents(), expected);
    }
};

VELMORA_TEST(FailingDiskTest)
#include "FailingDiskTest.moc"
