#include <csignal>

#include <QtCore/QDirIterator>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtNetwork/QTcpServer>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>

#include "Engine/Profile/ProfileLock.h"
#include "Support/DamagedIndex.h"
#include "Support/ProgramRun.h"
#include "Support/TestMain.h"

/// Runs "velmora verify" as a user or a script would.
class VerifyCommandTest : public QObject {
    Q_OBJECT

    using Run = ProgramRun;

    std::unique_ptr<QTemporaryDir> m_folder;

    QString profile() const { return m_folder->filePath(QStringLiteral("profile")); }
    QString store() const { return profile() + QStringLiteral("/Sync Stores/Home.qvSyncStore"); }

    QProcessEnvironment environment() const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), m_folder->path());
        return environment;
    }
    Run run(const QStringList &arguments) const {
        return Run::of(QStringLiteral(VELMORA),
                       QStringList{QStringLiteral("--profile"), profile()} + arguments,
                       environment());
    }
    Run verify(const QStringList &options = {}) const {
        return run(QStringList{QStringLiteral("verify")} + options);
    }
    Run repair() const { return verify({QStringLiteral("--repair")}); }

    /// The files below `folder` with their contents.
    static QMap<QString, QByteArray> contents(const QString &folder) {
        QMap<QString, QByteArray> all;
        QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            all.insert(file.fileName(),
                       file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
        }
        return all;
    }
    /// The only transaction record of the store.
    QString record() const {
        const QStringList names = contents(store() + QStringLiteral("/transactions"))
                                      .keys()
                                      .filter(QRegularExpression(QStringLiteral("\\.json$")));
        return names.size() == 1 ? names.first() : QString();
    }
    static void flipABit(const QString &path) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.seek(file.size() / 2));
        char byte = 0;
        QVERIFY(file.peek(&byte, 1) == 1);
        byte = static_cast<char>(byte ^ 1);
        QCOMPARE(file.write(&byte, 1), 1);
    }
    void executeInProfile(const QString &statement) const {
        {
            auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), statement);
            database.setDatabaseName(profile() + QStringLiteral("/profile.sqlite"));
            QVERIFY(database.open());
            QVERIFY(QSqlQuery(database).exec(statement));
        }
        QSqlDatabase::removeDatabase(statement);
    }

