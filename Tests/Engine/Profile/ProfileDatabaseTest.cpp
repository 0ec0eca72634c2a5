#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>

#include "Engine/Notes/DerivedTables.h"
#include "Engine/Notes/FirstContents.h"
#include "Engine/Notes/KnownTransactions.h"
#include "Engine/Notes/NoteConversion.h"
#include "Engine/Notes/NoteLog.h"
#include "Engine/Notes/NoteRows.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Profile/ProfileFolder.h"
#include "Engine/Profile/ProfileInspection.h"
#include "Engine/Profile/ProfileLock.h"
#include "Engine/Profile/ProfileRecovery.h"
#include "Engine/Profile/ReadOnlyConnection.h"
#include "Support/AwaitOnThread.h"
#include "Support/FailingTable.h"
#include "Support/Failure.h"
#include "Support/FaultyFileSystem.h"
#include "Support/FaultyFolder.h"
#include "Support/OldProfile.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

constexpr uid_t Nobody = 65534;

/// Every file below `directory` with its contents, to prove that none was touched.
QMap<QString, QByteArray> contentsOf(const QString &directory) {
    QMap<QString, QByteArray> contents;
    QDirIterator entries(directory, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        QFile file(entries.next());
        const bool isFile = entries.fileInfo().isFile() && file.open(QIODevice::ReadOnly);
        contents.insert(file.fileName(), isFile ? file.readAll() : QByteArray("folder"));
    }
    return contents;
}

void writeFile(const QString &path, const QByteArray &contents) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(contents), contents.size());
}

void execute(const QString &path, const QString &statement) {
    {
        QSqlDatabase database =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("test"));
        database.setDatabaseName(path);
        QVERIFY(database.open());
        QVERIFY(QSqlQuery(database).exec(statement));
    }
    QSqlDatabase::removeDatabase(QStringLiteral("test"));
}

bool copyFolder(const QString &source, const QString &destination) {
    const QStringList names = QDir(source).entryList(QDir::Files);
    return QDir().mkdir(destination) &&
           std::all_of(names.begin(), names.end(), [&](const QString &name) {
               return QFile::copy(source + u'/' + name, destination + u'/' + name);
           });
}

Expected<void> nothing() {
    return {};
}

QString descriptionOfOpening(const QString &directory,
                             FirstContents contents = FirstContents::Inbox) {
    ProfileDatabase profile;
    return description(profile.open(
        directory, [&] { return writeFirstContents(profile, contents); },
        [&] { return convertOldNotes(profile); }));
}

/// The start of a user's program.
QString descriptionOfFirstStart(const QString &directory) {
    return descriptionOfOpening(directory, FirstContents::Welcome);
}

