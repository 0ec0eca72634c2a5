#include <QtCore/QtEndian>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>

#include "Engine/Profile/ProfileBackups.h"
#include "Engine/Profile/ProfileInspection.h"
#include "Engine/Profile/ProfileRecovery.h"
#include "Engine/Synchronization/SyncSession.h"
#include "Support/DamagedIndex.h"
#include "Support/Failure.h"
#include "Support/FaultyFileSystem.h"
#include "Support/SessionTestCase.h"

using Damage = DamagedIndex::Damage;

/// A bit changes in an index of the profile, or in the column of a table that is indexed.
class DamagedIndexTest : public SessionTestCase {
    Q_OBJECT
private:
    QString m_directory;

    static QString fileIn(const QString &directory) {
        return directory + QStringLiteral("/profile.sqlite");
    }
    QString file() const { return fileIn(m_directory); }

    void damage(const QString &index, Damage damage = Damage::Entry) {
        m_host->goToComputer(QStringLiteral("Other"));
        DamagedIndex::make(file(), index, damage);
    }

    /// Changes the database of a note in the table, but not in two of its indexes.
    void moveANoteBehindItsIndexes() const {
        const QString connection = QStringLiteral("damaged-index-test");
        const QString indexes = QStringLiteral(
            "type = 'index' AND name IN"
            " ('operations_of_notes', 'places_of_notes')");
        const auto run = [&](const QStringList &statements) {
            {
                auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
                database.setDatabaseName(file());
                QVERIFY(database.open());
                QSqlQuery query(database);
                QVERIFY(query.exec(QStringLiteral("PRAGMA writable_schema = ON")));
                for (const QString &statement : statements) {
                    QVERIFY2(query.exec(statement), qPrintable(query.lastError().text()));
                }
            }
            QSqlDatabase::removeDatabase(connection);
        };
        run({QStringLiteral("CREATE TABLE hidden AS SELECT * FROM sqlite_schema WHERE ") + indexes,
             QStringLiteral("DELETE FROM sqlite_schema WHERE ") + indexes});
        run({QStringLiteral("UPDATE operations SET database = (SELECT max(id) FROM databases)"
                            " WHERE rowid = (SELECT min(rowid) FROM operations)"),
             QStringLiteral("INSERT INTO sqlite_schema SELECT * FROM hidden")});
        run({QStringLiteral("DROP TABLE hidden")});
    }

    QStringList texts() {
        QStringList texts;
        const QList<Note> notes = m_host->inbox()->notes().value();
        for (const Note &note : notes) {
            texts.append(note.title + u'=' + note.text);
        }
        texts.sort();
        return texts;
    }

    QStringList log() {
        QStringList infos;
        for (const auto &entry : m_host->application().logEntries()) {
            infos.append(entry.info);
        }
        return infos;
    }

