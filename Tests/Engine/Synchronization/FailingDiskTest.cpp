#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Notes/EngineNoteLibrary.h"
#include "Engine/Notes/FirstContents.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Synchronization/CleanSession.h"
#include "Engine/Synchronization/SyncSession.h"
#include "Support/Failure.h"
#include "Support/FaultyFileSystem.h"
#include "Support/MemoryStore.h"
#include "Support/RunSession.h"
#include "Support/TestMain.h"

Q_DECLARE_METATYPE(FaultyFileSystem::Fault)
Q_DECLARE_METATYPE(FaultyFileSystem::Duration)

namespace {

/// The texts by title. The name of the database has the empty title.
using Contents = QMap<QString, QString>;

const QString Changed = QStringLiteral("changed");

QString text() {
    return QString(3000, u'x');
}

void orThrow(const Expected<void> &result) {
    if (!result) {
        throw std::runtime_error(result.error().localizedDescription.toStdString());
    }
}

void copyProfile(const QString &source, const QString &destination) {
    QDir().mkpath(destination);
    const QStringList names = QDir(source).entryList(QDir::Files);
    for (const QString &name : names) {
        if (!QFile::copy(source + u'/' + name, destination + u'/' + name)) {
            throw std::runtime_error("cannot copy the profile");
        }
    }
}

/// A profile with one database that is synchronized.
class Computer {
public:
    explicit Computer(QString folder) : m_folder(std::move(folder)), m_library(m_profile) {}

    Expected<void> open() {
        return m_profile
            .open(
                m_folder, [this] { return writeFirstContents(m_profile, FirstContents::Inbox); },
                [] { return Expected<void>(); })
            .and_then([this] { return m_library.load(); });
    }

    EngineNoteLibrary &library() { return m_library; }
    const ProfileDatabase &profile() const { return m_profile; }
    /// Null before the import.
    std::shared_ptr<NoteDatabase> database() const { return m_library.knownDatabases().value(1); }

    Contents contents() const {
        Contents contents;
        if (const auto known = database()) {
            contents.insert({}, known->name());
            const QList<Note> notes = known->notes().value();
            for (const Note &note : notes) {
                contents.insert(note.title, note.text);
            }
        }
        return contents;
    }

    Expected<void> add(const QString &title) {
        Note note{{}, title, text(), {}};
        return database()->saveNote(note);
    }

    Expected<void> edit(const QString &title) {
        return note(title).and_then([this](Note edited) {
            edited.text = Changed;
            return database()->saveNote(edited);
        });
    }

    Expected<void> remove(const QString &title) {
        return note(title).and_then(
            [this](const Note &removed) { return database()->removeNote(removed); });
    }

    template <class Session>
    Expected<void> run(const QString &UUID, MemoryStore::Blobs &blobs) {
        Session session(m_profile, m_library,
                        {UUID, QStringLiteral("Projects"), QStringLiteral("store")});
        MemoryStore store(blobs);
        return runSession(session, store);
    }

private:
    Expected<Note> note(const QString &title) const {
        return database()->notes().map([&](const QList<Note> &notes) {
            return *std::find_if(notes.begin(), notes.end(),
                                 [&](const Note &each) { return each.title == title; });
        });
    }

    const QString m_folder;
    ProfileDatabase m_profile;
    EngineNoteLibrary m_library;
};

}  // namespace

/// The disk of a profile fails at any call, once or from then on. What was reported as done is
/// there afterwards, nothing else was lost, the profile opens, and the failure was reported.
/// VELMORA_EVERY_FAULT=1 tries every call rather than some of them.
class FailingDiskTest : public QObject {
    Q_OBJECT
private:
    using Fault = FaultyFileSystem::Fault;
    using Duration = FaultyFileSystem::Duration;

    struct Story {
        /// The profile that it begins with; empty for none.
        QString profile;
        /// What happens before the disk fails.
        std::function<Expected<void>(Computer &)> preparation;
        std::function<Expected<void>(Computer &)> action;
    };

