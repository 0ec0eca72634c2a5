#include "Engine/Notes/TransactionName.h"
#include "Engine/Stores/Folder/FolderGrants.h"
#include "Engine/Stores/Folder/FolderStore.h"
#include "Host/SyncStoreLayout.h"
#include "Support/Failure.h"
#include "Support/FaultTestCase.h"
#include "Support/FaultyFolder.h"
#include "Support/TestLocation.h"

Q_DECLARE_METATYPE(FaultyFolder::Fault)
Q_DECLARE_METATYPE(FaultyFolder::Duration)
Q_DECLARE_METATYPE(FaultyFolder::Renaming)

/// The volume of a store in a folder fails at any system call, once or from then on. What was
/// reported as synchronized is in the store, nothing was lost, nothing sound was set aside, and the
/// failure was reported.
class FailingVolumeTest : public FaultTestCase {
    Q_OBJECT
private:
    using Fault = FaultyFolder::Fault;
    using Duration = FaultyFolder::Duration;
    using Renaming = FaultyFolder::Renaming;

    struct Outcome {
        Expected<void> result;
        QList<int> problems;
        Contents contents;
        /// The system calls to which the fault applies.
        QStringList calls;
        bool hasFailed = false;
    };

    const ProfileDatabase m_noProfile;

    std::unique_ptr<FolderStore> storeAt(const QString &path) const {
        return std::make_unique<FolderStore>(locationWithoutEngine(Url::fileURL(path)),
                                             std::make_shared<StoreOperations>(),
                                             std::make_shared<FolderGrants>(m_noProfile));
    }

    QString pathOfStore(const QString &name) const {
        return folder(name + u'.' + SyncStoreLayout::Extension);
    }

    void writeStore(const QString &name, const MemoryStore::Blobs &blobs) const {
        const QString path = pathOfStore(name);
        for (const QString &folder :
             {SyncStoreLayout::DatabasesFolder, SyncStoreLayout::TransactionsFolder}) {
            QVERIFY(QDir().mkpath(path + u'/' + folder));
        }
        for (const auto &[blob, contents] : blobs) {
            QFile file(path + u'/' + blob);
            QVERIFY(QDir().mkpath(QFileInfo(file).path()));
            QVERIFY(file.open(QIODevice::WriteOnly));
            QCOMPARE(file.write(contents), contents.size());
        }
    }

    static void copyStore(const QString &source, const QString &destination) {
        QDirIterator folders(source, QDir::Dirs | QDir::NoDotAndDotDot,
                             QDirIterator::Subdirectories);
        while (folders.hasNext()) {
            const QString path = folders.next();
            copyProfile(path, destination + path.mid(source.size()));
        }
    }

    /// Returns the names of all files that begin with `prefix`, those of hidden files among them.
    static QStringList files(const QString &store, const QString &prefix = {}) {
        QStringList names;
        QDirIterator files(store, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            files.next();
            if (files.fileName().startsWith(prefix)) {
                names.append(files.fileName());
            }
        }
        return names;
    }

    /// Anyone who may use the package may use every folder in it.
    static void verifyPermissions(const QString &store) {
        QDirIterator folders(store, QDir::Dirs | QDir::NoDotAndDotDot,
                             QDirIterator::Subdirectories);
        while (folders.hasNext()) {
            folders.next();
            QCOMPARE(folders.fileInfo().permissions(), QFileInfo(store).permissions());
        }
    }

    static qsizetype countSetAside(const QString &store) {
        const QStringList names = files(store);
        return std::count_if(names.begin(), names.end(), TransactionName::isOfDamaged);
    }

    /// Tells the story with a copy of its profile at `profile` and one of its store at `path`.
    Outcome tell(const StoreStory &story, const QString &profile, const QString &path, Fault fault,
                 qint64 call, Duration duration, Renaming renaming) {
        copyProfile(folder(story.profile), profile);
        copyStore(pathOfStore(story.store), path);
        Computer computer(profile);
        orThrow(computer.open());
        const std::unique_ptr<FolderStore> store = storeAt(path);
        Outcome outcome;
        {
            const FaultyFolder volume(path, fault, call, duration, renaming);
            const Expected<QList<Error>> problems = perform(story.job, computer, *store);
            outcome.result = problems.map([](const QList<Error> & /*all*/) {});
            outcome.problems = codes(problems);
            outcome.calls = volume.calls();
            outcome.hasFailed = volume.hasFailed();
        }
        outcome.contents = computer.contents();
        return outcome;
    }