    QByteArray contents() const {
        QFile file(this->file());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// Adds a note, edits another twice, and adds a database.
    void makeLaterChanges() {
        Note later{{}, QStringLiteral("later"), QStringLiteral("a later note"), {}};
        QVERIFY(m_host->inbox()->saveNote(later));
        Note edited = m_host->inbox()->notes().value().first();
        for (const char *text : {"a first edit", "a second edit"}) {
            edited.text = QString::fromLatin1(text);
            QVERIFY(m_host->inbox()->saveNote(edited));
            QVERIFY(run<SyncSession>());
        }
        m_host->addDatabase(QStringLiteral("New"));
    }

    /// Opens the profile with another engine and returns the error.
    Expected<void> open() const {
        SyncEngine engine;
        return engine.openProfile(m_directory, FirstContents::Inbox, ProfileUse::Edit);
    }

private Q_SLOTS:
    void initTestCase() { FaultyFileSystem::install(); }
    void init() {
        beginWithNotes({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
        Note edited = m_host->inbox()->notes().value().last();
        edited.text = QStringLiteral("an edit");
        QVERIFY(m_host->inbox()->saveNote(edited));
        m_directory = m_host->directory();
    }
    void cleanup() { m_host.reset(); }

    void aDamagedIndexOfTheNotesIsRebuiltAtOpening_data() {
        QTest::addColumn<QString>("index");
        for (const char *index : {"sqlite_autoindex_operations_1", "operations_of_notes",
                                  "places_of_notes", "versions_of_notes", "age_of_versions"}) {
            QTest::addRow("%s", index) << QString::fromLatin1(index);
        }
    }
    void aDamagedIndexOfTheNotesIsRebuiltAtOpening() {
        QFETCH(QString, index);
        const QStringList before = texts();
        damage(index);
        m_host->goToComputer(QStringLiteral("Profile"));
        QCOMPARE(texts(), before);
        QCOMPARE(log().filter(QStringLiteral("was rebuilt")).size(), 1);
        QVERIFY(!QFileInfo::exists(m_directory + u'/' + ProfileRecovery::FolderName));
        QVERIFY(run<SyncSession>());
        verifySound();
        m_host->restart();
        QCOMPARE(log().filter(QStringLiteral("was rebuilt")).size(), 1);
    }

    /// Of identifiers nothing shows whether the index or the table is right, and SQLite cannot
    /// replace a page that is none.
    void anIndexThatIsNotRebuiltLeavesTheBackup_data() {
        QTest::addColumn<QString>("index");
        QTest::addColumn<Damage>("damage");
        QTest::addRow("databases")
            << QStringLiteral("sqlite_autoindex_databases_1") << Damage::Entry;
        QTest::addRow("page") << QStringLiteral("places_of_notes") << Damage::Page;
    }
    void anIndexThatIsNotRebuiltLeavesTheBackup() {
        QFETCH(QString, index);
        QFETCH(Damage, damage);
        QVERIFY(ProfileBackups(m_directory).make(QDate(2026, 11, 22)));
        makeLaterChanges();
        const QStringList latest = texts();
        this->damage(index, damage);
        const QByteArray before = contents();
        const Expected<void> opened = open();
        QCOMPARE(code(opened), EngineErrorCode::ProfileDamaged);
        QVERIFY2(description(opened).contains(file()), qPrintable(description(opened)));
        QVERIFY(!description(opened).contains(QStringLiteral("start it")));
        if (damage == Damage::Page) {
            QVERIFY2(description(opened).startsWith(QStringLiteral("An index of the profile “")),
                     qPrintable(description(opened)));
        }
        QCOMPARE(contents(), before);
        QVERIFY(SyncEngine::restoreBackup(m_directory));
        m_host->goToComputer(QStringLiteral("Profile"));
        QCOMPARE(texts(), latest);
        QTRY_COMPARE(log().filter(QStringLiteral("were read from the damaged profile")).size(), 1);
        QVERIFY(m_host->application().presentedErrors().isEmpty());
        QVERIFY(run<SyncSession>());
        verifySound();
    }

    void withoutABackupTheNotesAreReadAgain() {
        makeLaterChanges();
        m_host->addLocation();
        m_host->save();
        const QStringList latest = texts();
        damage(QStringLiteral("places_of_notes"), Damage::Page);
        QVERIFY(SyncEngine::beginProfile(m_directory));
        m_host->goToComputer(QStringLiteral("Profile"));
        QCOMPARE(texts(), latest);
        QTRY_COMPARE(log().filter(QStringLiteral("were read from the damaged profile")).size(), 1);
        QVERIFY(m_host->application().presentedErrors().isEmpty());
        QCOMPARE(m_host->library().knownDatabases().size(), 2);
        QCOMPARE(m_host->locations().countOfSyncLocations(), 1);
        QVERIFY(run<SyncSession>());
        verifySound();
        QCOMPARE(texts(), latest);
    }

    /// The table that contains the later changes is damaged.
    void whatCannotBeReadOfLaterChangesIsNamed() {
        QVERIFY(ProfileBackups(m_directory).make(QDate(2026, 11, 22)));
        makeLaterChanges();
        const QStringList latest = texts();
        m_host->goToComputer(QStringLiteral("Other"));
        DamagedIndex::make(file(), QStringLiteral("places_of_notes"), Damage::Page);
        DamagedIndex::makeRow(file(), QStringLiteral("operations"), "a later note");
        QVERIFY(SyncEngine::restoreBackup(m_directory));
        m_host->goToComputer(QStringLiteral("Profile"));
        QTRY_COMPARE(m_host->application().presentedErrors().size(), 1);
        const QList<Error> told = m_host->application().presentedErrors();
        QVERIFY2(told.first().localizedDescription.contains(QStringLiteral("“later”")),
                 qPrintable(told.first().localizedDescription));
        QStringList readable = latest;
        readable.removeAll(QStringLiteral("later=a later note"));
        QCOMPARE(readable.size(), latest.size() - 1);
        QCOMPARE(texts(), readable);
        QVERIFY(run<SyncSession>());
        verifySound();
    }

    /// The rest of a long text is elsewhere than its row says.
    void aDamagedTextIsNotAnIndex_data() {
        QTest::addColumn<int>("bit");
        for (const int bit : {0, 1, 2, 3, 20, 31}) {
            QTest::addRow("bit %d", bit) << bit;
        }
    }
    void aDamagedTextIsNotAnIndex() {
        QFETCH(int, bit);
        QByteArray text;
        for (int line = 0; line < 5000; ++line) {
            text += "line " + QByteArray::number(line) + '\n';
        }
        Note note{{}, QStringLiteral("long"), QString::fromLatin1(text), {}};
        QVERIFY(m_host->inbox()->saveNote(note));
        const QStringList before = texts();
        QVERIFY(ProfileBackups(m_directory).make(QDate(2026, 11, 22)));
        m_host->goToComputer(QStringLiteral("Other"));
        DamagedIndex::makeOverflow(file(), text, bit);
        const QByteArray damaged = contents();
        const Expected<void> opened = open();
        QCOMPARE(code(opened), EngineErrorCode::ProfileDamaged);
        QVERIFY2(description(opened).startsWith(
                     QStringLiteral("The profile “%1” is damaged. ").arg(file())),
                 qPrintable(description(opened)));
        QCOMPARE(contents(), damaged);
        QVERIFY(SyncEngine::restoreBackup(m_directory));
        m_host->goToComputer(QStringLiteral("Profile"));
        QCOMPARE(texts(), before);
        QVERIFY(run<SyncSession>());
        verifySound();
    }

    /// Nothing shows what was on it.
    void aPageThatNothingUsesIsNotAnIndex() {
        QVERIFY(ProfileBackups(m_directory).make(QDate(2026, 11, 22)));
        m_host->goToComputer(QStringLiteral("Other"));
        QFile profile(file());
        QVERIFY(profile.open(QIODevice::ReadWrite));
        const QByteArray header = profile.read(100);
        const int pageSize = qFromBigEndian<quint16>(header.constData() + 16);
        const auto pages = qToBigEndian<quint32>(quint32(profile.size() / pageSize) + 1);
        QVERIFY(profile.seek(28));
        QCOMPARE(profile.write(reinterpret_cast<const char *>(&pages), 4), qint64(4));
        QVERIFY(profile.seek(profile.size()));
        QCOMPARE(profile.write(QByteArray(pageSize, '\0')), qint64(pageSize));
        profile.close();
        const Expected<void> opened = open();
        QCOMPARE(code(opened), EngineErrorCode::ProfileDamaged);
        QVERIFY2(description(opened).startsWith(
                     QStringLiteral("The profile “%1” is damaged. ").arg(file())),
                 qPrintable(description(opened)));
        QVERIFY(SyncEngine::restoreBackup(m_directory));
    }

    /// The table cannot be trusted either if several indexes differ from it.
    void aNoteWhoseDatabaseIsDamagedIsNotMoved() {
        m_host->addDatabase(QStringLiteral("Other"));
        QVERIFY(ProfileBackups(m_directory).make(QDate(2026, 11, 22)));
        m_host->goToComputer(QStringLiteral("Other"));
        moveANoteBehindItsIndexes();
        const QByteArray before = contents();
        QCOMPARE(code(open()), EngineErrorCode::ProfileDamaged);
        QCOMPARE(contents(), before);
        QVERIFY(SyncEngine::restoreBackup(m_directory));
        m_host->goToComputer(QStringLiteral("Profile"));
        QCOMPARE(texts().size(), 3);
        QVERIFY(m_host->library().knownDatabases().last()->notes().value().isEmpty());
    }

    void withoutSpaceForItTheProfileStaysAsItIs() {
        damage(QStringLiteral("places_of_notes"));
        {
            const FaultyFileSystem disk(FaultyFileSystem::Fault::Full, 1,
                                        FaultyFileSystem::Duration::FromThenOn);
            const Expected<void> opened = open();
            QVERIFY(disk.hasFailed());
            QVERIFY2(description(opened).contains(QStringLiteral("no space left")),
                     qPrintable(description(opened)));
        }
        QCOMPARE(code(ProfileInspection::check(file())), EngineErrorCode::IndexesDamaged);
        QVERIFY(open());
    }

    /// Whatever fails, once or from then on, the profile is repaired or as it was.
    void aFailingDiskPreventsTheRepairOnly_data() {
        QTest::addColumn<FaultyFileSystem::Duration>("duration");
        QTest::addRow("once") << FaultyFileSystem::Duration::Once;
        QTest::addRow("from then on") << FaultyFileSystem::Duration::FromThenOn;
    }
    void aFailingDiskPreventsTheRepairOnly() {
        QFETCH(FaultyFileSystem::Duration, duration);
        const QStringList before = texts();
        damage(QStringLiteral("operations_of_notes"));
        bool hasFailed = true;
        for (qint64 call = 1; hasFailed; ++call) {
            if (ProfileInspection::check(file())) {
                DamagedIndex::make(file(), QStringLiteral("operations_of_notes"));
            }
            const FaultyFileSystem disk(FaultyFileSystem::Fault::Error, call, duration);
            ProfileDatabase opened;
            const auto nothing = [] { return Expected<void>(); };
            const Expected<void> result = opened.open(m_directory, nothing, nothing);
            hasFailed = disk.hasFailed();
            // A user would replace a damaged profile.
            QVERIFY2(result || code(result) != EngineErrorCode::ProfileDamaged,
                     qPrintable(QStringLiteral("call %1").arg(call)));
        }
        m_host->goToComputer(QStringLiteral("Profile"));
        QCOMPARE(texts(), before);
        QVERIFY(run<SyncSession>());
        verifySound();
    }

    void aProfileInUseIsReportedByItsBackupAndNotCopied() {
        m_host->restart();
        const ProfileBackups backups(m_directory);
        const QDate today(2026, 11, 22);
        QVERIFY(backups.make(today));
        DamagedIndex::make(file(), QStringLiteral("places_of_notes"));
        const Expected<void> made = backups.make(today.addDays(1));
        QCOMPARE(code(made), EngineErrorCode::BackupFailed);
        QVERIFY2(
            description(made).contains(QStringLiteral("An index of the profile “%1”").arg(file())),
            qPrintable(description(made)));
        SyncEngine snapshot;
        QCOMPARE(
            code(snapshot.openProfile(m_directory, FirstContents::Inbox, ProfileUse::Snapshot)),
            EngineErrorCode::IndexesDamaged);
        m_host->restart();
        QVERIFY(backups.make(today.addDays(1)));
        QCOMPARE(backups.all(today)->size(), 2);
        verifySound();
    }
};

VELMORA_TEST(DamagedIndexTest)
#include "DamagedIndexTest.moc"