    QTemporaryDir m_folder;
    QString m_UUID;
    /// The store as it is before each story, and as the story changes it.
    MemoryStore::Blobs m_firstBlobs;
    MemoryStore::Blobs m_blobs;
    int m_count = 0;

    QString folder(const QString &name) const { return m_folder.filePath(name); }

    QMap<QString, Story> stories() {
        const auto open = [](Computer &computer) { return computer.open(); };
        const auto synchronize = [this](Computer &computer) {
            return computer.run<SyncSession>(m_UUID, m_blobs);
        };
        const auto openAndSynchronize = [=](Computer &computer) {
            return computer.open().and_then([&] { return synchronize(computer); });
        };
        const auto nothing = [](Computer &) { return Expected<void>(); };
        const QString used = QStringLiteral("Used");
        const QString unused = QStringLiteral("Unused");
        return {
            {QStringLiteral("first start"), {{}, nothing, open}},
            {QStringLiteral("start"), {used, nothing, open}},
            {QStringLiteral("save"),
             {used, open, [](Computer &one) { return one.add(QStringLiteral("new")); }}},
            {QStringLiteral("edit"),
             {used, open, [](Computer &one) { return one.edit(QStringLiteral("a")); }}},
            {QStringLiteral("delete"),
             {used, open, [](Computer &one) { return one.remove(QStringLiteral("b")); }}},
            {QStringLiteral("rename"),
             {used, open,
              [](Computer &one) {
                  return one.library().renameDatabase(one.database(), QStringLiteral("Plans"));
              }}},
            {QStringLiteral("synchronize"), {used, open, synchronize}},
            {QStringLiteral("import"), {unused, open, synchronize}},
            {QStringLiteral("clean up"),
             {used, openAndSynchronize,
              [this](Computer &one) { return one.run<CleanSession>(m_UUID, m_blobs); }}},
        };
    }

    /// Another computer has changed "c" and added "remote", which the profile "Used" has not read;
    /// the store does not have "unsent" yet.
    void writeProfiles() {
        Computer other(folder(QStringLiteral("Other")));
        orThrow(other.open());
        orThrow(other.library().createDatabase(QStringLiteral("Projects")));
        m_UUID = other.database()->UUID();
        for (const QString &title :
             {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}) {
            orThrow(other.add(title));
            orThrow(other.run<SyncSession>(m_UUID, m_firstBlobs));
        }
        Computer used(folder(QStringLiteral("Used")));
        orThrow(used.open());
        orThrow(used.run<SyncSession>(m_UUID, m_firstBlobs));
        orThrow(used.add(QStringLiteral("unsent")));
        orThrow(other.edit(QStringLiteral("c")));
        orThrow(other.add(QStringLiteral("remote")));
        orThrow(other.run<SyncSession>(m_UUID, m_firstBlobs));
        orThrow(Computer(folder(QStringLiteral("Unused"))).open());
    }

    QString newFolder() { return folder(QString::number(++m_count)); }

    /// Begins the story on a new computer.
    std::unique_ptr<Computer> begin(const Story &story, const QString &profile) {
        if (!story.profile.isEmpty()) {
            copyProfile(folder(story.profile), profile);
        }
        m_blobs = m_firstBlobs;
        auto computer = std::make_unique<Computer>(profile);
        orThrow(story.preparation(*computer));
        return computer;
    }

    /// What the computer has, if it can be asked.
    static Contents contentsAt(const QString &profile) {
        if (!QFileInfo::exists(profile)) {
            return {};
        }
        Computer computer(profile);
        orThrow(computer.open());
        return computer.contents();
    }

