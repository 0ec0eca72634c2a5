#include <sys/prctl.h>
#include <unistd.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QSocketNotifier>
#include <csignal>
#include <iostream>

#include "Controller/Preferences/QVDropboxLocationEditor.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Controller/QVImportDatabasesController.h"
#include "Engine/Stores/Dropbox/DropboxConfiguration.h"
#include "Host/QVDirectConnectionServer.h"
#include "Host/UnencryptedPasswords.h"
#include "Other Sources/QVURLCredentialUtilities.h"
#include "Platform/Foundation/UserDefaults.h"
#include "Platform/Security/UrlCredentialStorage.h"
#include "Support/Commands.h"
#include "Support/DropboxBrowser.h"
#include "Support/DropboxServer.h"
#include "Support/EventTimeout.h"
#include "Support/SetDefault.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "Support/Verification.h"
#include "Support/WebDAVServer.h"

namespace {

const QString ProfileRole = QStringLiteral("--be-a-profile");

/// A profile in its own process, whose user accepts every question. Each command is a line of texts
/// separated by tabs, and gets one line as response.
class Profile {
public:
    Profile() { m_host.application().answerQuestions(true); }

    QString answer(const QStringList &command) {
        const QString name = command.value(0);
        if (name == QStringLiteral("create")) {
            return m_host.addDatabase(command[1])->UUID();
        }
        if (name == QStringLiteral("location")) {
            return addLocation(command);
        }
        if (name == QStringLiteral("dropbox")) {
            return signIn(command[1]);
        }
        if (name == QStringLiteral("serve")) {
            return serve();
        }
        if (name == QStringLiteral("import")) {
            return import();
        }
        if (name == QStringLiteral("verify")) {
            return verify();
        }
        return answerForDatabase(command);
    }

private:
    QString answerForDatabase(const QStringList &command) {
        const std::shared_ptr<NoteDatabase> database = databaseForUUID(command.value(1));
        if (!database) {
            return QStringLiteral("no such database");
        }
        const QString name = command[0];
        if (name == QStringLiteral("save")) {
            Note note = noteTitled(*database, command[2]);
            note.title = command[2];
            note.text = command[3];
            note.modified = QDateTime::currentDateTimeUtc();
            return said(database->saveNote(note));
        }
        if (name == QStringLiteral("delete")) {
            const Note note = noteTitled(*database, command[2]);
            return said(database->removeNote(note).map([](bool) {}));
        }
        if (name == QStringLiteral("rename")) {
            return said(m_host.library().renameDatabase(database, command[2]));
        }
        if (name == QStringLiteral("synchronize")) {
            return synchronize(*database);
        }
        return contents(*database);
    }

    static QString said(const Expected<void> &result) {
        return result ? QStringLiteral("done") : result.error().localizedDescription;
    }

    std::shared_ptr<NoteDatabase> databaseForUUID(const QString &UUID) {
        for (const auto &database : m_host.library().knownDatabases()) {
            if (database->UUID() == UUID) {
                return database;
            }
        }
        return nullptr;
    }

    static Note noteTitled(const NoteDatabase &database, const QString &title) {
        const QList<Note> notes = database.notes().value();
        for (const Note &note : notes) {
            if (note.title == title) {
                return note;
            }
        }
        return {};
    }

    QString addLocation(const QStringList &command) {
        const auto location = m_host.addLocation(command[1]);
        if (command.size() > 2) {
            if (!UnencryptedPasswords::accept(location->URL())) {
                return QStringLiteral("not accepted");
            }
            UrlCredentialStorage::shared().setCredentialForProtectionSpace(
                {location->URL().user(), command[2], UrlCredential::Persistence::ForSession},
                QVHTTPBasicURLProtectionSpaceForURL(location->URL()));
        }
        return QStringLiteral("done");
    }