/// Returns what `work` returns in a process that file modes bind, which they do not for root.
QString unprivileged(const std::function<QString()> &work) {
    int ends[2];
    if (pipe(ends) != 0) {
        return QStringLiteral("no pipe");
    }
    const pid_t child = fork();
    if (child == 0) {
        const bool isBound = geteuid() != 0 || (setgroups(0, nullptr) == 0 &&
                                                setresgid(Nobody, Nobody, Nobody) == 0 &&
                                                setresuid(Nobody, Nobody, Nobody) == 0);
        const QByteArray text = isBound ? work().toUtf8() : QByteArray("still root");
        const bool isWritten = ::write(ends[1], text.constData(), text.size()) == text.size();
        _exit(isWritten ? 0 : 1);
    }
    close(ends[1]);
    QFile answer;
    const bool isOpen = answer.open(ends[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
    const QString text = isOpen ? QString::fromUtf8(answer.readAll()) : QString();
    waitpid(child, nullptr, 0);
    return text;
}

}  // namespace

class ProfileDatabaseTest : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<QTemporaryDir> m_directory;

    QString folder() const { return m_directory->filePath(QStringLiteral("Profile")); }
    QString file() const { return folder() + QStringLiteral("/profile.sqlite"); }
    /// Refusing must say `words` and where, and touch nothing.
    void verifyRefused(const QString &words, const QString &where) const {
        const QMap<QString, QByteArray> before = contentsOf(m_directory->path());
        const QString description = descriptionOfOpening(folder());
        QVERIFY2(description.contains(words), qPrintable(description));
        QVERIFY2(description.contains(where), qPrintable(description));
        QCOMPARE(contentsOf(m_directory->path()), before);
    }

private Q_SLOTS:
    void init() { m_directory = std::make_unique<QTemporaryDir>(); }

    void makesTheFolderAndTheFoldersAboveIt() {
        const QString deep = m_directory->filePath(QStringLiteral("a/b/Profile"));
        QCOMPARE(descriptionOfOpening(deep), QString());
        QVERIFY(QFileInfo(deep + QStringLiteral("/profile.sqlite")).isFile());
    }

    void takesAnEmptyFolder() {
        QVERIFY(QDir().mkdir(folder()));
        QCOMPARE(descriptionOfOpening(folder()), QString());
    }

    void aFileThatCannotBeReachedIsNotTakenForMissing() {
        QCOMPARE(descriptionOfFirstStart(folder()), QString());
        const QMap<QString, QByteArray> before = contentsOf(folder());
        QString description;
        {
            const FaultyFolder disk(file(), FaultyFolder::Fault::Error, 1,
                                    FaultyFolder::Duration::FromThenOn);
            description = descriptionOfOpening(folder());
            QCOMPARE(disk.calls(), QStringList{QStringLiteral("fstatat")});
        }
        QCOMPARE(description, QStringLiteral("The profile “%1” cannot be opened: Input/output "
                                             "error. Check its disk and its permissions, then "
                                             "try again.")
                                  .arg(file()));
        QCOMPARE(contentsOf(folder()), before);
    }

    void finishesAnInterruptedFirstStart_data() {
        QTest::addColumn<QString>("stores");
        QTest::addRow("without the sync store") << QString();
        QTest::addRow("with half of the sync store") << QStringLiteral("/Sync Stores");
        QTest::addRow("with the sync store")
            << QStringLiteral("/Sync Stores/Home.qvSyncStore/transactions");
    }
    void finishesAnInterruptedFirstStart() {
        QFETCH(QString, stores);
        QVERIFY(QDir().mkpath(folder() + stores));
        writeFile(file(), {});
        QCOMPARE(descriptionOfFirstStart(folder()), QString());
        verifyFirstContents();
    }

    void finishesAFirstStartThatIsKilled() {
        FaultyFileSystem::install();
        int ended = EXIT_FAILURE;
        for (qint64 call = 1; ended != EXIT_SUCCESS; call += 1 + call / 8) {
            const pid_t child = fork();
            if (child == 0) {
                const FaultyFileSystem disk(FaultyFileSystem::Fault::End, call,
                                            FaultyFileSystem::Duration::Once);
                _exit(descriptionOfFirstStart(folder()).isEmpty() ? EXIT_SUCCESS : 2);
            }
            int status = 0;
            QCOMPARE(waitpid(child, &status, 0), child);
            QVERIFY(WIFEXITED(status));
            ended = WEXITSTATUS(status);
            QVERIFY(ended == EXIT_FAILURE || ended == EXIT_SUCCESS);
            QCOMPARE(descriptionOfFirstStart(folder()), QString());
            verifyFirstContents();
            QVERIFY(QDir(folder()).removeRecursively());
        }
    }

    void repeatsAFirstStartThatFailed_data() {
        QTest::addColumn<int>("fault");
        QTest::addRow("error") << static_cast<int>(FaultyFileSystem::Fault::Error);
        QTest::addRow("full") << static_cast<int>(FaultyFileSystem::Fault::Full);
    }
    void repeatsAFirstStartThatFailed() {
        QFETCH(int, fault);
        FaultyFileSystem::install();
        bool hasFailed = true;
        for (qint64 call = 1; hasFailed; call += 1 + call / 8) {
            QString description;
            {
                const FaultyFileSystem disk(static_cast<FaultyFileSystem::Fault>(fault), call,
                                            FaultyFileSystem::Duration::FromThenOn);
                description = descriptionOfFirstStart(folder());
                hasFailed = disk.hasFailed();
            }
            QVERIFY(hasFailed || description.isEmpty());
            QVERIFY(description.isEmpty() || !QFileInfo::exists(folder()));
            QCOMPARE(descriptionOfFirstStart(folder()), QString());
            verifyFirstContents();
            QVERIFY(QDir(folder()).removeRecursively());
        }
    }

    void refusesAnEmptiedDatabase_data() {
        QTest::addColumn<QString>("trace");
        for (const char *trace : {"Backups/2026-11-22.sqlite", "Damaged Profiles/1/profile.sqlite",
                                  "Sync Stores/Home.qvSyncStore/transactions/a", "unsaved-1.json",
                                  "Direct Connection.pem", "profile.sqlite-wal"}) {
            QTest::addRow("%s", trace) << QString::fromLatin1(trace);
        }
    }
    void refusesAnEmptiedDatabase() {
        QFETCH(QString, trace);
        const QString path = folder() + u'/' + trace;
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        writeFile(path, "something");
        writeFile(file(), {});
        verifyRefused(QStringLiteral("is empty"), file());
        ProfileDatabase profile;
        QCOMPARE(code(profile.open(folder(), nothing, nothing)), EngineErrorCode::ProfileDamaged);
    }

    void offersToRecoverADatabaseOfWhichOnlyTheLogIsLeft() {
        QVERIFY(QDir().mkdir(folder()));
        writeFile(file() + QStringLiteral("-wal"), "something");
        verifyRefused(QStringLiteral("is missing"), folder());
        ProfileDatabase profile;
        QCOMPARE(code(profile.open(folder(), nothing, nothing)), EngineErrorCode::ProfileDamaged);
    }

    /// The names in the folder are unknown, so that the user may have anything there.
    void refusesAFolderThatMayNotBeRead() {
        const QString letter = folder() + QStringLiteral("/Sync Stores/letter.txt");
        QVERIFY(QDir().mkpath(QFileInfo(letter).path()));
        writeFile(letter, "Dear Ida");
        QCOMPARE(chown(QFile::encodeName(folder()).constData(), Nobody, Nobody), 0);
        makeUnwritable(folder(), QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        verifyRefusedUnprivileged(QStringLiteral("cannot be read"), folder());
    }

    void keepsToTheDisk() {
        ProfileDatabase profile;
        QVERIFY(profile.open(folder(), nothing, nothing));
        QCOMPARE(profile.value(QStringLiteral("PRAGMA journal_mode")), QStringLiteral("wal"));
        QCOMPARE(profile.value(QStringLiteral("PRAGMA synchronous")), 2);
        QCOMPARE(profile.value(QStringLiteral("PRAGMA foreign_keys")), 1);
    }

    void movesItsLogOnAnotherThread() {
        ProfileDatabase profile;
        QVERIFY(profile.open(folder(), nothing, nothing));
        QVERIFY(profile.run(QStringLiteral("INSERT INTO settings VALUES ('key', 'before')")));
        const auto move = [&] { return awaitOnThread([&] { return profile.moveLog(); }); };
        QVERIFY(move());
        QVERIFY(profile.run(QStringLiteral("UPDATE settings SET value = 'after'")));
        const QString query = QStringLiteral("SELECT value FROM settings");
        QCOMPARE(profile.value(query), QStringLiteral("after"));
        // What was moved needs no log.
        const QString copy = m_directory->filePath(QStringLiteral("copy.sqlite"));
        QVERIFY(QFile::copy(file(), copy));
        const auto database =
            ReadOnlyConnection::open(copy, ReadOnlyConnection::Sharing::Immutable);
        QCOMPARE(database.value()->value(query), QStringLiteral("before"));
        // The first frame of a log that has begun again is behind its header.
        QVERIFY(move());
        QVERIFY(profile.run(QStringLiteral("UPDATE settings SET value = 'again'")));
        qint64 pages = 0;
        QVERIFY(profile.read(QStringLiteral("PRAGMA wal_checkpoint"), {},
                             [&](const QSqlQuery &row) { pages = row.value(1).toLongLong(); }));
        QCOMPARE(pages, 1);
    }

    void movesNoLogOfAFolderThatWasReplaced() {
        ProfileDatabase profile;
        QVERIFY(profile.open(folder(), nothing, nothing));
        QVERIFY(QDir().rename(folder(), folder() + QStringLiteral(" moved")));
        QCOMPARE(code(profile.moveLog()), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(descriptionOfOpening(folder()), QString());
        const QMap<QString, QByteArray> before = contentsOf(folder());
        QCOMPARE(code(profile.moveLog()), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(contentsOf(folder()), before);
    }

    void leavesNothingOfAFirstStartThatFails() {
        const Error error{QStringLiteral("test"), 1, QStringLiteral("no"), {}};
        const auto fail = [&] { return Expected<void>(failure(error)); };
        ProfileDatabase profile;
        QCOMPARE(profile.open(folder(), fail, nothing), failure(error));
        QVERIFY(!QFileInfo::exists(folder()));
        QVERIFY(QDir().mkdir(folder()));
        ProfileDatabase second;
        QCOMPARE(second.open(folder(), fail, nothing), failure(error));
        QVERIFY(QDir(folder()).isEmpty());
    }

    void refusesAFileInPlaceOfTheFolder() {
        writeFile(folder(), "something");
        verifyRefused(QStringLiteral("is not a folder"), folder());
    }

    void refusesAFolderThatHoldsOtherThings() {
        QVERIFY(QDir().mkdir(folder()));
        writeFile(folder() + QStringLiteral("/letter.txt"), "Dear Ida");
        verifyRefused(QStringLiteral("contains other files"), folder());
    }

    void refusesAFolderThatCannotBeMade() {
        writeFile(m_directory->filePath(QStringLiteral("file")), "x");
        const QString impossible = m_directory->filePath(QStringLiteral("file/Profile"));
        QVERIFY(descriptionOfOpening(impossible).contains(QStringLiteral("could not be created")));
        QVERIFY(descriptionOfOpening(impossible).contains(impossible));
    }

    void refusesAFolderInPlaceOfTheFile() {
        QVERIFY(QDir().mkpath(file()));
        verifyRefused(QStringLiteral("is not a file"), file());
    }

    void refusesAFileThatIsNoDatabase() {
        QVERIFY(QDir().mkdir(folder()));
        writeFile(file(), QByteArray(10000, 'x'));
        verifyRefused(QStringLiteral("is damaged"), file());
    }

    void refusesADatabaseOfWhichAPageIsDamaged() {
        QCOMPARE(descriptionOfOpening(folder()), QString());
        QFile database(file());
        QVERIFY(database.open(QIODevice::ReadWrite));
        for (qint64 page = 4096; page < database.size(); page += 4096) {
            database.seek(page);
            database.write(QByteArray(64, '\xff'));
        }
        database.close();
        verifyRefused(QStringLiteral("is damaged"), file());
    }

    void refusesADatabaseWithoutATrigger() {
        {
            ProfileDatabase profile;
            QVERIFY(profile.open(
                folder(), [&] { return writeFirstContents(profile, FirstContents::Inbox); },
                nothing));
            QVERIFY(profile.run(QStringLiteral("DROP TRIGGER operation_added")));
        }
        verifyRefused(QStringLiteral("is damaged"), file());
    }

    void refusesADatabaseCutShort() {
        QCOMPARE(descriptionOfOpening(folder()), QString());
        QVERIFY(QFile::resize(file(), QFileInfo(file()).size() / 2));
        verifyRefused(QStringLiteral("is damaged"), file());
    }

    void refusesANewerVersion() {
        QCOMPARE(descriptionOfOpening(folder()), QString());
        execute(
            file(),
            QStringLiteral("PRAGMA user_version = %1").arg(ProfileInspection::SchemaVersion + 1));
        verifyRefused(QStringLiteral("newer version"), file());
    }

    void convertsTheNotesOfTheFirstVersion() {
        QVERIFY(QDir().mkdir(folder()));
        OldProfile::write(file(), 1, QStringLiteral("Text"));
        for (int time = 0; time < 2; ++time) {
            ProfileDatabase profile;
            QCOMPARE(description(
                         profile.open(folder(), nothing, [&] { return convertOldNotes(profile); })),
                     QString());
            const qint64 database =
                profile.value(QStringLiteral("SELECT id FROM databases WHERE NOT is_inbox"))
                    .value()
                    .toLongLong();
            QCOMPARE(NoteLog(profile, database).name(), QStringLiteral("Plans"));
            const QList<Note> notes = NoteRows(profile, database).notes().value();
            QCOMPARE(notes.size(), 1);
            QCOMPARE(notes.first().UUID, OldProfile::UUID);
            QCOMPARE(notes.first().text, QStringLiteral("Text"));
            QCOMPARE(notes.first().modified, QDateTime::fromMSecsSinceEpoch(OldProfile::Modified));
            QCOMPARE(profile.value(QStringLiteral("PRAGMA user_version")),
                     ProfileInspection::SchemaVersion);
        }
    }

    void notesThatCannotBeReadAreNotConverted_data() {
        QTest::addColumn<QString>("table");
        QTest::addColumn<bool>("areAllRows");
        for (const char *table : {"databases", "old_notes"}) {
            QTest::addRow("all rows of %s", table) << QString::fromLatin1(table) << true;
            QTest::addRow("later rows of %s", table) << QString::fromLatin1(table) << false;
        }
    }
    void notesThatCannotBeReadAreNotConverted() {
        QFETCH(QString, table);
        QFETCH(bool, areAllRows);
        QVERIFY(QDir().mkdir(folder()));
        OldProfile::write(file(), 2, QStringLiteral("Text"));
        {
            ProfileDatabase profile;
            const Expected<void> opened = profile.open(folder(), nothing, [&] {
                const FailingTable failing(
                    profile, table,
                    areAllRows ? FailingTable::Fault::AllRows : FailingTable::Fault::LaterRows);
                return convertOldNotes(profile);
            });
            QCOMPARE(code(opened), EngineErrorCode::ProfileNotWritten);
        }
        ProfileDatabase profile;
        QCOMPARE(
            description(profile.open(folder(), nothing, [&] { return convertOldNotes(profile); })),
            QString());
        QCOMPARE(profile.value(QStringLiteral("SELECT count(*) FROM operations"
                                              " WHERE note_uuid <> ''")),
                 2);
    }

    void addsTheColumnsOfResultsToAnOlderProfile() {
        const auto columns = [](const ProfileDatabase &profile) {
            QStringList names;
            const Expected<void> read =
                profile.read(QStringLiteral("SELECT name FROM pragma_table_info('states')"), {},
                             [&](const QSqlQuery &row) { names.append(row.value(0).toString()); });
            return read ? names : QStringList();
        };
        QStringList current;
        {
            ProfileDatabase profile;
            QVERIFY(profile.open(
                folder(), [&] { return writeFirstContents(profile, FirstContents::Inbox); },
                nothing));
            current = columns(profile);
            QVERIFY(current.contains(QStringLiteral("result_date")));
            for (const QString &name : std::as_const(current)) {
                if (name.startsWith(QStringLiteral("result_"))) {
                    QVERIFY(profile.run(QStringLiteral("ALTER TABLE states DROP COLUMN ") + name));
                }
            }
            QVERIFY(profile.run(
                QStringLiteral("INSERT INTO locations (uuid, position, url) VALUES ('l', 0, '')")));
            QVERIFY(profile.run(QStringLiteral(
                "INSERT INTO states (location_uuid, database_uuid, database_name, enabled,"
                " sync_on_open, sync_on_close, last_synced) VALUES ('l', 'd', 'D', 1, 0, 0, 5)")));
            QVERIFY(profile.run(QStringLiteral("PRAGMA user_version = 3")));
        }
        ProfileDatabase profile;
        QVERIFY(profile.open(folder(), nothing, nothing));
        QCOMPARE(columns(profile), current);
        QCOMPARE(profile.value(QStringLiteral("SELECT last_synced FROM states")).value(), 5);
        QVERIFY(profile.value(QStringLiteral("SELECT result_date FROM states")).value().isNull());
        QCOMPARE(profile.value(QStringLiteral("PRAGMA user_version")).value(),
                 ProfileInspection::SchemaVersion);
    }

    void derivesWhatAnOlderProfileDidNotRecord() {
        const auto open = [this](ProfileDatabase &profile) {
            return profile.open(
                folder(), [&] { return writeFirstContents(profile, FirstContents::Inbox); },
                nothing);
        };
        const QString id = QStringLiteral("0f7e2f2c-9d1b-4a53-8c6e-0d9f6f3f8a11");
        const auto edit = [&](const QString &text) { return Operation::make(id, {}, text, 0, {}); };
        {
            ProfileDatabase profile;
            QVERIFY(open(profile));
            QVERIFY(profile.write([&] {
                return NoteLog(profile, 1)
                    .merge({{edit(QStringLiteral("1")), edit(QStringLiteral("2"))},
                            {"an identifier"}});
            }));
            for (const char *table : {"counts", "compared_places", "unwritten"}) {
                QVERIFY(profile.run(QStringLiteral("DROP TABLE ") + QLatin1StringView(table)));
            }
            for (const char *trigger :
                 {"database_added", "conflict_counted", "conflict_discounted", "note_changed",
                  "operation_added", "operation_removed", "identifier_superseded"}) {
                QVERIFY(profile.run(QStringLiteral("DROP TRIGGER ") + QLatin1StringView(trigger)));
            }
            const QString last =
                profile.value(QStringLiteral("SELECT max(id) FROM operations")).value().toString();
            for (const auto &[place, state] :
                 {std::pair(QStringLiteral("all"), QStringLiteral(" 1")),
                  std::pair(QStringLiteral("some"), QStringLiteral(" 0"))}) {
                QVERIFY(profile.run(QStringLiteral("INSERT INTO settings VALUES (?, ?)"),
                                    {QStringLiteral("written 1 ") + place, last + state}));
            }
            QVERIFY(profile.run(QStringLiteral("PRAGMA user_version = 4")));
        }
        ProfileDatabase profile;
        QVERIFY(open(profile));
        QCOMPARE(DerivedTables::countOfConflicts(profile, 1).value(), 1);
        QVERIFY(DerivedTables::isCountOfConflictsSound(profile, 1).value());
        const KnownTransactions all(profile, QStringLiteral("all"), 1);
        const KnownTransactions some(profile, QStringLiteral("some"), 1);
        QVERIFY(all.isComplete().value());
        QVERIFY(!all.hasUnwritten().value());
        QVERIFY(!some.isComplete().value());
        QVERIFY(NoteLog(profile, 1).merge({{edit(QStringLiteral("3"))}, {}}));
        QCOMPARE(all.unwritten().value().value().operations.size(), 1);
        QCOMPARE(profile.value(QStringLiteral("SELECT count(*) FROM settings"
                                              " WHERE key LIKE 'written %'")),
                 0);
    }

    void refusesANewerVersionThatOnlyTheLogHas() {
        {
            ProfileDatabase profile;
            QVERIFY(profile.open(folder(), nothing, nothing));
            QVERIFY(profile.value(QStringLiteral("PRAGMA wal_checkpoint")));
            QVERIFY(profile.run(QStringLiteral("PRAGMA user_version = 99")));
            // As a killed process leaves the files.
            QVERIFY(QDir().mkdir(m_directory->filePath(QStringLiteral("copy"))));
            for (const QString &name : QDir(folder()).entryList(QDir::Files)) {
                QVERIFY(QFile::copy(folder() + u'/' + name,
                                    m_directory->filePath(QStringLiteral("copy/") + name)));
            }
        }
        QVERIFY(QDir(folder()).removeRecursively());
        QVERIFY(QDir().rename(m_directory->filePath(QStringLiteral("copy")), folder()));
        const QByteArray log = contentsOf(folder()).value(file() + QStringLiteral("-wal"));
        QVERIFY(!log.isEmpty());
        const QByteArray database = contentsOf(folder()).value(file());
        QVERIFY(descriptionOfOpening(folder()).contains(QStringLiteral("newer version")));
        QCOMPARE(contentsOf(folder()).value(file()), database);
        QCOMPARE(contentsOf(folder()).value(file() + QStringLiteral("-wal")), log);
    }

    void refusesADatabaseOfAnotherProgram() {
        QVERIFY(QDir().mkdir(folder()));
        execute(file(), QStringLiteral("CREATE TABLE something (a)"));
        verifyRefused(QStringLiteral("another program"), file());
    }

    void refusesAReadOnlyFile() {
        QCOMPARE(descriptionOfOpening(folder()), QString());
        makeUnwritable(file(), QFileDevice::Permissions(0x4444));
        verifyRefusedUnprivileged(QStringLiteral("is read-only"), file());
    }

    void refusesAReadOnlyFolder() {
        QCOMPARE(descriptionOfOpening(folder()), QString());
        QFile(file()).setPermissions(QFileDevice::Permissions(0x6666));
        makeUnwritable(folder(), QFileDevice::Permissions(0x5555));
        verifyRefusedUnprivileged(QStringLiteral("is read-only"), folder());
    }

    void refusesAnEmptyReadOnlyFolder() {
        QVERIFY(QDir().mkdir(folder()));
        makeUnwritable(folder(), QFileDevice::Permissions(0x5555));
        verifyRefusedUnprivileged(QStringLiteral("is read-only"), folder());
    }

    void refusesAFileThatMayNotBeRead() {
        QCOMPARE(descriptionOfOpening(folder()), QString());
        makeUnwritable(file(), {});
        verifyRefusedUnprivileged(QStringLiteral("have permission to read"), file());
    }

    void setsADamagedProfileAsideInAFolderThatMayNotBeRead() {
        QVERIFY(QDir().mkdir(folder()));
        writeFile(file(), "damaged");
        QCOMPARE(chown(QFile::encodeName(folder()).constData(), Nobody, Nobody), 0);
        makeUnwritable(folder(), QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        unprivileged([this] {
            return ProfileRecovery::begin(folder(),
                                          [](const QString &made) {
                                              writeFile(made + QStringLiteral("/profile.sqlite"),
                                                        "new");
                                              return Expected<void>();
                                          })
                       ? QString()
                       : QStringLiteral("failed");
        });
        const QMap<QString, QByteArray> found = contentsOf(folder());
        QVERIFY(found.values().contains("damaged"));
    }

    void refusesAFolderWhoseParentIsReadOnly() {
        makeUnwritable(m_directory->path(), QFileDevice::Permissions(0x5555));
        verifyRefusedUnprivileged(QStringLiteral("could not be created"), folder());
    }

    void writesAllOrNothing() {
        ProfileDatabase profile;
        QVERIFY(profile.open(folder(), nothing, nothing));
        const QString insert = QStringLiteral("INSERT INTO grants (path) VALUES (?)");
        const Expected<void> written = profile.write([&] {
            return profile.run(insert, {QStringLiteral("/a")}).and_then([&] {
                return profile.run(QStringLiteral("INSERT INTO nowhere VALUES (1)"));
            });
        });
        QVERIFY(description(written).contains(file()));
        QCOMPARE(profile.value(QStringLiteral("SELECT count(*) FROM grants")), 0);
        QVERIFY(profile.write([&] { return profile.run(insert, {QStringLiteral("/b")}); }));
        QCOMPARE(profile.value(QStringLiteral("SELECT count(*) FROM grants")), 1);
    }

    void noticesThatItsFilesAreGone_data() {
        QTest::addColumn<QString>("removed");
        QTest::addColumn<bool>("isReplaced");
        for (const char *name : {"", "/profile.sqlite", "/profile.sqlite-wal", "/profile.lock"}) {
            QTest::addRow("“%s” is moved", name) << QString::fromLatin1(name) << false;
            QTest::addRow("“%s” is replaced", name) << QString::fromLatin1(name) << true;
        }
    }
    void noticesThatItsFilesAreGone() {
        QFETCH(QString, removed);
        QFETCH(bool, isReplaced);
        const QString insert = QStringLiteral("INSERT INTO grants (path) VALUES (?)");
        ProfileDatabase profile;
        QVERIFY(profile.open(folder(), nothing, nothing));
        QVERIFY(profile.write([&] { return profile.run(insert, {QStringLiteral("/a")}); }));
        const QString path = folder() + removed;
        const QString aside = m_directory->filePath(QStringLiteral("aside"));
        QVERIFY(QFile::rename(path, aside));
        if (isReplaced) {
            QVERIFY(removed.isEmpty() ? copyFolder(aside, path) : QFile::copy(aside, path));
        }
        const Expected<void> written =
            profile.write([&] { return profile.run(insert, {QStringLiteral("/b")}); });
        QCOMPARE(code(written), EngineErrorCode::ProfileNotWritten);
        QVERIFY2(description(written).contains(folder()), qPrintable(description(written)));
        QVERIFY(!isReplaced || QFile::remove(path) || QDir(path).removeRecursively());
        QVERIFY(QFile::rename(aside, path));
        QCOMPARE(profile.value(QStringLiteral("SELECT count(*) FROM grants")), 1);
        QVERIFY(profile.write([&] { return profile.run(insert, {QStringLiteral("/b")}); }));
    }

    void noticesThatItsFolderIsDeletedWhileItWrites() {
        ProfileDatabase profile;
        QVERIFY(profile.open(folder(), nothing, nothing));
        const Expected<void> written = profile.write([&] {
            QDir(folder()).removeRecursively();
            return profile.run(QStringLiteral("INSERT INTO grants (path) VALUES ('/a')"));
        });
        QCOMPARE(code(written), EngineErrorCode::ProfileNotWritten);
    }

    void aFolderIsUnusedOnlyIfThatIsCertain_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("permissions");
        QTest::addColumn<QString>("result");
        const int all = 0x7777;
        const int none = 0;
        const int unlisted = 0x3333;
        const QString lock = QStringLiteral("/") + ProfileLock::FileName;
        const QString database = QStringLiteral("/profile.sqlite");
        const QString failed = QStringLiteral("cannot be read");
        QTest::newRow("missing") << QString() << all << QStringLiteral("unused");
        QTest::newRow("empty") << QStringLiteral("/") << all << QStringLiteral("unused");
        QTest::newRow("a lock") << lock << all << QStringLiteral("unused");
        QTest::newRow("a database") << database << all << QStringLiteral("used");
        QTest::newRow("a hidden file") << QStringLiteral("/.a") << all << QStringLiteral("used");
        QTest::newRow("unreadable") << database << none << failed;
        QTest::newRow("unreadable, empty") << QStringLiteral("/") << none << failed;
        QTest::newRow("not listed") << database << unlisted << QStringLiteral("used");
        QTest::newRow("not listed, empty") << QStringLiteral("/") << unlisted << failed;
    }
    void aFolderIsUnusedOnlyIfThatIsCertain() {
        QFETCH(QString, name);
        QFETCH(int, permissions);
        QFETCH(QString, result);
        if (!name.isEmpty()) {
            QVERIFY(QDir().mkpath(folder()));
        }
        if (name.size() > 1) {
            writeFile(folder() + name, "a");
        }
        QVERIFY(QFile::setPermissions(m_directory->path(), QFileDevice::Permissions(0x7777)));
        if (QFileInfo::exists(folder())) {
            QVERIFY(QFile::setPermissions(folder(), QFileDevice::Permissions(permissions)));
        }
        const QString found = unprivileged([this] {
            const Expected<bool> isUnused = ProfileFolder::isUnused(folder());
            return !isUnused   ? isUnused.error().localizedDescription
                   : *isUnused ? QStringLiteral("unused")
                               : QStringLiteral("used");
        });
        QVERIFY2(found.contains(result), qPrintable(found));
        QCOMPARE(found == QStringLiteral("unused"), result == QStringLiteral("unused"));
    }

    void cleanup() {
        QFile(m_directory->path()).setPermissions(QFileDevice::Permissions(0x7777));
        QFile(folder()).setPermissions(QFileDevice::Permissions(0x7777));
    }

private:
    void verifyFirstContents() const {
        ProfileDatabase profile;
        QVERIFY(profile.open(folder(), nothing, nothing));
        QCOMPARE(profile.value(QStringLiteral("SELECT count(*) FROM databases")), 3);
        QCOMPARE(profile.value(QStringLiteral("SELECT count(*) FROM locations")), 1);
        QVERIFY(QFileInfo(folder() + QStringLiteral("/Sync Stores/Home.qvSyncStore/databases"))
                    .isDir());
    }

    /// Lets everyone reach the profile, and gives `path` these permissions.
    void makeUnwritable(const QString &path, QFileDevice::Permissions permissions) const {
        QVERIFY(QFile(m_directory->path()).setPermissions(QFileDevice::Permissions(0x7777)));
        if (QFileInfo::exists(folder())) {
            QVERIFY(QFile(folder()).setPermissions(QFileDevice::Permissions(0x7777)));
        }
        QVERIFY(QFile(path).setPermissions(permissions));
    }

    void verifyRefusedUnprivileged(const QString &words, const QString &where) const {
        const QMap<QString, QByteArray> before = contentsOf(m_directory->path());
        const QString description = unprivileged([this] { return descriptionOfOpening(folder()); });
        QVERIFY2(description.contains(words), qPrintable(description));
        QVERIFY2(description.contains(where), qPrintable(description));
        QCOMPARE(contentsOf(m_directory->path()), before);
    }
};

VELMORA_TEST(ProfileDatabaseTest)
#include "ProfileDatabaseTest.moc"
