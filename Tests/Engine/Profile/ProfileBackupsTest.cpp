#include <sys/syscall.h>

#include <QtCore/QtEndian>

#include "Engine/Notes/NoteInspection.h"
#include "Engine/Plugin/SyncEngine.h"
#include "Engine/Profile/BackupSchedule.h"
#include "Engine/Profile/ProfileBackups.h"
#include "Engine/Profile/ProfileInspection.h"
#include "Engine/Profile/ProfileRecovery.h"
#include "Engine/Synchronization/SyncSession.h"
#include "Host/InboxUUID.h"
#include "Support/FailingSystemCall.h"
#include "Support/Failure.h"
#include "Support/FaultyFileSystem.h"
#include "Support/FaultyFolder.h"
#include "Support/MemoryStore.h"
#include "Support/RunSession.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "Support/Umask.h"

/// The daily backups of a real profile, and how they replace a damaged one.
class ProfileBackupsTest : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<TestHost> m_host;
    const QDate m_today = QDate(2026, 11, 22);

    QString folder() const { return m_host->directory() + QStringLiteral("/Backups"); }
    QString file() const { return m_host->directory() + QStringLiteral("/profile.sqlite"); }
    QStringList names() const { return QDir(folder()).entryList(QDir::Files | QDir::Hidden); }
    QString pathFor(const QDate &date) const {
        return folder() + u'/' + date.toString(Qt::ISODate) + QStringLiteral(".sqlite");
    }

    void addNote(const QString &title) const {
        Note note{{}, title, QString(20000, u'x'), {}};
        QVERIFY(m_host->inbox()->saveNote(note));
    }
    QStringList titles() const {
        QStringList titles;
        const QList<Note> notes = m_host->inbox()->notes().value();
        for (const Note &note : notes) {
            titles.append(note.title);
        }
        return titles;
    }

    static void overwrite(const QString &path, qint64 offset, qsizetype length) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.seek(offset));
        QCOMPARE(file.write(QByteArray(length, 'x')), length);
    }

    static void copyFolder(const QString &from, const QString &to) {
        QVERIFY(QDir().mkpath(to));
        const QFileInfoList entries =
            QDir(from).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot);
        for (const QFileInfo &entry : entries) {
            const QString copy = to + u'/' + entry.fileName();
            if (entry.isDir()) {
                copyFolder(entry.filePath(), copy);
            } else {
                QVERIFY(QFile::copy(entry.filePath(), copy));
            }
        }
    }

    static void setVersion(const QString &path, int version) {
        // The number is at a fixed place of the file.
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.seek(60));
        const quint32 number = qToBigEndian(static_cast<quint32>(version));
        QCOMPARE(file.write(reinterpret_cast<const char *>(&number), sizeof number),
                 qint64(sizeof number));
    }
    static bool executeIn(const QString &directory, const QString &statement) {
        ProfileDatabase profile;
        const auto nothing = [] { return Expected<void>(); };
        return profile.open(directory, nothing, nothing)
            .and_then([&] { return profile.run(QStringLiteral("PRAGMA foreign_keys = OFF")); })
            .and_then([&] { return profile.run(statement); })
            .has_value();
    }

    static QStringList damagedFiles(const QString &directory) {
        QStringList files;
        QDirIterator each(directory + u'/' + ProfileRecovery::FolderName, QDir::Files,
                          QDirIterator::Subdirectories);
        while (each.hasNext()) {
            files.append(QFileInfo(each.next()).fileName());
        }
        files.sort();
        return files;
    }