    QString signIn(const QString &address) {
        setDefault(DropboxConfiguration::ApplicationKeyDefault, QStringLiteral("velmora-test-key"));
        setDefault(DropboxConfiguration::AuthorizeAddressDefault,
                   address + QStringLiteral("/oauth2/authorize"));
        setDefault(DropboxConfiguration::TokenAddressDefault,
                   address + QStringLiteral("/oauth2/token"));
        setDefault(DropboxConfiguration::APIAddressDefault, address + QStringLiteral("/2"));
        setDefault(DropboxConfiguration::ContentAddressDefault,
                   address + QStringLiteral("/content/2"));
        const DropboxBrowser browser;
        const auto location = m_host.newLocation(Url());
        const auto editor = QVDropboxLocationEditor::editorWithSyncLocation(location);
        QWidget window;
        bool isAccepted = false;
        editor->runLocationEditorModalForWindow(&window, true,
                                                [&](qint64 result) { isAccepted = result == 1; });
        if (!QTest::qWaitFor([&] { return isAccepted; }, EventTimeout)) {
            return editor->authorizationStatus();
        }
        m_host.locations().insertObjectInSyncLocationsAtIndex(location, 0);
        return location->URL().absoluteString();
    }

    QString serve() {
        QVDirectConnectionServer *server = QVSyncPlugin::plugin()->server();
        QTcpServer probe;
        probe.listen(QHostAddress::LocalHost);
        server->setPort(probe.serverPort());
        probe.close();
        server->startServing();
        return server->isServing() ? QString::number(server->port())
                                   : QStringLiteral("not serving");
    }

    QString synchronize(NoteDatabase &database) {
        const auto state = m_host.addState(m_host.locations().syncLocations().constFirst(),
                                           databaseForUUID(database.UUID()));
        state->setEnabled(true);
        m_host.save();
        bool isDone = false;
        QVSyncPlugin::plugin()->dispatcher()->performSynchronizationsWithSynchronizationStates(
            {state}, [&] { isDone = true; });
        if (!QTest::qWaitFor([&] { return isDone; }, EventTimeout)) {
            return QStringLiteral("not ended");
        }
        return state->lastSynced().isValid() ? QStringLiteral("done") : lastLogged();
    }

    QString lastLogged() {
        const auto entries = m_host.application().logEntries();
        return entries.isEmpty() ? QStringLiteral("nothing logged") : entries.last().info;
    }

    /// Imports everything that the first location offers, by the sheet.
    QString import() {
        QWidget window;
        const auto sheet = QVImportDatabasesController::newController();
        bool isClosed = false;
        sheet->runImportDatabasesSheetModalForWindow(&window, [&] { isClosed = true; });
        sheet->fetchDatabasesForLocation(m_host.locations().syncLocations().constFirst());
        if (!QTest::qWaitFor([&] { return !sheet->isActive(); }, EventTimeout) ||
            !sheet->databases()) {
            return sheet->remoteErrorText();
        }
        const QVRemoteDatabases offered = *sheet->databases();
        QStringList names;
        for (const auto &database : offered) {
            names.append(database->metadata()->name());
        }
        sheet->importDatabases(offered);
        // A database is there before all of its notes are.
        const auto areHere = [&] {
            return QVSyncPlugin::plugin()->dispatcher()->activity().isEmpty() &&
                   std::all_of(offered.begin(), offered.end(), [this](const auto &database) {
                       return databaseForUUID(database->UUID()) != nullptr;
                   });
        };
        return QTest::qWaitFor(areHere, EventTimeout) && isClosed ? names.join(u',') : lastLogged();
    }

    QString verify() {
        const QStringList problems =
            Verification::problems(m_host.engine().verify(VerificationMode::Report));
        return problems.isEmpty() ? QStringLiteral("done") : problems.join(u' ');
    }

    static QString contents(const NoteDatabase &database) {
        QStringList lines;
        const QList<Note> notes = database.notes().value();
        for (const Note &note : notes) {
            lines.append(
                QString::fromUtf8(QJsonDocument(QJsonArray{note.UUID, note.title, note.text,
                                                           note.modified.toMSecsSinceEpoch()})
                                      .toJson(QJsonDocument::Compact)));
        }
        lines.sort();
        return database.name() + u' ' + lines.join(u' ');
    }