    /// All of both is there, in either state, and nothing else.
    static void verifyBetween(const Contents &found, const Contents &before,
                              const Contents &after) {
        for (auto each = found.begin(); each != found.end(); ++each) {
            const bool isOld = before.contains(each.key()) && before[each.key()] == each.value();
            const bool isNew = after.contains(each.key()) && after[each.key()] == each.value();
            QVERIFY2(isOld || isNew, qPrintable(each.key()));
        }
        for (auto each = before.keyBegin(); each != before.keyEnd(); ++each) {
            QVERIFY2(found.contains(*each) || !after.contains(*each), qPrintable(*each));
        }
    }

    /// After synchronizing on a sound disk everyone has everything.
    void verifyNothingIsLost(const QString &profile) {
        Computer computer(profile);
        orThrow(computer.open());
        Contents expected = computer.contents();
        const bool isImported = expected.size() > 1;
        if (!isImported) {
            expected = {{{}, QStringLiteral("Projects")},
                        {QStringLiteral("a"), text()},
                        {QStringLiteral("b"), text()}};
        }
        expected.insert(QStringLiteral("c"), Changed);
        expected.insert(QStringLiteral("remote"), text());
        orThrow(computer.run<SyncSession>(m_UUID, m_blobs));
        orThrow(computer.run<CleanSession>(m_UUID, m_blobs));
        QCOMPARE(computer.contents(), expected);
        const QString third = newFolder();
        copyProfile(folder(QStringLiteral("Unused")), third);
        Computer other(third);
        orThrow(other.open());
        orThrow(other.run<SyncSession>(m_UUID, m_blobs));
        QCOMPARE(other.contents(), expected);
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
        Expected<void> result;
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
        QVERIFY(!result || found == after);
        verifyNothingIsLost(profile);
        QDir(profile).removeRecursively();
    }

private Q_SLOTS:
    void initTestCase() {
        FaultyFileSystem::install();
        writeProfiles();
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
        constexpr qint64 usually = 8;
        const bool isThorough = qEnvironmentVariableIsSet("VELMORA_EVERY_FAULT");
        const qint64 step = isThorough ? 1 : qMax(calls / usually, qint64(1));
        for (qint64 call = 1; call <= calls; call += step) {
            verifyFailure(told, fault, call, duration, before, after);
            if (QTest::currentTestFailed()) {
                QFAIL(qPrintable(QStringLiteral("call %1 of %2").arg(call).arg(calls)));
            }
        }
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
        m_blobs = m_firstBlobs;
        Computer computer(profile);
        orThrow(computer.open());
        orThrow(computer.run<SyncSession>(m_UUID, m_blobs));
        const Contents expected = computer.contents();
        orThrow(computer.profile().run(QStringLiteral("PRAGMA cache_size = 1")));
        orThrow(computer.profile().run(
            QStringLiteral("INSERT INTO operations (database, digest, note_uuid, title, text,"
                           " supersedes, salt, position) WITH RECURSIVE number (n) AS (SELECT 1"
                           " UNION ALL SELECT n + 1 FROM number WHERE n < 60000)"
                           " SELECT databases.id, randomblob(16), 'u' || n, '', '', x'', x'', n"
                           " FROM number, databases WHERE uuid = ?"),
            {m_UUID}));
        const MemoryStore::Blobs blobs = m_blobs;
        {
            const FaultyFileSystem disk(Fault::NoTemporaryFiles, 1, Duration::FromThenOn);
            const Expected<void> result = isCleaningUp ? computer.run<CleanSession>(m_UUID, m_blobs)
                                                       : computer.run<SyncSession>(m_UUID, m_blobs);
            QVERIFY(disk.hasFailed());
            QCOMPARE(code(result), EngineErrorCode::ProfileNotWritten);
            QVERIFY(!description(result).isEmpty());
        }
        QCOMPARE(m_blobs, blobs);
        orThrow(computer.profile().run(
            QStringLiteral("DELETE FROM operations WHERE note_uuid LIKE 'u%'")));
        orThrow(computer.run<SyncSession>(m_UUID, m_blobs));
        QCOMPARE(computer.contents(), expected);
    }
};

VELMORA_TEST(FailingDiskTest)
#include "FailingDiskTest.moc"