private Q_SLOTS:
    void init() {
        m_folder = std::make_unique<QTemporaryDir>();
        QCOMPARE(run({QStringLiteral("--describe")}).exitCode, 0);
        QCOMPARE(repair().exitCode, 0);
    }

    void aSignalLeavesNoCopyOfTheNotes_data() {
        QTest::addColumn<int>("number");
        QTest::addRow("SIGTERM") << SIGTERM;
        QTest::addRow("SIGINT") << SIGINT;
        QTest::addRow("SIGHUP") << SIGHUP;
    }
    void aSignalLeavesNoCopyOfTheNotes() {
        QFETCH(int, number);
        // It accepts a connection and never answers.
        QTcpServer server;
        QVERIFY(server.listen(QHostAddress::LocalHost));
        executeInProfile(QStringLiteral("UPDATE locations SET url = 'http://127.0.0.1:%1/a'")
                             .arg(server.serverPort()));
        const QString temporary = m_folder->filePath(QStringLiteral("tmp"));
        QVERIFY(QDir().mkdir(temporary));
        QProcessEnvironment environment = this->environment();
        environment.insert(QStringLiteral("TMPDIR"), temporary);
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(VELMORA),
                      {QStringLiteral("--profile"), profile(), QStringLiteral("verify")});
        QVERIFY(server.waitForNewConnection(60000));
        QVERIFY(!contents(temporary).isEmpty());
        QCOMPARE(kill(static_cast<pid_t>(process.processId()), number), 0);
        QVERIFY(process.waitForFinished(60000));
        QCOMPARE(process.exitStatus(), QProcess::CrashExit);
        QCOMPARE(process.exitCode(), number);
        QVERIFY(QDir(temporary).isEmpty());
    }

    void aSignalDeletesNothingElseWithoutAFolderForTemporaryFiles() {
        QTcpServer server;
        QVERIFY(server.listen(QHostAddress::LocalHost));
        executeInProfile(QStringLiteral("UPDATE locations SET url = 'http://127.0.0.1:%1/a'")
                             .arg(server.serverPort()));
        const QString current = m_folder->filePath(QStringLiteral("current"));
        QVERIFY(QDir().mkdir(current));
        QVERIFY(QFile::copy(record(), current + QStringLiteral("/file")));
        QProcessEnvironment environment = this->environment();
        // Nobody can create a folder there.
        environment.insert(QStringLiteral("TMPDIR"), QStringLiteral("/proc"));
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(current);
        process.start(QStringLiteral(VELMORA),
                      {QStringLiteral("--profile"), profile(), QStringLiteral("sync")});
        QVERIFY(server.waitForNewConnection(60000));
        QCOMPARE(kill(static_cast<pid_t>(process.processId()), SIGTERM), 0);
        QVERIFY(process.waitForFinished(60000));
        QCOMPARE(process.exitCode(), SIGTERM);
        QVERIFY(QFile::exists(current + QStringLiteral("/file")));
    }

    void aSoundProfileIsReportedAsSound() {
        const Run text = verify();
        QCOMPARE(text.exitCode, 0);
        QVERIFY(text.output.contains(QStringLiteral("Everything is in order.")));
        const Run json = verify({QStringLiteral("--json")});
        QCOMPARE(json.exitCode, 0);
        const QJsonObject report = QJsonDocument::fromJson(json.output.toUtf8()).object();
        QCOMPARE(report[QStringLiteral("outcome")].toString(), QStringLiteral("sound"));
        const QJsonArray parts = report[QStringLiteral("parts")].toArray();
        QCOMPARE(parts.size(), 2);
        for (const QJsonValue part : parts) {
            QCOMPARE(part[QStringLiteral("outcome")].toString(), QStringLiteral("sound"));
            QCOMPARE(part[QStringLiteral("problems")].toArray(), QJsonArray());
        }
    }

    void aLocationThatWasNeverSynchronizedIsNoProblem() {
        QVERIFY(QDir(profile()).removeRecursively());
        QCOMPARE(run({QStringLiteral("--describe")}).exitCode, 0);
        const Run fresh = verify();
        QVERIFY2(fresh.output.contains(QStringLiteral("was never synchronized")),
                 qPrintable(fresh.output));
        QVERIFY(fresh.output.contains(QStringLiteral("Everything is in order.")));
        QCOMPARE(fresh.exitCode, 0);
        // Neither is true of one that has lost what was synchronized.
        QCOMPARE(repair().exitCode, 0);
        for (const QString &file : contents(store()).keys()) {
            QVERIFY(QFile::remove(file));
        }
        executeInProfile(QStringLiteral("UPDATE states SET last_synced = 1"));
        const Run emptied = verify();
        QCOMPARE(emptied.exitCode, 1);
        QVERIFY(!emptied.output.contains(QStringLiteral("was never synchronized")));
        executeInProfile(QStringLiteral("DELETE FROM known_transactions"));
        const Run forgotten = verify();
        QCOMPARE(forgotten.exitCode, 1);
        QVERIFY2(forgotten.output.contains(QStringLiteral("no longer contains the database")),
                 qPrintable(forgotten.output));
    }

    void locationsWithTheSameNameHaveDifferentTitles() {
        const QString other = m_folder->filePath(QStringLiteral("Home.qvSyncStore"));
        for (const char *folder : {"/databases", "/transactions"}) {
            QVERIFY(QDir().mkpath(other + QLatin1StringView(folder)));
        }
        executeInProfile(QStringLiteral("INSERT INTO locations (uuid, position, url) VALUES"
                                        " ('11111111-1111-4111-8111-111111111111', 1, 'file://%1')")
                             .arg(other));
        const Run run = verify();
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.output.contains(QStringLiteral("“Projects” at “%1”").arg(store())),
                 qPrintable(run.output));
    }

    void aTerminalIsNotControlledByNames() {
        for (const char *column : {"databases SET name", "states SET database_name"}) {
            executeInProfile(
                QStringLiteral(
                    "UPDATE %1 = char(27) || ']0;owned' || char(7, 8238, 155, 10) || 'x'")
                    .arg(QLatin1StringView(column)));
        }
        const auto isHarmless = [](const QString &text) {
            return std::all_of(text.begin(), text.end(), [](QChar character) {
                return character == u'\n' || character.isPrint();
            });
        };
        for (const QStringList &arguments :
             {QStringList{QStringLiteral("verify")},
              QStringList{QStringLiteral("verify"), QStringLiteral("--json")},
              QStringList{QStringLiteral("--describe")}}) {
            const Run shown = run(arguments);
            QVERIFY(shown.output.contains(QStringLiteral("]0;owned")));
            QVERIFY2(isHarmless(shown.output), qPrintable(shown.output));
            QVERIFY2(isHarmless(shown.errors), qPrintable(shown.errors));
        }
    }

    void anUnsentNoteIsAProblemThatSynchronizingRepairs() {
        QVERIFY(QFile::remove(record()));
        const auto before = contents(store());
        const Run found = verify();
        QCOMPARE(found.exitCode, 1);
        QVERIFY(found.output.contains(QStringLiteral("not at the location: 3.")));
        QCOMPARE(contents(store()), before);
        QCOMPARE(repair().exitCode, 0);
        QCOMPARE(verify().exitCode, 0);
    }

    void aDamagedRecordIsReportedAndRepaired() {
        const QString damaged = record();
        flipABit(damaged);
        const auto before = contents(store());
        const Run found = verify();
        QCOMPARE(found.exitCode, 1);
        QVERIFY2(found.output.contains(damaged + QStringLiteral("” is damaged.")),
                 qPrintable(found.output));
        QVERIFY(found.output.contains(QStringLiteral("velmora verify --repair")));
        QCOMPARE(contents(store()), before);
        const Run repaired = repair();
        QCOMPARE(repaired.exitCode, 0);
        QVERIFY(repaired.output.contains(QStringLiteral("writes its contents again")));
        QVERIFY(record() != damaged);
        const Run after = verify();
        QCOMPARE(after.exitCode, 0);
        QVERIFY(after.output.contains(QStringLiteral("moved aside: 1")));
    }

    void aDamagedRecordOfADatabaseIsReportedAndRepaired() {
        const QString damaged = contents(store() + QStringLiteral("/databases")).firstKey();
        QFile file(damaged);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.close();
        QCOMPARE(verify().exitCode, 1);
        QCOMPARE(repair().exitCode, 0);
        QCOMPARE(verify().exitCode, 0);
    }

    void aDamagedNoteInTheProfileIsNamedAndRepaired() {
        // Notes of two databases; only those of Projects were synchronized.
        executeInProfile(
            QStringLiteral("UPDATE operations SET text = text || 'x' WHERE note_uuid <> ''"));
        const Run found = verify();
        QCOMPARE(found.exitCode, 1);
        QVERIFY(found.output.contains(QStringLiteral("Damaged notes in the database “Projects”")));
        QVERIFY(found.output.contains(QStringLiteral("velmora verify --repair")));
        const Run repaired = repair();
        QVERIFY2(repaired.output.contains(QStringLiteral("was read again")),
                 qPrintable(repaired.output));
        QVERIFY(!repaired.output.contains(QStringLiteral("in the database “Projects”")));
        // What remains is not said to be repaired by what has just been done.
        QCOMPARE(repaired.exitCode, 1);
        QVERIFY2(repaired.output.contains(
                     QStringLiteral("in the database “Recipes” that no location could restore")),
                 qPrintable(repaired.output));
        QVERIFY(repaired.output.endsWith(QStringLiteral("run “velmora verify” again.\n")));
        QVERIFY(!repaired.output.contains(QStringLiteral("--repair")));
        const Run after = verify();
        QCOMPARE(after.exitCode, repaired.exitCode);
        QVERIFY(!after.output.contains(QStringLiteral("in the database “Projects”")));
    }

    void whatTheProfileHasDerivedIsCheckedAndCorrected_data() {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<QString>("text");
        const QString list = QStringLiteral("list of unsent changes of the database “Projects”");
        QTest::addRow("a lost change") << QStringLiteral("DELETE FROM known_transactions") << list;
        QTest::addRow("a change that is none")
            << QStringLiteral(
                   "INSERT INTO unwritten SELECT place, database, 0, zeroblob(16)"
                   " FROM compared_places")
            << list;
        QTest::addRow("a place that is not compared")
            << QStringLiteral("UPDATE known_transactions SET operations = x'', superseded = x''")
            << list;
        QTest::addRow("conflicts")
            << QStringLiteral("UPDATE counts SET conflicts = 3")
            << QStringLiteral("number of conflicts in the database “Projects”");
    }
    void whatTheProfileHasDerivedIsCheckedAndCorrected() {
        QFETCH(QString, statement);
        QFETCH(QString, text);
        executeInProfile(statement);
        const Run found = verify();
        QCOMPARE(found.exitCode, 1);
        QVERIFY2(found.output.contains(text + QStringLiteral(" is wrong")),
                 qPrintable(found.output));
        QVERIFY(found.output.contains(QStringLiteral("velmora verify --repair")));
        const Run repaired = repair();
        QCOMPARE(repaired.exitCode, 0);
        QVERIFY2(repaired.output.contains(text + QStringLiteral(" was wrong")),
                 qPrintable(repaired.output));
        QVERIFY(!repaired.output.contains(text + QStringLiteral(" is wrong")));
        QCOMPARE(verify().exitCode, 0);
    }

    void aDamagedIndexIsReportedAndRebuilt() {
        DamagedIndex::make(profile() + QStringLiteral("/profile.sqlite"),
                           QStringLiteral("places_of_notes"));
        const Run found = verify();
        QCOMPARE(found.exitCode, 1);
        QVERIFY2(found.errors.startsWith(QStringLiteral("An index of the profile “")),
                 qPrintable(found.errors));
        const Run repaired = repair();
        QCOMPARE(repaired.exitCode, 0);
        QVERIFY2(repaired.output.contains(QStringLiteral("was damaged and was rebuilt")),
                 qPrintable(repaired.output));
        const Run after = verify();
        QCOMPARE(after.exitCode, 0);
        QVERIFY(!after.output.contains(QStringLiteral("rebuilt")));
    }

    void aDamagedPageOfAnIndexIsNamedWithTheNextStep() {
        DamagedIndex::make(profile() + QStringLiteral("/profile.sqlite"),
                           QStringLiteral("places_of_notes"), DamagedIndex::Damage::Page);
        const Run found = verify();
        QCOMPARE(found.exitCode, 1);
        QVERIFY2(found.errors.startsWith(QStringLiteral("An index of the profile “")),
                 qPrintable(found.errors));
        QVERIFY2(found.errors.contains(QStringLiteral("offers to restore a backup")),
                 qPrintable(found.errors));
    }

    void aDamagedProfileIsAProblem() {
        QFile file(profile() + QStringLiteral("/profile.sqlite"));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.resize(file.size() / 2));
        const Run found = verify();
        QCOMPARE(found.exitCode, 1);
        QVERIFY2(found.errors.contains(QStringLiteral("damaged")), qPrintable(found.errors));
    }

    void aStoreThatCannotBeReachedIsNotChecked() {
        QVERIFY(QFile::rename(store(), store() + QStringLiteral(".away")));
        for (const Run &found : {verify(), repair()}) {
            QCOMPARE(found.exitCode, 2);
            QVERIFY(found.output.contains(QStringLiteral("could not be checked")));
            QVERIFY(found.output.contains(QStringLiteral("does not exist. Check whether")));
        }
    }

    void aServedStoreThatCannotBeReadIsNotChecked() {
        const QString served = profile() + QStringLiteral("/Direct Connection.qvSyncStore");
        QVERIFY(QDir().mkpath(served));
        QFile file(served + QStringLiteral("/transactions"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        for (const Run &found : {verify(), repair()}) {
            QCOMPARE(found.exitCode, 2);
            QVERIFY2(found.output.contains(QStringLiteral("could not be checked")),
                     qPrintable(found.output));
            QVERIFY2(found.output.contains(file.fileName()), qPrintable(found.output));
        }
    }

    void aProfileInUseCanBeVerifiedButNotRepaired() {
        ProfileLock lock;
        QVERIFY(lock.acquire(profile()));
        QCOMPARE(verify().exitCode, 0);
        const Run refused = repair();
        QCOMPARE(refused.exitCode, 2);
        QVERIFY2(refused.errors.contains(profile()), qPrintable(refused.errors));
        QVERIFY(refused.errors.contains(QStringLiteral("use")));
    }

    void withoutAProfileThereIsNothingToCheckAndNothingIsMade() {
        QVERIFY(QDir(profile()).removeRecursively());
        for (const Run &refused : {verify(), repair()}) {
            QCOMPARE(refused.exitCode, 2);
            QVERIFY(refused.errors.contains(profile()));
            QVERIFY(!QFileInfo::exists(profile()));
        }
    }

    void itsOptionsBelongToTheCommand() {
        QVERIFY(run({QStringLiteral("--help")}).output.contains(QStringLiteral("--repair")));
        for (const QStringList &arguments :
             {QStringList{QStringLiteral("--repair")}, QStringList{QStringLiteral("--json")}}) {
            QCOMPARE(run(arguments).exitCode, 1);
        }
        for (const char *other : {"all", "--describe"}) {
            QCOMPARE(run({QStringLiteral("verify"), QString::fromLatin1(other)}).exitCode, 2);
        }
    }
};

VELMORA_TEST(VerifyCommandTest)
#include "VerifyCommandTest.moc"
