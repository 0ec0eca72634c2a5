#include <QtCore/QProcess>
#include <cstdio>
#include <random>

#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "Support/Verification.h"

namespace {

const QString DatabaseName = QStringLiteral("Projects");

std::shared_ptr<NoteDatabase> projects(SyncEngine &engine) {
    const auto all = engine.library()->knownDatabases();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [](const auto &each) { return each->name() == DatabaseName; });
    return found == all.end() ? nullptr : *found;
}

QVSyncStates allStates(SyncEngine &engine) {
    QVSyncStates states;
    const auto locations = engine.plugin().locationsController()->syncLocations();
    for (const auto &location : locations) {
        states.append(location->synchronizationStates());
    }
    return states;
}

/// Saves notes and synchronizes for ever, and says on standard output what was saved.
int saveUntilKilled(const QString &profile, const QString &prefix) {
    TestApplication application;
    SyncEngine engine;
    application.setEngine(&engine);
    if (const auto opened = engine.openProfile(profile); !opened) {
        std::fprintf(stderr, "%s\n", qPrintable(opened.error().localizedDescription));
        return EXIT_FAILURE;
    }
    for (int i = 0;; ++i) {
        const QString title = QStringLiteral("%1 %2").arg(prefix).arg(i);
        Note note{{}, title, QString(i % 7 * 500, u'x'), QDateTime::currentDateTime()};
        if (!projects(engine)->saveNote(note)) {
            return EXIT_FAILURE;
        }
        // Of every third note only the second edit is to be found.
        if (i % 3 == 0) {
            note.text = QStringLiteral("again");
            if (!projects(engine)->saveNote(note)) {
                return EXIT_FAILURE;
            }
        }
        std::printf("%s\n", qPrintable(title));
        std::fflush(stdout);
        if (engine.plugin().dispatcher()->activity().isEmpty()) {
            engine.plugin().dispatcher()->performSynchronizationsWithSynchronizationStates(
                allStates(engine));
        }
        QCoreApplication::processEvents();
    }
}

/// Says when the profile is open and when everything is synchronized, and waits to be killed.
int importUntilKilled(const QString &profile) {
    TestApplication application;
    SyncEngine engine;
    application.setEngine(&engine);
    if (const auto opened = engine.openProfile(profile); !opened) {
        std::fprintf(stderr, "%s\n", qPrintable(opened.error().localizedDescription));
        return EXIT_FAILURE;
    }
    std::puts("open");
    std::fflush(stdout);
    engine.plugin().dispatcher()->performSynchronizationsWithSynchronizationStates(
        allStates(engine), [] {
            std::puts("imported");
            std::fflush(stdout);
        });
    return QCoreApplication::exec();
}

}  // namespace

class KilledProcessTest : public QObject {
    Q_OBJECT
private:
    /// What a process reported as saved before it was killed, some time after `lines` reports.
    static QStringList reportedUntilKilled(const QString &profile, const QString &prefix,
                                           int lines) {
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(QCoreApplication::applicationFilePath(),
                      {QStringLiteral("KilledProcessTest"), QStringLiteral("--save-until-killed"),
                       profile, prefix});
        QByteArray output;
        while (output.count('\n') < lines && process.waitForReadyRead(30000)) {
            output += process.readAll();
        }
        process.kill();
        process.waitForFinished();
        output += process.readAll();
        if (process.exitStatus() != QProcess::CrashExit) {
            return {};
        }
        return QString::fromUtf8(output.left(output.lastIndexOf('\n')))
            .split(u'\n', Qt::SkipEmptyParts);
    }

    /// Kills it `milliseconds` after its beginning, or when it is done.
    static void killDuringImport(const QString &profile, int milliseconds) {
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(QCoreApplication::applicationFilePath(),
                      {QStringLiteral("KilledProcessTest"), QStringLiteral("--import-until-killed"),
                       profile});
        QVERIFY(process.waitForReadyRead(30000));
        process.readAll();
        process.waitForReadyRead(milliseconds);
        process.kill();
        process.waitForFinished();
        QCOMPARE(process.exitStatus(), QProcess::CrashExit);
    }

    static void verifyHolds(const NoteDatabase &database, const QStringList &reported) {
        QHash<QString, QString> texts;
        const QList<Note> notes = database.notes().value();
        for (const Note &note : notes) {
            QVERIFY2(!texts.contains(note.title), qPrintable(note.title));
            texts.insert(note.title, note.text);
        }
        for (const QString &title : reported) {
            QVERIFY2(texts.contains(title), qPrintable(title));
            if (title.section(u' ', 1).toInt() % 3 == 0) {
                QCOMPARE(texts.value(title), QStringLiteral("again"));
            }
        }
    }

