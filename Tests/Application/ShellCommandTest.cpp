#include <QtCore/QDirIterator>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QUuid>
#include <QtNetwork/QLocalSocket>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>

#include "Engine/Plugin/SyncEngine.h"
#include "Engine/Profile/ProfileLock.h"
#include "Support/EventTimeout.h"
#include "Support/ProgramRun.h"
#include "Support/ScriptedServer.h"
#include "Support/TestMain.h"
#include "Support/Verification.h"

/// Runs "velmora sync", "status" and "check" as a user or a script would.
class ShellCommandTest : public QObject {
    Q_OBJECT

    using Run = ProgramRun;

    std::unique_ptr<QTemporaryDir> m_folder;

    QString profile() const { return m_folder->filePath(QStringLiteral("profile")); }
    QString newProfile() const { return m_folder->filePath(QStringLiteral("new")); }
    QString store() const { return profile() + QStringLiteral("/Sync Stores/Home.qvSyncStore"); }
    QString runtimeFolder() const { return m_folder->filePath(QStringLiteral("run")); }

    QProcessEnvironment environment() const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), m_folder->path());
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtimeFolder());
        return environment;
    }
    Run run(const QStringList &arguments) const {
        return Run::of(QStringLiteral(VELMORA),
                       QStringList{QStringLiteral("--profile"), profile()} + arguments,
                       environment());
    }
    Run runBound(const QString &command) const {
        return Run::boundByPermissions(QStringLiteral(VELMORA),
                                       {QStringLiteral("--profile"), profile(), command},
                                       environment());
    }
    void allowEverything() const {
        QVERIFY(QFile::setPermissions(
            profile(), QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner));
    }
    /// Returns what identifies the probes of this user in a store.
    QString nameOfProbe() const {
        QDirIterator files(m_folder->path(), {QStringLiteral("*.conf")}, QDir::Files | QDir::Hidden,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QSettings settings(files.next(), QSettings::IniFormat);
            if (const QVariant name = settings.value(QStringLiteral("QVStoreProbe"));
                name.isValid()) {
                return name.toString();
            }
        }
        return {};
    }
    Run sync(const QStringList &databases = {}) const {
        return run(QStringList{QStringLiteral("sync")} + databases);
    }
    Run status() const { return run({QStringLiteral("status")}); }

    /// Runs a statement on the profile, which no process uses.
    void change(const QString &statement) const { changeProfile(profile(), statement); }
    static void changeProfile(const QString &folder, const QString &statement) {
        const QString connection = QStringLiteral("shell-command-test");
        {
            auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
            database.setDatabaseName(folder + QStringLiteral("/profile.sqlite"));
            QVERIFY(database.open());
            QVERIFY(QSqlQuery(database).exec(statement));
        }
        QSqlDatabase::removeDatabase(connection);
    }
    void setAddressOfHome(const QString &address) const {
        change(QStringLiteral("UPDATE locations SET url = '%1'").arg(address));
    }
    void addLocation(const QString &address) const {
        change(QStringLiteral("INSERT INTO locations VALUES ('%1', 9, '%2')")
                   .arg(QUuid::createUuid().toString(QUuid::WithoutBraces), address));
    }

    static QJsonArray databases(const Run &description) {
        return QJsonDocument::fromJson(description.output.toUtf8())[QStringLiteral("databases")]
            .toArray();
    }

    QStringList sockets() const {
        return QDir(runtimeFolder())
            .entryList({QStringLiteral("velmora-*")}, QDir::System | QDir::Files);
    }
    /// Starts the program with its windows and waits until other processes find it.
    std::unique_ptr<QProcess> startWindows() const {
        auto process = std::make_unique<QProcess>();
        process->setProcessEnvironment(environment());
        process->start(QStringLiteral(VELMORA),
                       {QStringLiteral("--profile"), profile(), QStringLiteral("--begin"),
                        QStringLiteral("examples")});
        if (!QTest::qWaitFor([&] { return !sockets().isEmpty(); }, EventTimeout)) {
            qWarning("%s", process->readAllStandardError().constData());
        }
        return process;
    }
    static void terminate(QProcess &process) {
        process.terminate();
        QVERIFY(process.waitForFinished(EventTimeout));
        QCOMPARE(process.exitCode(), 0);
    }
    QStringList transactions() const {
        QStringList names;
        QDirIterator files(store() + QStringLiteral("/transactions"), QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            names.append(files.next());
        }
        return names;
    }

    /// Replaces the notes of Projects in the profile in `folder`, which no process uses.
    static void setNotes(const QString &folder, int count) {
        SyncEngine engine;
        QVERIFY(engine.openProfile(folder, FirstContents::Inbox, ProfileUse::Edit));
        const auto databases = engine.library()->knownDatabases();
        const auto found = std::find_if(databases.begin(), databases.end(), [](const auto &each) {
            return each->name() == QStringLiteral("Projects");
        });
        QVERIFY(found != databases.end());
        const QList<Note> before = (*found)->notes().value();
        for (const Note &note : before) {
            QVERIFY((*found)->removeNote(note));
        }
        for (int i = 1; i <= count; ++i) {
            Note note{{}, QStringLiteral("note %1").arg(i), QStringLiteral("text"), {}};
            QVERIFY((*found)->saveNote(note));
        }
    }
    /// Synchronizes twelve notes, all of which another computer then removes.
    void removeNotesElsewhere() const {
        setNotes(profile(), 12);
        QCOMPARE(sync().exitCode, 0);
        const QString other = m_folder->filePath(QStringLiteral("remover"));
        QVERIFY(!QFileInfo::exists(other) || QDir(other).removeRecursively());
        QCOMPARE(QProcess::execute(QStringLiteral("cp"), {QStringLiteral("-a"), profile(), other}),
                 0);
        setNotes(other, 0);
        QCOMPARE(
            Run::of(QStringLiteral(VELMORA),
                    {QStringLiteral("--profile"), other, QStringLiteral("sync")}, environment())
                .exitCode,
            0);
        QCOMPARE(countOfNotes(), 12);
    }
    int countOfNotes() const {
        return databases(run({QStringLiteral("--describe")}))[1][QStringLiteral("notes")].toInt(-1);
    }