    TestHost m_host;
};

int beAProfile(int argumentCount, char **arguments) {
    const QApplication application(argumentCount, arguments);
    registerSyncPreferencesInterface();
    Profile profile;
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&] {
        const QString command = nextCommand();
        if (command == QStringLiteral("end")) {
            QCoreApplication::quit();
            return;
        }
        input.setEnabled(false);
        std::cout << profile.answer(command.split(u'\t')).toStdString() << std::endl;
        input.setEnabled(true);
    });
    return QCoreApplication::exec();
}

/// A profile as the test speaks to it.
class OtherProcess {
public:
    OtherProcess() {
        m_process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QCoreApplication::applicationFilePath(),
                        {QStringLiteral("TwoProfilesTest"), ProfileRole});
    }
    ~OtherProcess() {
        m_process.write("end\n");
        if (!m_process.waitForFinished(EventTimeout)) {
            m_process.kill();
            m_process.waitForFinished();
        }
    }

    QString ask(const QStringList &command) {
        m_process.write(command.join(u'\t').toUtf8() + '\n');
        const auto hasAnswered = [this] { return m_process.canReadLine(); };
        return QTest::qWaitFor(hasAnswered, 2 * EventTimeout)
                   ? QString::fromUtf8(m_process.readLine()).trimmed()
                   : QStringLiteral("no answer");
    }

private:
    QProcess m_process;
};

}  // namespace

/// Two computers: two processes with a profile each, which meet at a location of each kind.
class TwoProfilesTest : public QObject {
    Q_OBJECT

    const QString Done = QStringLiteral("done");

    /// `exchange` lets the profiles synchronize one after the other, as often as both need to know
    /// all.
    void tellTheStory(OtherProcess &here, OtherProcess &there,
                      const std::function<void(const QString &UUID)> &exchange) {
        const QString UUID = here.ask({QStringLiteral("create"), QStringLiteral("Projects")});
        const auto save = [&](OtherProcess &profile, const char *title, const char *text) {
            QCOMPARE(profile.ask({QStringLiteral("save"), UUID, QString::fromUtf8(title),
                                  QString::fromUtf8(text)}),
                     Done);
        };
        const auto remove = [&](OtherProcess &profile, const char *title) {
            QCOMPARE(profile.ask({QStringLiteral("delete"), UUID, QString::fromUtf8(title)}), Done);
        };
        const auto contents = [&](OtherProcess &profile) {
            return profile.ask({QStringLiteral("contents"), UUID});
        };
        save(here, "Garden", "Sow beans.");
        save(here, "Kitchen", "Buy öl & salt.");
        save(here, "Cellar", "Count jars.");
        QCOMPARE(here.ask({QStringLiteral("synchronize"), UUID}), Done);

        QCOMPARE(there.ask({QStringLiteral("import")}), QStringLiteral("Projects"));
        QTRY_COMPARE(contents(there), contents(here));

        save(here, "Garden", "Water beans.");
        remove(here, "Cellar");
        save(there, "Kitchen", "Buy oil.");
        save(there, "Attic", "Find skis.");
        QCOMPARE(there.ask({QStringLiteral("rename"), UUID, QStringLiteral("House")}), Done);
        exchange(UUID);
        const QString calm = contents(here);
        QCOMPARE(contents(there), calm);
        QVERIFY2(calm.startsWith(QStringLiteral("House ")), qPrintable(calm));
        for (const char *kept : {"Water beans.", "Buy oil.", "Find skis."}) {
            QVERIFY2(calm.contains(QLatin1StringView(kept)), kept);
        }
        QVERIFY(!calm.contains(QStringLiteral("Cellar")));

        // Both edit one note: both texts are kept.
        save(here, "Garden", "Harvest early.");
        save(there, "Garden", "Harvest late.");
        exchange(UUID);
        const QString conflict = contents(here);
        QCOMPARE(contents(there), conflict);
        QVERIFY2(conflict.contains(QStringLiteral("Harvest early.")), qPrintable(conflict));
        QVERIFY2(conflict.contains(QStringLiteral("Harvest late.")), qPrintable(conflict));
        verify(here, there);
    }

    void verify(OtherProcess &here, OtherProcess &there) {
        QCOMPARE(here.ask({QStringLiteral("verify")}), Done);
        QCOMPARE(there.ask({QStringLiteral("verify")}), Done);
    }