    void verifyFailure(const StoreStory &story, Fault fault, qint64 call, Duration duration,
                       Renaming renaming, const Contents &before, const Outcome &sound) {
        const QString profile = newFolder();
        const QString path = profile + u'.' + SyncStoreLayout::Extension;
        const Outcome outcome = tell(story, profile, path, fault, call, duration, renaming);
        QVERIFY(outcome.hasFailed);
        const bool isReported = !outcome.result || outcome.problems != sound.problems;
        const QString name = outcome.calls.value(call - 1);
        // The file has its name already; its other one is removed later.
        const bool isOtherName = duration == Duration::Once && name == QStringLiteral("unlinkat") &&
                                 outcome.calls.value(call - 2) == QStringLiteral("linkat");
        const bool isHarmless = fault == Fault::Interrupted || fault == Fault::Short || isOtherName;
        QVERIFY2(isReported != isHarmless, qPrintable(name));
        verifyBetween(outcome.contents, before, sound.contents);
        const std::unique_ptr<FolderStore> store = storeAt(path);
        if (!isReported) {
            QCOMPARE(outcome.contents, sound.contents);
            verifySound(profile, *store);
        }
        // An error may keep an unfinished file from being removed.
        QVERIFY(fault == Fault::Error || files(path, QStringLiteral(".new-")).isEmpty());
        if (duration == Duration::Once) {
            verifyPermissions(path);
        }
        verifyNothingIsLost(profile, *store);
        QCOMPARE(countSetAside(path), story.store == QStringLiteral("Damaged") ? 1 : 0);
        QDir(profile).removeRecursively();
        QDir(path).removeRecursively();
    }

private Q_SLOTS:
    void initTestCase() {
        MemoryStore::Blobs blobs;
        writeStore(QStringLiteral("Empty"), blobs);
        MemoryStore store(blobs);
        writeProfiles(store);
        writeStore(QStringLiteral("Sound"), blobs);
        writeStore(QStringLiteral("Damaged"), damage(blobs));
        fillTier(blobs);
        writeStore(QStringLiteral("Full"), blobs);
        mergeWithoutRemoval(blobs);
        writeStore(QStringLiteral("Merged"), blobs);
    }

    void everySystemCallCanFail_data() {
        QTest::addColumn<Renaming>("renaming");
        QTest::addColumn<QString>("expected");
        QTest::addRow("local volume")
            << Renaming::WithFlags
            << QStringLiteral(
                   "fchmod fdatasync fdopendir fstat fstatat fsync mkdirat open openat read readdir"
                   " renameat2 unlinkat write");
        QTest::addRow("network volume")
            << Renaming::WithoutFlags
            << QStringLiteral(
                   "fchmod fdatasync fdopendir fstat fstatat fsync linkat mkdirat open openat read"
                   " readdir unlinkat write");
    }
    void everySystemCallCanFail() {
        QFETCH(Renaming, renaming);
        QFETCH(QString, expected);
        QSet<QString> names;
        for (const StoreStory &story : storeStories()) {
            const QString profile = newFolder();
            const Outcome sound =
                tell(story, profile, profile + u'.' + SyncStoreLayout::Extension, Fault::Error,
                     std::numeric_limits<qint64>::max(), Duration::Once, renaming);
            names.unite(QSet(sound.calls.begin(), sound.calls.end()));
        }
        QStringList sorted = names.values();
        sorted.sort();
        QCOMPARE(sorted.join(u' '), expected);
    }

    void losesNothing_data() {
        QTest::addColumn<QString>("story");
        QTest::addColumn<Fault>("fault");
        QTest::addColumn<Duration>("duration");
        QTest::addColumn<Renaming>("renaming");
        const QStringList names = storeStories().keys();
        for (const QString &name : names) {
            const QByteArray text = name.toUtf8();
            const auto add = [&](const char *failure, Fault fault, Duration duration,
                                 Renaming renaming = Renaming::WithFlags) {
                QTest::addRow("%s, %s", text.constData(), failure)
                    << name << fault << duration << renaming;
            };
            add("one error on a network", Fault::Error, Duration::Once, Renaming::WithoutFlags);
            add("full network", Fault::Full, Duration::FromThenOn, Renaming::WithoutFlags);
            add("one error", Fault::Error, Duration::Once);
            add("errors", Fault::Error, Duration::FromThenOn);
            add("full for a moment", Fault::Full, Duration::Once);
            add("full", Fault::Full, Duration::FromThenOn);
            add("one interruption", Fault::Interrupted, Duration::Once);
            add("one short count", Fault::Short, Duration::Once);
            add("short counts", Fault::Short, Duration::FromThenOn);
        }
    }
    void losesNothing() {
        QFETCH(QString, story);
        QFETCH(Fault, fault);
        QFETCH(Duration, duration);
        QFETCH(Renaming, renaming);
        const StoreStory told = storeStories().value(story);
        const Contents before = contentsAt(folder(told.profile));
        const QString first = newFolder();
        const Outcome sound = tell(told, first, first + u'.' + SyncStoreLayout::Extension, fault,
                                   std::numeric_limits<qint64>::max(), Duration::Once, renaming);
        QCOMPARE(description(sound.result), QString());
        forCalls(sound.calls.size(), 2, [&](qint64 call) {
            verifyFailure(told, fault, call, duration, renaming, before, sound);
        });
    }
};

VELMORA_TEST(FailingVolumeTest)
#include "FailingVolumeTest.moc"