private Q_SLOTS:
    void initTestCase() {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir().mkdir(runtimeFolder()));
        QVERIFY(QFile::setPermissions(runtimeFolder(),
                                      QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        QCOMPARE(run({QStringLiteral("--describe")}).exitCode, 0);
        QVERIFY(QDir().rename(profile(), newProfile()));
    }
    void cleanupTestCase() { m_folder.reset(); }
    void init() const {
        QVERIFY(QDir(profile()).removeRecursively());
        QCOMPARE(QProcess::execute(QStringLiteral("cp"),
                                   {QStringLiteral("-a"), newProfile(), profile()}),
                 0);
    }
    void cleanup() const { Verification::failForLastingProblems(profile()); }

    void aSynchronizationIsReportedAndLogged() {
        const Run before = status();
        QCOMPARE(before.exitCode, 1);
        QVERIFY2(
            before.output.contains(QStringLiteral("“Projects” with “Home”: never synchronized\n")),
            qPrintable(before.output));
        const Run done = sync();
        QCOMPARE(done.exitCode, 0);
        QCOMPARE(done.output,
                 QStringLiteral("“Projects” with “Home”: synchronized (0 received, 3 sent)\n"));
        QCOMPARE(done.errors, QString());
        QCOMPARE(transactions().size(), 1);
        const Run after = status();
        QCOMPARE(after.exitCode, 0);
        QVERIFY2(after.output.endsWith(QStringLiteral("\nAll up to date\n")),
                 qPrintable(after.output));
        QFile log(profile() + QStringLiteral("/log.jsonl"));
        QVERIFY(log.open(QIODevice::ReadOnly));
        const QJsonObject entry = QJsonDocument::fromJson(log.readLine()).object();
        QCOMPARE(entry[QStringLiteral("outcome")], QStringLiteral("succeeded"));
        QCOMPARE(entry[QStringLiteral("sent")], 3);
    }

    void theStatusIsAlsoGivenAsJson() {
        QCOMPARE(sync().exitCode, 0);
        QVERIFY(QDir(store()).removeRecursively());
        QCOMPARE(sync().exitCode, 1);
        const Run run = this->run({QStringLiteral("status"), QStringLiteral("--json")});
        QCOMPARE(run.exitCode, 1);
        const QJsonObject status = QJsonDocument::fromJson(run.output.toUtf8()).object();
        QCOMPARE(status[QStringLiteral("upToDate")], false);
        QCOMPARE(status[QStringLiteral("next")], QJsonValue());
        const QJsonValue item = status[QStringLiteral("synchronizations")][0];
        QCOMPARE(item[QStringLiteral("database")], QStringLiteral("Projects"));
        QCOMPARE(item[QStringLiteral("location")], QStringLiteral("Home"));
        QVERIFY(item[QStringLiteral("failure")].toString().contains(store()));
        QVERIFY(QDateTime::fromString(item[QStringLiteral("lastSynced")].toString(), Qt::ISODate)
                    .isValid());
    }

    void aFailureIsPrintedAndEndsWithOne() {
        QVERIFY(QDir(store()).removeRecursively());
        const Run failed = sync();
        QCOMPARE(failed.exitCode, 1);
        QCOMPARE(failed.output, QString());
        QVERIFY2(failed.errors.startsWith(
                     QStringLiteral("“Projects” could not be synchronized with “Home”: ")),
                 qPrintable(failed.errors));
    }

    void databasesAreChosenByName() {
        QCOMPARE(sync({QStringLiteral("Projects")}).exitCode, 0);
        const Run unticked = sync({QStringLiteral("Recipes")});
        QCOMPARE(unticked.exitCode, 2);
        QVERIFY(unticked.errors.startsWith(QStringLiteral("Nothing is synchronized.")));
        const Run unknown = sync({QStringLiteral("Projects"), QStringLiteral("x\x1b[2J")});
        QCOMPARE(unknown.exitCode, 2);
        QVERIFY2(unknown.errors.startsWith(QStringLiteral("There is no database “x\\u001B[2J”.")),
                 qPrintable(unknown.errors));
    }

    void aLocationIsChecked() {
        const QStringList command{QStringLiteral("check"), QStringLiteral("Home")};
        const Run sound = run(command);
        QCOMPARE(sound.exitCode, 0);
        QVERIFY2(sound.output.startsWith(
                     QStringLiteral("“Home” can be read and written. 0 databases, ")),
                 qPrintable(sound.output));
        // Where its probe cannot be written.
        QVERIFY(QDir().mkpath(store() + QStringLiteral("/databases/probe-") + nameOfProbe() +
                              QStringLiteral("/x")));
        const Run unusable = run(command);
        QCOMPARE(unusable.exitCode, 1);
        QCOMPARE(unusable.output, QString());
        QVERIFY2(unusable.errors.contains(QStringLiteral("“Home” can be read, but not written. ")),
                 qPrintable(unusable.errors));
        QVERIFY(QDir(store()).removeRecursively());
        const Run missing = run(command);
        QCOMPARE(missing.exitCode, 1);
        QVERIFY2(missing.errors.contains(store()), qPrintable(missing.errors));
        const Run unknown = run({QStringLiteral("check"), QStringLiteral("Away")});
        QCOMPARE(unknown.exitCode, 2);
        QVERIFY(unknown.errors.contains(QStringLiteral("“Away”")));
    }

    void theExamplesOfTwoComputersBecomeOne() {
        const QString other = m_folder->filePath(QStringLiteral("other"));
        const auto runOther = [&](const QString &command) {
            return Run::of(QStringLiteral(VELMORA), {QStringLiteral("--profile"), other, command},
                           environment());
        };
        const QJsonArray before = databases(runOther(QStringLiteral("--describe")));
        QCOMPARE(before.size(), 3);
        changeProfile(other,
                      QStringLiteral("UPDATE locations SET url = '%1'")
                          .arg(QString::fromLatin1(QUrl::fromLocalFile(store()).toEncoded())));
        QCOMPARE(sync().exitCode, 0);
        QCOMPARE(runOther(QStringLiteral("sync")).exitCode, 0);
        QCOMPARE(sync().exitCode, 0);
        const QJsonArray there = databases(runOther(QStringLiteral("--describe")));
        const QJsonArray here = databases(run({QStringLiteral("--describe")}));
        QCOMPARE(there.size(), 3);
        QCOMPARE(here.size(), 3);
        for (const QJsonArray &after : {there, here}) {
            for (const auto &key : {QStringLiteral("name"), QStringLiteral("notes")}) {
                QCOMPARE(after[1][key], before[1][key]);
            }
        }
    }

    void aScheduleThatWasMissedIsMadeUpFor() {
        // Not during the test.
        const int hour = (QTime::currentTime().hour() + 12) % 24;
        change(QStringLiteral("UPDATE states SET schedule = 'daily', schedule_minutes = %1")
                   .arg(hour * 60));
        terminate(*startWindows());
        QCOMPARE(transactions(), QStringList());
        change(
            QStringLiteral("UPDATE settings SET value = value - 172800000"
                           " WHERE key = 'lastScheduleCheck'"));
        const auto program = startWindows();
        QTRY_VERIFY(!transactions().isEmpty());
        terminate(*program);
    }

    void aCommandHasALimit() {
        const ScriptedServer silent(
            [](ScriptedServer::Connection &connection) { connection.waitUntilClosed(); });
        setAddressOfHome(silent.URLText(QStringLiteral("Shared.qvSyncStore")));
        const QStringList limit{QStringLiteral("--timeout"), QStringLiteral("1")};
        for (const QStringList &command :
             {QStringList{QStringLiteral("sync")},
              QStringList{QStringLiteral("check"), QStringLiteral("127.0.0.1 – Shared")}}) {
            const Run here = run(command + limit);
            QCOMPARE(here.exitCode, 3);
            QVERIFY2(here.errors.startsWith(
                         QStringLiteral("The command takes longer than the allowed 1 s")),
                     qPrintable(here.errors));
        }
        const auto program = startWindows();
        const Run asked = run(QStringList{QStringLiteral("sync")} + limit);
        QCOMPARE(asked.exitCode, 3);
        QVERIFY2(asked.errors.contains(QStringLiteral("continues with the command")),
                 qPrintable(asked.errors));
        terminate(*program);
    }

    void aLargeRemovalIsDecidedInTheShell_data() {
        QTest::addColumn<QString>("decision");
        QTest::addColumn<int>("notes");
        QTest::addColumn<bool>("isRunning");
        for (const bool isRunning : {false, true}) {
            const char *where = isRunning ? "running" : "not running";
            QTest::addRow("keep, %s", where) << QStringLiteral("keep") << 12 << isRunning;
            QTest::addRow("remove, %s", where) << QStringLiteral("remove") << 0 << isRunning;
        }
    }
    void aLargeRemovalIsDecidedInTheShell() {
        QFETCH(QString, decision);
        QFETCH(int, notes);
        QFETCH(bool, isRunning);
        removeNotesElsewhere();
        const auto program = isRunning ? startWindows() : nullptr;
        const Run decided =
            sync({QStringLiteral("--removals"), decision, QStringLiteral("Projects")});
        QVERIFY2(decided.exitCode == 0, qPrintable(decided.errors));
        const QStringList lines = decided.output.split(u'\n');
        QVERIFY2(lines.first().startsWith(QStringLiteral("Notes of “Projects” that “Home” ")),
                 qPrintable(decided.output));
        QVERIFY2(lines.first().contains(QStringLiteral("12 of 12")), qPrintable(decided.output));
        QCOMPARE(lines.filter(QStringLiteral("    note ")).size(), 12);
        QVERIFY2(lines.value(13).startsWith(QStringLiteral("“Projects” with “Home”: synchronized")),
                 qPrintable(decided.output));
        if (program) {
            terminate(*program);
        }
        QCOMPARE(countOfNotes(), notes);
        QCOMPARE(sync().exitCode, 0);
        QCOMPARE(countOfNotes(), notes);
        QCOMPARE(run({QStringLiteral("verify")}).exitCode, 0);
    }

    void aLargeRemovalThatIsNotDecidedIsListed() {
        removeNotesElsewhere();
        for (int i = 0; i < 2; ++i) {
            const Run undecided = sync();
            QCOMPARE(undecided.exitCode, 1);
            QVERIFY2(undecided.errors.contains(
                         QStringLiteral("would remove 12 of the 12 notes in “Projects”.\n")),
                     qPrintable(undecided.errors));
            QVERIFY2(undecided.errors.contains(QStringLiteral("\n    note 12\n")),
                     qPrintable(undecided.errors));
            QVERIFY(undecided.errors.contains(QStringLiteral("--removals keep")));
            QCOMPARE(countOfNotes(), 12);
        }
        for (const QStringList &arguments :
             {QStringList{QStringLiteral("sync"), QStringLiteral("--removals"),
                          QStringLiteral("all")},
              QStringList{QStringLiteral("status"), QStringLiteral("--removals"),
                          QStringLiteral("keep")},
              QStringList{QStringLiteral("status"), QStringLiteral("--unknown")},
              QStringList{QStringLiteral("status"), QStringLiteral("--timeout")}}) {
            QCOMPARE(run(arguments).exitCode, 2);
        }
        QCOMPARE(countOfNotes(), 12);
    }

    void storesOfOneNameAreCheckedByTheirAddress() {
        addLocation(QStringLiteral("http://127.0.0.1:1/a/Shared.qvSyncStore"));
        addLocation(QStringLiteral("http://127.0.0.1:1/b/Shared.qvSyncStore"));
        const Run ambiguous = run({QStringLiteral("check"), QStringLiteral("127.0.0.1 – Shared")});
        QCOMPARE(ambiguous.exitCode, 2);
        QVERIFY2(ambiguous.errors.contains(
                     QStringLiteral("\nhttp://127.0.0.1:1/b/Shared.qvSyncStore\n")),
                 qPrintable(ambiguous.errors));
        const Run one = run(
            {QStringLiteral("check"), QStringLiteral("http://127.0.0.1:1/b/Shared.qvSyncStore")});
        QCOMPARE(one.exitCode, 1);
    }

    void aRunningProgramIsAsked() {
        const auto program = startWindows();
        const Run done = sync();
        QCOMPARE(done.exitCode, 0);
        QVERIFY(done.output.startsWith(QStringLiteral("“Projects” with “Home”: synchronized")));
        QCOMPARE(transactions().size(), 1);
        QVERIFY(status().output.endsWith(QStringLiteral("All up to date\n")));
        QCOMPARE(run({QStringLiteral("check"), QStringLiteral("Home")}).exitCode, 0);
        QCOMPARE(program->state(), QProcess::Running);
        terminate(*program);
    }

    void invalidRequestsAreRefused() {
        const auto program = startWindows();
        // Only what is too long gets no response.
        for (const auto &[request, responses] :
             {std::pair(QByteArray("{\"command\":\"erase\"}\n"), 1), std::pair(QByteArray("\n"), 1),
              std::pair(QByteArray(70000, 'x'), 0)}) {
            QLocalSocket socket;
            socket.connectToServer(runtimeFolder() + u'/' + sockets().first());
            QVERIFY(socket.waitForConnected());
            socket.write(request);
            QVERIFY(socket.state() == QLocalSocket::UnconnectedState ||
                    socket.waitForDisconnected(EventTimeout));
            QCOMPARE(socket.readAll().count("has another version"), responses);
        }
        QCOMPARE(sync().exitCode, 0);
        terminate(*program);
    }

    void aProfileThatAnotherProcessUsesIsNotOpened() {
        ProfileLock lock;
        QVERIFY(lock.acquire(profile()));
        const Run refused = sync();
        QCOMPARE(refused.exitCode, 2);
        QVERIFY2(refused.errors.contains(profile()), qPrintable(refused.errors));
        QCOMPARE(status().exitCode, 1);
    }

    void withoutAProfileNothingIsMade() {
        QVERIFY(QDir(profile()).removeRecursively());
        for (const Run &refused : {sync(), status()}) {
            QCOMPARE(refused.exitCode, 2);
            QVERIFY(refused.errors.contains(profile()));
            QVERIFY(!QFileInfo::exists(profile()));
        }
    }

    void aFolderThatCannotBeListedIsNotMissing() {
        QVERIFY(QFile::setPermissions(profile(), QFileDevice::WriteOwner | QFileDevice::ExeOwner));
        const Run listed = runBound(QStringLiteral("status"));
        const Run verified = runBound(QStringLiteral("verify"));
        allowEverything();
        QCOMPARE(listed.errors, QString());
        QCOMPARE(listed.exitCode, 1);
        QVERIFY(listed.output.contains(QStringLiteral("“Projects” with “Home”")));
        QVERIFY2(verified.output.contains(QStringLiteral("Home")), qPrintable(verified.errors));
    }

    void aFolderThatCannotBeReadIsNotMissing_data() {
        QTest::addColumn<QString>("command");
        for (const char *command : {"status", "sync", "verify", "--describe"}) {
            QTest::newRow(command) << QString::fromLatin1(command);
        }
    }
    void aFolderThatCannotBeReadIsNotMissing() {
        QFETCH(QString, command);
        QVERIFY(QFile::setPermissions(profile(), QFileDevice::Permissions()));
        const Run refused = runBound(command);
        allowEverything();
        QCOMPARE(refused.exitCode, command.startsWith(u'-') ? 1 : 2);
        QCOMPARE(refused.output, QString());
        QVERIFY2(refused.errors.contains(QStringLiteral("cannot be read")),
                 qPrintable(refused.errors));
        QVERIFY(refused.errors.contains(profile()));
    }

    void wrongArgumentsAreRefused() {
        for (const QStringList &arguments :
             {QStringList{QStringLiteral("status"), QStringLiteral("all")},
              QStringList{QStringLiteral("check")},
              QStringList{QStringLiteral("status"), QStringLiteral("--timeout"),
                          QStringLiteral("0")},
              QStringList{QStringLiteral("verify"), QStringLiteral("--timeout"),
                          QStringLiteral("9")},
              QStringList{QStringLiteral("sync"), QStringLiteral("--json")},
              QStringList{QStringLiteral("status"), QStringLiteral("--repair")}}) {
            QCOMPARE(run(arguments).exitCode, 2);
        }
    }
};

VELMORA_TEST(ShellCommandTest)
#include "ShellCommandTest.moc"