    void tellTheStoryAt(OtherProcess &here, OtherProcess &there) {
        tellTheStory(here, there, [&](const QString &UUID) {
            for (OtherProcess *profile : {&here, &there, &here}) {
                QCOMPARE(profile->ask({QStringLiteral("synchronize"), UUID}), Done);
            }
        });
    }

private Q_SLOTS:
    void theyMeetInAFolder() {
        const QTemporaryDir folder;
        const QDir package(folder.filePath(QStringLiteral("Shared.qvSyncStore")));
        QVERIFY(package.mkpath(QStringLiteral("databases")));
        QVERIFY(package.mkpath(QStringLiteral("transactions")));
        OtherProcess here;
        OtherProcess there;
        for (OtherProcess *profile : {&here, &there}) {
            QCOMPARE(profile->ask({QStringLiteral("location"),
                                   Url::fileURL(package.path()).absoluteString()}),
                     Done);
        }
        tellTheStoryAt(here, there);
    }

    void theyMeetOnAWebDAVServer() {
        const WebDAVServer server({});
        OtherProcess here;
        OtherProcess there;
        for (OtherProcess *profile : {&here, &there}) {
            QCOMPARE(profile->ask({QStringLiteral("location"),
                                   server.URLText(QStringLiteral("Shared.qvSyncStore")),
                                   WebDAVServer::Password}),
                     Done);
        }
        tellTheStoryAt(here, there);
    }

    void theyMeetInADropboxAccount() {
        const DropboxServer server;
        OtherProcess here;
        OtherProcess there;
        for (OtherProcess *profile : {&here, &there}) {
            QCOMPARE(profile->ask({QStringLiteral("dropbox"), server.address().toString()}),
                     QStringLiteral("dropbox://") + server.email());
        }
        tellTheStoryAt(here, there);
        QCOMPARE(server.violations(), QStringList());
    }

    // Only one of them has the location: the other serves.
    void oneConnectsDirectlyWithTheOther() {
        OtherProcess here;
        OtherProcess there;
        const QString port = there.ask({QStringLiteral("serve")});
        QVERIFY2(port.toUShort() > 0, qPrintable(port));
        QCOMPARE(
            here.ask({QStringLiteral("location"), QStringLiteral("velmora://localhost:") + port}),
            Done);
        const QString UUID = there.ask({QStringLiteral("create"), QStringLiteral("Projects")});
        QCOMPARE(there.ask({QStringLiteral("save"), UUID, QStringLiteral("Garden"),
                            QStringLiteral("Sow beans.")}),
                 Done);
        QCOMPARE(here.ask({QStringLiteral("import")}), QStringLiteral("Projects"));
        const auto contents = [&](OtherProcess &profile) {
            return profile.ask({QStringLiteral("contents"), UUID});
        };
        QCOMPARE(contents(here), contents(there));

        QCOMPARE(here.ask({QStringLiteral("save"), UUID, QStringLiteral("Garden"),
                           QStringLiteral("Harvest early.")}),
                 Done);
        QCOMPARE(there.ask({QStringLiteral("save"), UUID, QStringLiteral("Garden"),
                            QStringLiteral("Harvest late.")}),
                 Done);
        QCOMPARE(here.ask({QStringLiteral("synchronize"), UUID}), Done);
        // What was written is taken over behind the client's back.
        QTRY_COMPARE(contents(there), contents(here));
        QVERIFY(contents(here).contains(QStringLiteral("Harvest early.")));
        QVERIFY(contents(here).contains(QStringLiteral("Harvest late.")));
        verify(here, there);
    }
};

VELMORA_TEST_PROGRAM(TwoProfilesTest)(int argumentCount, char **arguments) {
    prepareTestProcess();
    if (argumentCount > 1 && arguments[1] == ProfileRole.toStdString()) {
        return beAProfile(argumentCount, arguments);
    }
    const QApplication application(argumentCount, arguments);
    TwoProfilesTest test;
    return QTest::qExec(&test, argumentCount, arguments);
}
#include "TwoProfilesTest.moc"