    static void synchronize(SyncEngine &engine) {
        bool isDone = false;
        engine.plugin().dispatcher()->performSynchronizationsWithSynchronizationStates(
            allStates(engine), [&] { isDone = true; });
        QTRY_VERIFY_WITH_TIMEOUT(isDone, 30000);
        for (const auto &state : allStates(engine)) {
            QVERIFY(state->lastSynced().isValid());
        }
        QCOMPARE(Verification::problems(engine.verify(VerificationMode::Report)), QStringList());
    }

private Q_SLOTS:
    void changesReportedAsSavedSurviveKill() {
        TestHost host;
        const auto database = host.addDatabase(DatabaseName);
        const QString UUID = database->UUID();
        const QString store = host.makeSyncStore(QStringLiteral("Shared"));
        host.addState(host.addLocation(store), database)->setEnabled(true);
        host.save();
        const QString profile = host.directory();
        host.goToComputer(QStringLiteral("Other computer"));
        host.addLocation(store)->addStateForDatabaseWithUUID(UUID, DatabaseName)->setEnabled(true);
        host.save();

        std::mt19937 randomBits(1);
        QStringList reported;
        for (int round = 0; round < 15; ++round) {
            const QStringList more =
                reportedUntilKilled(profile, QStringLiteral("Round%1").arg(round),
                                    1 + static_cast<int>(randomBits() % 40));
            QVERIFY(!more.isEmpty());
            reported += more;
        }
        // What is in the store already is sound, and the killed one goes on where it was.
        synchronize(host.engine());
        for (const auto &entry : host.application().logEntries()) {
            QVERIFY2(entry.info.contains(QStringLiteral("was synchronized")),
                     qPrintable(entry.info));
        }
        host.goToComputer(QStringLiteral("Profile"));
        verifyHolds(*projects(host.engine()), reported);
        synchronize(host.engine());
        const QList<Note> notes = projects(host.engine())->notes().value();
        host.goToComputer(QStringLiteral("Other computer"));
        synchronize(host.engine());
        verifyHolds(*projects(host.engine()), reported);
        QCOMPARE(projects(host.engine())->notes().value().size(), notes.size());
    }

    void anImportThatWasKilledIsFinishedByTheNextStart() {
        TestHost host;
        const auto database = host.addDatabase(DatabaseName);
        const QString UUID = database->UUID();
        const QString store = host.makeSyncStore(QStringLiteral("Shared"));
        QStringList titles;
        for (int i = 0; i < 300; ++i) {
            Note note{{}, QStringLiteral("Note %1").arg(i), QStringLiteral("again"), {}};
            QVERIFY(database->saveNote(note));
            titles.append(note.title);
        }
        host.addState(host.addLocation(store), database)->setEnabled(true);
        host.save();
        synchronize(host.engine());

        std::mt19937 randomBits(2);
        for (int round = 0; round < 12; ++round) {
            const QString computer = QStringLiteral("Computer %1").arg(round);
            host.goToComputer(computer);
            host.addLocation(store)
                ->addStateForDatabaseWithUUID(UUID, DatabaseName)
                ->setEnabled(true);
            host.save();
            const QString profile = host.directory();
            host.goToComputer(QStringLiteral("Profile"));
            killDuringImport(profile, static_cast<int>(randomBits() % 60));
            host.goToComputer(computer);
            synchronize(host.engine());
            verifyHolds(*projects(host.engine()), titles);
            QCOMPARE(projects(host.engine())->notes().value().size(), titles.size());
        }
    }
};

VELMORA_TEST_PROGRAM(KilledProcessTest)(int argumentCount, char **arguments) {
    prepareTestProcess();
    QApplication application(argumentCount, arguments);
    const QStringList given = QCoreApplication::arguments();
    if (given.value(1) == QStringLiteral("--save-until-killed")) {
        return saveUntilKilled(given.value(2), given.value(3));
    }
    if (given.value(1) == QStringLiteral("--import-until-killed")) {
        return importUntilKilled(given.value(2));
    }
    KilledProcessTest test;
    return QTest::qExec(&test, argumentCount, arguments);
}
#include "KilledProcessTest.moc"