private Q_SLOTS:
    void initTestCase() { FaultyFileSystem::install(); }
    void init() {
        m_host = std::make_unique<TestHost>();
        addNote(QStringLiteral("first"));
    }
    void cleanup() { m_host.reset(); }

    void aBackupHoldsEverythingAndIsPrivate() {
        const ProfileBackups backups(m_host->directory());
        QVERIFY(*backups.isDue(m_today));
        QVERIFY(backups.make(m_today));
        QVERIFY(!*backups.isDue(m_today));
        QVERIFY(*backups.isDue(m_today.addDays(1)));
        QCOMPARE(names(), QStringList{QStringLiteral("2026-11-22.sqlite")});
        QVERIFY(ProfileBackups::verify(pathFor(m_today)));
        constexpr auto others = QFileDevice::ReadGroup | QFileDevice::WriteGroup |
                                QFileDevice::ReadOther | QFileDevice::WriteOther;
        QVERIFY(!(QFile::permissions(pathFor(m_today)) & others));
        QVERIFY(!(QFile::permissions(folder()) & others));
        // It opens as a profile with the same notes.
        const QString restored = m_host->directory() + QStringLiteral("-restored");
        QVERIFY(QDir().mkdir(restored));
        QVERIFY(QFile::copy(pathFor(m_today), restored + QStringLiteral("/profile.sqlite")));
        m_host->goToComputer(QStringLiteral("Profile-restored"));
        QCOMPARE(titles(), QStringList{QStringLiteral("first")});
    }

    void sevenAreKept() {
        const ProfileBackups backups(m_host->directory());
        for (int day = 0; day < 9; ++day) {
            QVERIFY(backups.make(m_today.addDays(day)));
        }
        QCOMPARE(names().size(), 7);
        QCOMPARE(backups.all(m_today.addDays(8))->first().date, m_today.addDays(8));
        QCOMPARE(backups.all(m_today.addDays(8))->last().date, m_today.addDays(2));
    }

    void aClockThatWasSetBackKeepsTheNewBackup() {
        const ProfileBackups backups(m_host->directory());
        for (int day = 0; day < 7; ++day) {
            QVERIFY(backups.make(m_today.addDays(day)));
        }
        const QDate today = m_today.addYears(-1);
        QVERIFY(backups.make(today));
        QCOMPARE(names().size(), 7);
        QVERIFY(!*backups.isDue(today));
        QCOMPARE(backups.newestSound(today).value()->date, today);
        // Those of the future make room for new ones, oldest first.
        QCOMPARE(backups.all(today)->last().date, m_today.addDays(1));
        for (int day = 1; day < 7; ++day) {
            QVERIFY(backups.make(today.addDays(day)));
            QCOMPARE(names().size(), 7);
            QCOMPARE(backups.newestSound(today.addDays(day)).value()->date, today.addDays(day));
        }
        QCOMPARE(backups.all(m_today.addDays(9))->first().date, today.addDays(6));
    }

    void quittingCancelsABackup() {
        QVERIFY(m_host->engine().profile().run(QStringLiteral(
            "INSERT INTO versions (ended, size, database, note_uuid, place, title, text)"
            " WITH RECURSIVE number (n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM number"
            " WHERE n < 100) SELECT 0, 0, id, '', '', '', hex(randomblob(400000))"
            " FROM number, databases")));
        auto schedule = std::make_unique<BackupSchedule>();
        schedule->start(m_host->engine().profile(),
                        [](const QString &, const std::atomic_bool &) -> Expected<QString> {
                            return QString();
                        });
        schedule->check();
        QElapsedTimer time;
        time.start();
        schedule.reset();
        QVERIFY2(time.elapsed() < 2000, qPrintable(QString::number(time.elapsed())));
        QVERIFY2(names().isEmpty(), qPrintable(names().join(u',')));
    }

    void aCancelledBackupLeavesNothing() {
        const ProfileBackups backups(m_host->directory());
        QVERIFY(backups.make(m_today.addDays(-1)));
        const std::atomic_bool isCancelled = true;
        QCOMPARE(code(backups.make(m_today, &isCancelled)), EngineErrorCode::BackupFailed);
        QCOMPARE(names(), QStringList{QStringLiteral("2026-11-21.sqlite")});
    }

    void theirSizeIsBounded() {
        const qint64 size =
            QFileInfo(file()).size() + QFileInfo(file() + QStringLiteral("-wal")).size();
        const ProfileBackups backups(m_host->directory(), {.bytes = size + 1000});
        QVERIFY(backups.make(m_today));
        for (int i = 0; i < 4; ++i) {
            addNote(QString::number(i));
        }
        QVERIFY(
            m_host->engine().profile().value(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)")));
        const ProfileBackups roomier(m_host->directory(),
                                     {.bytes = QFileInfo(file()).size() + 100000});
        QVERIFY(roomier.make(m_today.addDays(1)));
        QVERIFY(roomier.make(m_today.addDays(2)));
        QCOMPARE(names(), QStringList{QStringLiteral("2026-11-24.sqlite")});
        const ProfileBackups tight(m_host->directory(), {.bytes = 1000});
        const Expected<void> refused = tight.make(m_today.addDays(3));
        QCOMPARE(code(refused), EngineErrorCode::BackupFailed);
        QVERIFY(description(refused).contains(file()));
        QCOMPARE(names(), QStringList{QStringLiteral("2026-11-24.sqlite")});
    }

    void noBackupFillsTheDisk() {
        const ProfileBackups backups(m_host->directory(),
                                     {.free = std::numeric_limits<qint64>::max() / 2});
        const Expected<void> refused = backups.make(m_today);
        QCOMPARE(code(refused), EngineErrorCode::BackupFailed);
        QVERIFY2(description(refused).contains(QStringLiteral("Delete files")),
                 qPrintable(description(refused)));
        QVERIFY(names().isEmpty());
    }

    void aDiskWhoseFreeSpaceIsUnknownGetsABackup() {
        const ProfileBackups backups(m_host->directory());
        Expected<void> made;
        runWithFailingSystemCall(SYS_statfs, EIO, [&] { made = backups.make(m_today); });
        QVERIFY2(made, qPrintable(description(made)));
        QCOMPARE(names(), QStringList{QStringLiteral("2026-11-22.sqlite")});
    }

    void aFailingDiskLeavesTheEarlierBackups_data() {
        QTest::addColumn<int>("fault");
        QTest::addRow("full") << static_cast<int>(FaultyFileSystem::Fault::Full);
        QTest::addRow("error") << static_cast<int>(FaultyFileSystem::Fault::Error);
    }
    void aFailingDiskLeavesTheEarlierBackups() {
        QFETCH(int, fault);
        const ProfileBackups backups(m_host->directory());
        QVERIFY(backups.make(m_today));
        const QDate tomorrow = m_today.addDays(1);
        bool hasFailed = true;
        for (qint64 call = 1; hasFailed; call += call < 20 ? 1 : 7) {
            const FaultyFileSystem disk(static_cast<FaultyFileSystem::Fault>(fault), call,
                                        FaultyFileSystem::Duration::FromThenOn);
            const Expected<void> made = backups.make(tomorrow);
            hasFailed = disk.hasFailed();
            // SQLite does without some calls, such as those that close a file.
            if (made) {
                QVERIFY(QFile::rename(pathFor(tomorrow), pathFor(m_today.addDays(2))) ||
                        QFile::remove(pathFor(tomorrow)));
            } else {
                QVERIFY(hasFailed);
                QCOMPARE(code(made), EngineErrorCode::BackupFailed);
            }
            QVERIFY(!names().contains(QFileInfo(pathFor(tomorrow)).fileName()));
        }
        QCOMPARE(names().size(), 2);
        QVERIFY(ProfileBackups::verify(pathFor(m_today)));
        QVERIFY(ProfileBackups::verify(pathFor(m_today.addDays(2))));
    }

    void theScheduleMakesOneADayAndReportsFailuresOnce() {
        BackupSchedule &schedule = m_host->engine().backups();
        QSignalSpy ended(&schedule, &BackupSchedule::ended);
        QFile obstacle(folder());
        QVERIFY(obstacle.open(QIODevice::WriteOnly));
        for (int i = 1; i <= 2; ++i) {
            schedule.check();
            QTRY_COMPARE(ended.size(), i);
        }
        QCOMPARE(m_host->application().logEntries().size(), 1);
        QVERIFY(m_host->application().logEntries().first().info.contains(folder()));
        QVERIFY(obstacle.remove());
        schedule.check();
        QTRY_COMPARE(ended.size(), 3);
        QCOMPARE(names().size(), 1);
        schedule.check();
        addNote(QStringLiteral("second"));
        QCOMPARE(ended.size(), 3);
        QCOMPARE(m_host->application().logEntries().size(), 1);
    }

    void aBackupWithDamagedNotesReplacesNoneThatHasThem() {
        const ProfileBackups backups(m_host->directory());
        const std::atomic_bool isCancelled = false;
        const auto make = [&](int day) {
            return backups.make(
                m_today.addDays(day), nullptr, [] { return Expected<void>(); },
                [&](const QString &path) {
                    return NoteInspection::check(path, isCancelled).map(NoteInspection::text);
                });
        };
        for (int day = 0; day < 7; ++day) {
            QVERIFY(make(day));
        }
        const QStringList sound = names();
        const ProfileDatabase &profile = m_host->engine().profile();
        QVERIFY(profile.run(QStringLiteral("UPDATE operations SET text = text || 'x'")));
        for (int day = 7; day < 10; ++day) {
            const Expected<void> made = make(day);
            QCOMPARE(code(made), EngineErrorCode::BackupFailed);
            QVERIFY2(description(made).contains(QStringLiteral("“first”")),
                     qPrintable(description(made)));
            QCOMPARE(names(),
                     sound + QStringList(QFileInfo(pathFor(m_today.addDays(day))).fileName()));
        }
        // A backup that cannot be removed hides nothing.
        const QString folder = pathFor(m_today.addDays(9));
        const Expected<void> made = backups.make(
            m_today.addDays(10), nullptr, [] { return Expected<void>(); },
            [&](const QString &path) -> Expected<QString> {
                if (path == folder && QFile::remove(path)) {
                    QDir().mkdir(path);
                }
                return QStringLiteral("“first”");
            });
        QVERIFY2(description(made).contains(QStringLiteral("“first”")),
                 qPrintable(description(made)));
        QVERIFY2(description(made).contains(folder), qPrintable(description(made)));
        QVERIFY(QDir().rmdir(folder));
        QVERIFY(QFile::remove(pathFor(m_today.addDays(10))));
        const QList<Note> notes = m_host->inbox()->notes().value();
        for (Note note : notes) {
            QVERIFY(m_host->inbox()->saveNote(note));
        }
        QVERIFY(make(10));
        QCOMPARE(names().size(), 7);
    }

    /// The profile and the store have lost a note.
    void aBackupWithoutALostNoteReplacesNoneThatHasIt() {
        const ProfileBackups backups(m_host->directory());
        const std::atomic_bool isCancelled = false;
        const auto make = [&](int day) {
            return backups.make(
                m_today.addDays(day), nullptr, [] { return Expected<void>(); },
                [&](const QString &path) {
                    return NoteInspection::check(path, isCancelled).map(NoteInspection::text);
                });
        };
        MemoryStore::Blobs blobs;
        const auto synchronize = [&](RecordVerification::Extent extent) {
            MemoryStore store(blobs);
            SyncSession session(m_host->engine().profile(), m_host->library(),
                                {InboxUUID, QStringLiteral("Inbox"), QStringLiteral("store")},
                                extent);
            return runSession(session, store);
        };
        QVERIFY(synchronize(RecordVerification::Extent::Some));
        for (int day = 0; day < 7; ++day) {
            QVERIFY(make(day));
        }
        const QStringList sound = names();
        QVERIFY(m_host->engine().profile().run(QStringLiteral("DELETE FROM operations")));
        std::erase_if(blobs, [](const auto &blob) {
            return blob.first.startsWith(QStringLiteral("transactions/"));
        });
        for (int day = 7; day < 10; ++day) {
            const Expected<void> made = make(day);
            QCOMPARE(code(made), EngineErrorCode::BackupFailed);
            QVERIFY2(description(made).contains(QStringLiteral("lost changes: 1.")),
                     qPrintable(description(made)));
            QCOMPARE(names(),
                     sound + QStringList(QFileInfo(pathFor(m_today.addDays(day))).fileName()));
            QVERIFY(synchronize(RecordVerification::Extent::Some));
        }
        QVERIFY(synchronize(RecordVerification::Extent::All));
        QVERIFY(make(10));
        QCOMPARE(names().size(), 7);
    }

    void theScheduleFindsDamagedNotesWhichAreReadAgain() {
        MemoryStore::Blobs blobs;
        MemoryStore store(blobs);
        const StoreSession::Subject subject{InboxUUID, QStringLiteral("Inbox"),
                                            QStringLiteral("store")};
        SyncSession first(m_host->engine().profile(), m_host->library(), subject);
        QVERIFY(runSession(first, store));
        QVERIFY(m_host->engine().profile().run(
            QStringLiteral("UPDATE operations SET text = 'damaged'")));
        BackupSchedule &schedule = m_host->engine().backups();
        const QSignalSpy ended(&schedule, &BackupSchedule::ended);
        schedule.check();
        QTRY_COMPARE(ended.size(), 1);
        QCOMPARE(m_host->application().logEntries().size(), 1);
        QVERIFY(
            m_host->application().logEntries().first().info.contains(QStringLiteral("“first”")));
        QCOMPARE(names().size(), 1);
        SyncSession second(m_host->engine().profile(), m_host->library(), subject);
        QVERIFY(runSession(second, store));
        QCOMPARE(second.problems().count(), 1);
        QCOMPARE(m_host->inbox()->notes().value().first().text, QString(20000, u'x'));
    }

    void aTableThatCannotBeCountedPreventsABackup() {
        const ProfileDatabase &profile = m_host->engine().profile();
        // SQLite's own check passes over a table whose module it does not have.
        for (const char *statement :
             {"PRAGMA writable_schema = ON",
              "INSERT INTO sqlite_schema VALUES ('table', 'broken', 'broken', 0,"
              " 'CREATE VIRTUAL TABLE broken USING missing(text)')",
              "PRAGMA writable_schema = OFF"}) {
            QVERIFY(profile.run(QLatin1StringView(statement)));
        }
        const Expected<void> made = ProfileBackups(m_host->directory()).make(m_today);
        QCOMPARE(code(made), EngineErrorCode::BackupFailed);
        QVERIFY2(description(made).contains(QStringLiteral("no such module: missing")),
                 qPrintable(description(made)));
        QCOMPARE(names(), QStringList());
    }

    void tracesThatCannotBeReadAreAnError() {
        QVERIFY(ProfileRecovery::hasTraces(m_host->directory()));
        for (const int call : {SYS_getdents64, SYS_newfstatat}) {
            runWithFailingSystemCall(call, EIO, [&] {
                QCOMPARE(code(ProfileRecovery::hasTraces(m_host->directory())),
                         EngineErrorCode::ProfileUnusable);
            });
        }
    }

    void aFolderThatCannotBeReadIsNotAnEmptyOne() {
        const ProfileBackups backups(m_host->directory());
        QVERIFY(backups.make(m_today));
        runWithFailingSystemCall(SYS_getdents64, EIO, [&] {
            QCOMPARE(code(backups.all(m_today)), EngineErrorCode::BackupFailed);
            QCOMPARE(code(backups.newestSound(m_today)), EngineErrorCode::BackupFailed);
            const Expected<bool> isDue = backups.isDue(m_today);
            QCOMPARE(code(isDue), EngineErrorCode::BackupFailed);
            QVERIFY2(isDue.error().localizedDescription.contains(folder()),
                     qPrintable(isDue.error().localizedDescription));
        });
        const QString directory = m_host->directory();
        m_host->goToComputer(QStringLiteral("Other"));
        runWithFailingSystemCall(SYS_getdents64, EIO, [&] {
            QCOMPARE(code(ProfileRecovery::restoreBackup(directory)),
                     EngineErrorCode::BackupFailed);
        });
        QVERIFY(QFileInfo::exists(directory + QStringLiteral("/profile.sqlite")));
    }

    void aProfileThatIsOnlyReadIsNotBackedUp_data() {
        QTest::addColumn<int>("use");
        QTest::addRow("description") << static_cast<int>(ProfileUse::Snapshot);
        QTest::addRow("setting") << static_cast<int>(ProfileUse::Edit);
    }
    void aProfileThatIsOnlyReadIsNotBackedUp() {
        QFETCH(int, use);
        const QString directory = m_host->directory();
        m_host->goToComputer(QStringLiteral("Other"));
        SyncEngine engine;
        QVERIFY(engine.openProfile(directory, FirstContents::Inbox, static_cast<ProfileUse>(use)));
        const QSignalSpy ended(&engine.backups(), &BackupSchedule::ended);
        engine.backups().check();
        QCoreApplication::processEvents();
        QCOMPARE(ended.size(), 0);
        QVERIFY(!QFileInfo::exists(directory + QStringLiteral("/Backups")));
    }

    void aDamagedProfileIsRestoredFromTheNewestSoundBackup() {
        const QString directory = m_host->directory();
        const ProfileBackups backups(directory);
        QVERIFY(backups.make(m_today.addDays(-1)));
        addNote(QStringLiteral("second"));
        QVERIFY(backups.make(m_today));
        addNote(QStringLiteral("third"));
        QVERIFY(backups.make(m_today.addDays(1)));
        overwrite(pathFor(m_today.addDays(1)), 8192, 8192);
        QVERIFY(!ProfileBackups::verify(pathFor(m_today.addDays(1))));
        m_host->goToComputer(QStringLiteral("Other"));
        overwrite(directory + QStringLiteral("/profile.sqlite"), 4096, 20000);
        {
            SyncEngine engine;
            QCOMPARE(code(engine.openProfile(directory)), EngineErrorCode::ProfileDamaged);
        }
        QVERIFY(ProfileRecovery::restoreBackup(directory));
        m_host->goToComputer(QStringLiteral("Profile"));
        QCOMPARE(titles(), QStringList({QStringLiteral("first"), QStringLiteral("second")}));
        QCOMPARE(damagedFiles(directory), QStringList{QStringLiteral("profile.sqlite")});
        QVERIFY(QDir(directory)
                    .entryList({QStringLiteral(".velmora-recovery-*")}, QDir::Dirs | QDir::Hidden)
                    .isEmpty());
    }

    void aReadOnlyBackupIsRestoredAsAProfileThatCanBeWritten() {
        const QString directory = m_host->directory();
        QVERIFY(ProfileBackups(directory).make(m_today));
        QVERIFY(QFile::setPermissions(pathFor(m_today), QFile::ReadOwner));
        m_host->goToComputer(QStringLiteral("Other"));
        overwrite(directory + QStringLiteral("/profile.sqlite"), 4096, 20000);
        // Root may write everything.
        runWithFailingSystemCall(SYS_faccessat2, EACCES, [&] {
            QVERIFY(!QFileInfo(pathFor(m_today)).isWritable());
            QCOMPARE(description(ProfileRecovery::restoreBackup(directory)), QString());
        });
        QCOMPARE(permissionsOf(directory + QStringLiteral("/profile.sqlite")), 0600U);
        m_host->goToComputer(QStringLiteral("Profile"));
        QCOMPARE(titles(), QStringList{QStringLiteral("first")});
    }

    void anOlderBackupIsNotUsedInPlaceOfOneThatAnotherVersionCanUse() {
        const QString directory = m_host->directory();
        const ProfileBackups backups(directory);
        QVERIFY(backups.make(m_today.addDays(-1)));
        QVERIFY(backups.make(m_today));
        setVersion(pathFor(m_today), ProfileInspection::SchemaVersion + 1);
        const auto newest = backups.newestSound(m_today);
        QCOMPARE(code(newest), EngineErrorCode::ProfileUnusable);
        QVERIFY2(description(newest).contains(pathFor(m_today)), qPrintable(description(newest)));
    }

    void backupsThatTheirDiskCannotReadAreNotMissing() {
        const ProfileBackups backups(m_host->directory());
        QVERIFY(backups.make(m_today.addDays(-1)));
        QVERIFY(backups.make(m_today));
        const QString directory = m_host->directory();
        m_host->goToComputer(QStringLiteral("Other"));
        runWithFailingSystemCall(SYS_pread64, EIO, [&] {
            QCOMPARE(code(backups.newestSound(m_today)), EngineErrorCode::ProfileUnreadable);
            QCOMPARE(code(ProfileRecovery::restoreBackup(directory)),
                     EngineErrorCode::ProfileUnreadable);
        });
    }

    void anEmptiedProfileIsRestoredAndAnEmptiedBackupIsNot() {
        const QString directory = m_host->directory();
        const ProfileBackups backups(directory);
        QVERIFY(backups.make(m_today.addDays(-1)));
        QVERIFY(backups.make(m_today));
        QVERIFY(QFile::resize(pathFor(m_today), 0));
        m_host->goToComputer(QStringLiteral("Other"));
        QVERIFY(QFile::resize(directory + QStringLiteral("/profile.sqlite"), 0));
        {
            SyncEngine engine;
            QCOMPARE(code(engine.openProfile(directory)), EngineErrorCode::ProfileDamaged);
        }
        QVERIFY(ProfileRecovery::restoreBackup(directory));
        m_host->goToComputer(QStringLiteral("Profile"));
        QCOMPARE(titles(), QStringList{QStringLiteral("first")});
    }

    void withoutASoundBackupNothingIsChanged() {
        const QString directory = m_host->directory();
        m_host->goToComputer(QStringLiteral("Other"));
        QCOMPARE(code(ProfileRecovery::restoreBackup(directory)), EngineErrorCode::BackupFailed);
        m_host->goToComputer(QStringLiteral("Profile"));
        QCOMPARE(titles(), QStringList{QStringLiteral("first")});
        QCOMPARE(code(ProfileRecovery::restoreBackup(directory)), EngineErrorCode::ProfileInUse);
    }

    void aMissingProfileIsNoticed() {
        const QString directory = m_host->directory();
        QVERIFY(ProfileBackups(directory).make(m_today));
        m_host->goToComputer(QStringLiteral("Other"));
        QVERIFY(QFile::remove(directory + QStringLiteral("/profile.sqlite")));
        {
            SyncEngine engine;
            QCOMPARE(code(engine.openProfile(directory)), EngineErrorCode::ProfileDamaged);
        }
        QVERIFY(ProfileRecovery::restoreBackup(directory));
        m_host->goToComputer(QStringLiteral("Profile"));
        QCOMPARE(titles(), QStringList{QStringLiteral("first")});
    }

    void aNewProfileKeepsTheLocations_data() {
        QTest::addColumn<bool>("isReadable");
        QTest::addRow("of the damaged profile") << true;
        QTest::addRow("of the backup") << false;
    }
    void aNewProfileKeepsTheLocations() {
        QFETCH(bool, isReadable);
        const QString directory = m_host->directory();
        const auto database = m_host->addDatabase(QStringLiteral("Plans"));
        const auto location = m_host->addLocation();
        const QString URL = location->URL().absoluteString();
        m_host->addState(location, database)->setEnabled(true);
        m_host->save();
        if (!isReadable) {
            QVERIFY(ProfileBackups(directory).make(m_today));
        }
        m_host->goToComputer(QStringLiteral("Other"));
        if (!isReadable) {
            overwrite(directory + QStringLiteral("/profile.sqlite"), 0, 4096);
        }
        QVERIFY(SyncEngine::beginProfile(directory));
        m_host->goToComputer(QStringLiteral("Profile"));
        // If there is a backup, the user does not want its notes.
        QCOMPARE(titles(), isReadable ? QStringList(QStringLiteral("first")) : QStringList());
        QCOMPARE(m_host->library().knownDatabases().size(), isReadable ? 2 : 1);
        const auto locations = m_host->locations().syncLocations();
        QCOMPARE(locations.size(), 1);
        QCOMPARE(locations.first()->URL().absoluteString(), URL);
        const QVSyncStates states = locations.first()->synchronizationStates();
        QCOMPARE(states.size(), 1);
        QVERIFY((*states.begin())->isEnabled());
        QCOMPARE(damagedFiles(directory), QStringList{QStringLiteral("profile.sqlite")});
    }

    void locationsThatCannotBeReadAreReported() {
        const QString directory = m_host->directory();
        m_host->addLocation();
        m_host->save();
        m_host->goToComputer(QStringLiteral("Other"));
        overwrite(directory + QStringLiteral("/profile.sqlite"), 0, 4096);
        QVERIFY(SyncEngine::beginProfile(directory));
        // Of the locations and, without a backup, of the notes.
        QTRY_COMPARE(m_host->application().presentedErrors().size(), 2);
        const QString text = m_host->application().presentedErrors().first().localizedDescription;
        QVERIFY2(text.contains(directory), qPrintable(text));
        QVERIFY2(text.startsWith(QStringLiteral("The sync locations")), qPrintable(text));
    }

    void backupsThatCannotBeSearchedForLocationsAreReported() {
        const QString directory = m_host->directory();
        const QString backups = folder();
        m_host->goToComputer(QStringLiteral("Other"));
        overwrite(directory + QStringLiteral("/profile.sqlite"), 0, 4096);
        // A file instead of the folder cannot be listed.
        QVERIFY(QFile(backups).open(QIODevice::WriteOnly));
        QVERIFY(SyncEngine::beginProfile(directory));
        QTRY_COMPARE(m_host->application().presentedErrors().size(), 2);
        const Error error = m_host->application().presentedErrors().first();
        QVERIFY2(error.localizedFailureReason.contains(backups),
                 qPrintable(error.localizedFailureReason));
    }

    /// The files of an interrupted recovery may be there.
    void damagedProfilesThatCannotBeListedPreventARecovery() {
        const QString directory = m_host->directory();
        QVERIFY(ProfileBackups(directory).make(m_today));
        m_host->goToComputer(QStringLiteral("Other"));
        QVERIFY(QFile::remove(directory + QStringLiteral("/profile.sqlite")));
        const QString damaged = directory + u'/' + ProfileRecovery::FolderName;
        QVERIFY(QFile(damaged).open(QIODevice::WriteOnly));
        for (const Expected<void> &refused :
             {SyncEngine::restoreBackup(directory), SyncEngine::beginProfile(directory)}) {
            QCOMPARE(code(refused), EngineErrorCode::BackupFailed);
            QVERIFY2(description(refused).contains(damaged), qPrintable(description(refused)));
        }
        QVERIFY(QFile::remove(damaged));
        QVERIFY(SyncEngine::restoreBackup(directory));
        m_host->goToComputer(QStringLiteral("Profile"));
    }

    void aProfileWithoutWhatEachHasIsDamaged_data() {
        QTest::addColumn<QString>("statement");
        QTest::addRow("no inbox") << QStringLiteral("DELETE FROM databases");
        QTest::addRow("no table of locations") << QStringLiteral("DROP TABLE states");
        QTest::addRow("no table of databases") << QStringLiteral("DROP TABLE databases");
    }
    void aProfileWithoutWhatEachHasIsDamaged() {
        QFETCH(QString, statement);
        const QString directory = m_host->directory();
        QVERIFY(ProfileBackups(directory).make(m_today));
        QVERIFY(m_host->engine().profile().run(QStringLiteral("PRAGMA foreign_keys = OFF")));
        QVERIFY(m_host->engine().profile().run(statement));
        m_host->goToComputer(QStringLiteral("Other"));
        {
            SyncEngine engine;
            QCOMPARE(code(engine.openProfile(directory)), EngineErrorCode::ProfileDamaged);
            QVERIFY(ProfileRecovery::restoreBackup(directory));
            QVERIFY(engine.openProfile(directory));
        }
        m_host->goToComputer(QStringLiteral("Profile"));
        QCOMPARE(titles(), QStringList{QStringLiteral("first")});
    }

    void copiesOfAKilledRecoveryAreRemovedOnceTheProfileIsSound() {
        const QString directory = m_host->directory();
        const QString copies = directory + QStringLiteral("/.velmora-recovery-aBcDeF");
        const QString others = directory + QStringLiteral("/.velmora-recovery-of-Ida");
        QVERIFY(QDir().mkdir(copies));
        QVERIFY(QDir().mkdir(others));
        QVERIFY(QFile::copy(file(), copies + QStringLiteral("/profile.sqlite")));
        m_host->goToComputer(QStringLiteral("Other"));
        QVERIFY(QFile::rename(directory + QStringLiteral("/profile.sqlite"),
                              directory + QStringLiteral("/aside")));
        {
            SyncEngine engine;
            QVERIFY(!engine.openProfile(directory));
        }
        QVERIFY(QFileInfo::exists(copies));
        QVERIFY(QFile::rename(directory + QStringLiteral("/aside"),
                              directory + QStringLiteral("/profile.sqlite")));
        m_host->goToComputer(QStringLiteral("Profile"));
        QVERIFY(!QFileInfo::exists(copies));
        QVERIFY(QFileInfo::exists(others));
        QCOMPARE(titles(), QStringList{QStringLiteral("first")});
    }

    void setAsideProfilesThatCannotBeListedAreNotPassedOver() {
        const QString directory = m_host->directory();
        const QString database = file();
        QVERIFY(ProfileBackups(directory).make(m_today));
        m_host->goToComputer(QStringLiteral("Other"));
        QVERIFY(QFile::remove(database));
        QFile obstacle(directory + u'/' + ProfileRecovery::FolderName);
        QVERIFY(obstacle.open(QIODevice::WriteOnly));
        const Expected<void> restored = ProfileRecovery::restoreBackup(directory);
        QCOMPARE(code(restored), EngineErrorCode::BackupFailed);
        QVERIFY2(description(restored).contains(qt_error_string(ENOTDIR)),
                 qPrintable(description(restored)));
        QVERIFY(obstacle.remove());
        QVERIFY(ProfileRecovery::restoreBackup(directory));
        m_host->goToComputer(QStringLiteral("Profile"));
        QCOMPARE(titles(), QStringList{QStringLiteral("first")});
    }

    void copiesThatCannotBeRemovedAreReported() {
        const QString copies = m_host->directory() + QStringLiteral("/.velmora-recovery-aBcDeF");
        QVERIFY(QDir().mkdir(copies));
        const auto removeWithFailing = [this](int call) {
            Expected<void> removed;
            runWithFailingSystemCall(call, EACCES, [&] {
                removed = ProfileRecovery::removeUnfinished(m_host->directory());
            });
            return description(removed);
        };
        const QString text = QStringLiteral(
            "Files that an interrupted recovery has left in “%1” cannot be removed: "
            "Permission denied. Check the permissions of the folder and its disk.");
        QCOMPARE(removeWithFailing(SYS_rmdir), text.arg(copies));
        QCOMPARE(removeWithFailing(SYS_openat), text.arg(m_host->directory()));
        QVERIFY(ProfileRecovery::removeUnfinished(m_host->directory()));
        QVERIFY(!QFileInfo::exists(copies));
    }

    void whatAnAttemptHasLeftAndCannotBeRemovedIsReportedBesideTheBackup() {
        const ProfileBackups backups(m_host->directory());
        QVERIFY(backups.make(m_today.addDays(-1)));
        const QString left = pathFor(m_today.addDays(-2)) + QStringLiteral(".unfinished");
        QVERIFY(QFile::copy(file(), left));
        {
            const FaultyFolder disk(left, FaultyFolder::Fault::Error, 1,
                                    FaultyFolder::Duration::FromThenOn);
            const Expected<void> made = backups.make(m_today);
            QCOMPARE(code(made), EngineErrorCode::BackupFailed);
            QCOMPARE(description(made),
                     QStringLiteral("The unfinished backup “%1” cannot be removed: Input/output "
                                    "error. Check the permissions of its folder and its disk.")
                         .arg(left));
        }
        QVERIFY(ProfileBackups::verify(pathFor(m_today)));
        QVERIFY(backups.make(m_today));
        QVERIFY(!QFileInfo::exists(left));
    }

    void aFailedBackupNamesWhatItHasLeft() {
        const ProfileBackups backups(m_host->directory());
        const QString left = pathFor(m_today) + QStringLiteral(".unfinished");
        {
            const FaultyFolder disk(left, FaultyFolder::Fault::Error, 1,
                                    FaultyFolder::Duration::FromThenOn);
            const Expected<void> made = backups.make(
                m_today, nullptr, [] { return Expected<void>(); },
                [](const QString & /*path*/) -> Expected<QString> {
                    return failure(engineError(EngineErrorCode::ProfileUnreadable,
                                               QStringLiteral("The disk is broken.")));
                });
            QCOMPARE(code(made), EngineErrorCode::BackupFailed);
            QVERIFY2(description(made).contains(QStringLiteral("The disk is broken.")),
                     qPrintable(description(made)));
            QVERIFY2(description(made).contains(left), qPrintable(description(made)));
        }
        QVERIFY(backups.make(m_today));
        QCOMPARE(names(), QStringList{QStringLiteral("2026-11-22.sqlite")});
    }

    /// A part of the damaged profile would be in each of two folders.
    void aDamagedProfileIsSetAsideAsAWholeOrNotAtAll_data() {
        QTest::addColumn<bool>("isNew");
        QTest::addColumn<FaultyFolder::Fault>("fault");
        QTest::addColumn<QString>("reason");
        for (const bool isNew : {false, true}) {
            const char *replacement = isNew ? "new profile" : "backup";
            QTest::addRow("%s, error", replacement)
                << isNew << FaultyFolder::Fault::Error << QStringLiteral("Input/output error");
            QTest::addRow("%s, full", replacement)
                << isNew << FaultyFolder::Fault::Full << QStringLiteral("no space left");
        }
    }
    void aDamagedProfileIsSetAsideAsAWholeOrNotAtAll() {
        QFETCH(bool, isNew);
        QFETCH(FaultyFolder::Fault, fault);
        QFETCH(QString, reason);
        const QString damaged = m_host->directory();
        QVERIFY(ProfileBackups(damaged).make(m_today));
        m_host->leaveUnverified("only copies of the damaged profile are recovered");
        m_host->goToComputer(QStringLiteral("Other"));
        const QStringList files{QStringLiteral("profile.sqlite"),
                                QStringLiteral("profile.sqlite-shm"),
                                QStringLiteral("profile.sqlite-wal")};
        for (const QString &file : files) {
            overwrite(damaged + u'/' + file, 0, 4096);
        }
        QSet<QString> failed;
        for (qint64 call = 1;; ++call) {
            const QString directory = damaged + QString::number(call);
            copyFolder(damaged, directory);
            const FaultyFolder disk(directory, fault, call, FaultyFolder::Duration::Once);
            const Expected<void> replaced =
                isNew ? SyncEngine::beginProfile(directory) : SyncEngine::restoreBackup(directory);
            QCOMPARE(damagedFiles(directory), replaced ? files : QStringList());
            if (!disk.hasFailed()) {
                QCOMPARE(description(replaced), QString());
                break;
            }
            if (!replaced) {
                failed.insert(disk.calls().at(call - 1));
                QVERIFY2(description(replaced).contains(reason, Qt::CaseInsensitive),
                         qPrintable(description(replaced)));
                QVERIFY(description(replaced).contains(directory));
                for (const QString &file : files) {
                    QVERIFY2(QFileInfo::exists(directory + u'/' + file), qPrintable(file));
                }
            }
            QVERIFY(QDir(directory).removeRecursively());
        }
        QVERIFY(failed.contains(QStringLiteral("rename")));
        QCOMPARE(failed.contains(QStringLiteral("fstatat")), fault == FaultyFolder::Fault::Error);
    }

    void aFullDiskCostsNoNoteThatIsReadFromADamagedProfile_data() {
        QTest::addColumn<bool>("isNew");
        QTest::addRow("backup") << false;
        QTest::addRow("new profile") << true;
    }
    void aFullDiskCostsNoNoteThatIsReadFromADamagedProfile() {
        QFETCH(bool, isNew);
        QVERIFY(isNew || ProfileBackups(m_host->directory()).make(m_today));
        addNote(QStringLiteral("later"));
        const QString damaged = m_host->directory();
        m_host->goToComputer(QStringLiteral("Other"));
        bool wasReplaced = false;
        bool hasFailed = true;
        for (qint64 call = 1; hasFailed; call += 2) {
            const QString directory = damaged + QString::number(call);
            copyFolder(damaged, directory);
            {
                const FaultyFileSystem disk(FaultyFileSystem::Fault::Full, call,
                                            FaultyFileSystem::Duration::FromThenOn);
                const Expected<void> replaced = isNew ? SyncEngine::beginProfile(directory)
                                                      : SyncEngine::restoreBackup(directory);
                hasFailed = disk.hasFailed();
                wasReplaced = replaced.has_value();
                QVERIFY2(
                    replaced || description(replaced).contains(QStringLiteral("no space left")),
                    qPrintable(description(replaced)));
            }
            SyncEngine engine;
            QCOMPARE(description(engine.openProfile(directory)), QString());
            QCOMPARE(engine.library()->inbox()->notes().value().size(), 2);
            QVERIFY(QDir(directory).removeRecursively());
        }
        QVERIFY(wasReplaced);
    }

    /// A process that is killed leaves what one leaves whose calls all fail from then on.
    void anInterruptedRecoveryIsContinuedAtTheNextStart_data() {
        QTest::addColumn<bool>("isNew");
        QTest::addColumn<bool>("hasBackup");
        QTest::addRow("backup") << false << true;
        QTest::addRow("new profile beside a backup") << true << true;
        QTest::addRow("new profile") << true << false;
    }
    void anInterruptedRecoveryIsContinuedAtTheNextStart() {
        QFETCH(bool, isNew);
        QFETCH(bool, hasBackup);
        const QString damaged = m_host->directory();
        m_host->addLocation();
        m_host->save();
        QVERIFY(!hasBackup || ProfileBackups(damaged).make(m_today));
        m_host->leaveUnverified("only copies of the damaged profile are recovered");
        m_host->goToComputer(QStringLiteral("Other"));
        QVERIFY(executeIn(damaged, hasBackup ? QStringLiteral("DELETE FROM databases")
                                             : QStringLiteral("DROP TRIGGER conflict_counted")));
        const auto replace = [&](const QString &directory) {
            return isNew ? SyncEngine::beginProfile(directory)
                         : SyncEngine::restoreBackup(directory);
        };
        bool wasMissing = false;
        bool hasFailed = true;
        for (qint64 call = 1; hasFailed; ++call) {
            const QString directory = damaged + QString::number(call);
            copyFolder(damaged, directory);
            {
                const FaultyFolder disk(directory, FaultyFolder::Fault::Error, call,
                                        FaultyFolder::Duration::FromThenOn);
                static_cast<void>(replace(directory));
                hasFailed = disk.hasFailed();
            }
            wasMissing =
                wasMissing || !QFileInfo::exists(directory + QStringLiteral("/profile.sqlite"));
            SyncEngine engine;
            Expected<void> opened = engine.openProfile(directory);
            if (!opened) {
                QCOMPARE(code(opened), EngineErrorCode::ProfileDamaged);
                QVERIFY(replace(directory));
                opened = engine.openProfile(directory);
            }
            QCOMPARE(description(opened), QString());
            const QList<Note> notes = engine.library()->inbox()->notes().value();
            QCOMPARE(notes.size(), isNew && hasBackup ? 0 : 1);
            QCOMPARE(engine.plugin().locationsController()->syncLocations().size(), 1);
        }
        QVERIFY(wasMissing);
    }

    void whereTheFilesOfADamagedProfileAreIsSaidIfTheyCannotBeMovedBack() {
        const QString directory = m_host->directory();
        QVERIFY(ProfileBackups(directory).make(m_today));
        m_host->goToComputer(QStringLiteral("Other"));
        overwrite(directory + QStringLiteral("/profile.sqlite"), 0, 4096);
        overwrite(directory + QStringLiteral("/profile.sqlite-wal"), 0, 4096);
        Expected<void> replaced;
        for (qint64 call = 1; damagedFiles(directory).isEmpty(); ++call) {
            const FaultyFolder disk(directory, FaultyFolder::Fault::Error, call,
                                    FaultyFolder::Duration::FromThenOn);
            replaced = ProfileRecovery::restoreBackup(directory);
        }
        const QString text = description(replaced);
        QVERIFY2(text.contains(directory + u'/' + ProfileRecovery::FolderName), qPrintable(text));
        QVERIFY(ProfileRecovery::restoreBackup(directory));
        m_host->goToComputer(QStringLiteral("Profile"));
        QCOMPARE(titles(), QStringList{QStringLiteral("first")});
    }

    void aFullDiskIsNotTakenForUnreadableLocations() {
        const QString directory = m_host->directory();
        m_host->addLocation();
        m_host->save();
        m_host->goToComputer(QStringLiteral("Other"));
        const auto create = [](const QString &folder) {
            ProfileDatabase profile;
            return profile.open(
                folder, [&] { return writeFirstContents(profile, FirstContents::Inbox); },
                [] { return Expected<void>(); });
        };
        std::unique_ptr<FaultyFileSystem> disk;
        const auto begun = ProfileRecovery::begin(directory, [&](const QString &folder) {
            return create(folder).map([&] {
                disk = std::make_unique<FaultyFileSystem>(FaultyFileSystem::Fault::Full, 1,
                                                          FaultyFileSystem::Duration::FromThenOn);
            });
        });
        disk.reset();
        QVERIFY2(description(begun).contains(QStringLiteral("no space left")),
                 qPrintable(description(begun)));
        QCOMPARE(damagedFiles(directory), QStringList());
        QVERIFY(ProfileRecovery::begin(directory, create)->hasLocations);
    }

    void aFailingDiskIsNotTakenForUnreadableLocations() {
        const QString directory = m_host->directory();
        m_host->addLocation();
        m_host->save();
        m_host->goToComputer(QStringLiteral("Other"));
        bool hasFailed = true;
        for (qint64 call = 1; hasFailed; call += call < 40 ? 1 : 7) {
            std::unique_ptr<FaultyFileSystem> disk;
            const auto begun = ProfileRecovery::begin(directory, [&](const QString &folder) {
                ProfileDatabase profile;
                return profile
                    .open(
                        folder, [&] { return writeFirstContents(profile, FirstContents::Inbox); },
                        [] { return Expected<void>(); })
                    .map([&] {
                        disk = std::make_unique<FaultyFileSystem>(
                            FaultyFileSystem::Fault::Error, call, FaultyFileSystem::Duration::Once);
                    });
            });
            hasFailed = disk->hasFailed();
            QVERIFY2(!begun || begun->hasLocations,
                     qPrintable(QStringLiteral("call %1").arg(call)));
        }
    }

    /// SQLite would apply the log of the damaged profile to the restored one.
    void aLogOfTheDamagedProfileIsSetAsideToo() {
        const QString directory = m_host->directory();
        QVERIFY(ProfileBackups(directory).make(m_today));
        addNote(QStringLiteral("second"));
        const QString log = directory + QStringLiteral("/profile.sqlite-wal");
        const QString copy = directory + QStringLiteral("/copy");
        QVERIFY(QFile::copy(log, copy));
        m_host->goToComputer(QStringLiteral("Other"));
        QVERIFY(QFile::remove(directory + QStringLiteral("/profile.sqlite")));
        QVERIFY(QFile::rename(copy, log));
        QVERIFY(ProfileRecovery::restoreBackup(directory));
        m_host->goToComputer(QStringLiteral("Profile"));
        QCOMPARE(titles(), QStringList{QStringLiteral("first")});
        QCOMPARE(damagedFiles(directory), QStringList{QStringLiteral("profile.sqlite-wal")});
    }

    void theErrorNamesAFullDisk_data() {
        QTest::addColumn<QString>("name");
        QTest::addRow("first start") << QStringLiteral("New");
        QTest::addRow("start") << QStringLiteral("Profile");
    }
    void theErrorNamesAFullDisk() {
        QFETCH(QString, name);
        const QString directory = QFileInfo(m_host->directory()).path() + u'/' + name;
        m_host->goToComputer(QStringLiteral("Other"));
        const FaultyFileSystem disk(FaultyFileSystem::Fault::Full, 1,
                                    FaultyFileSystem::Duration::FromThenOn);
        SyncEngine engine;
        const Expected<void> opened = engine.openProfile(directory);
        QVERIFY(disk.hasFailed());
        QVERIFY2(description(opened).contains(QStringLiteral("no space left")),
                 qPrintable(description(opened)));
        QVERIFY(description(opened).contains(directory));
    }
};

VELMORA_TEST(ProfileBackupsTest)
#include "ProfileBackupsTest.moc"
