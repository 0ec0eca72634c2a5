#include <QtCore/QDirIterator>
#include <QtCore/QUuid>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>

#include "Engine/DirectConnection/DirectConnection.h"
#include "Support/AccessibleScreen.h"
#include "Support/DisplayTest.h"
#include "Support/FreePort.h"
#include "Support/HeardNotifications.h"
#include "Support/ProgramRun.h"
#include "Support/SecretService.h"
#include "Support/ShownProgram.h"

/// The windows of the program show what is happening, what failed and what to do next. They are
/// read and used as assistive technology does.
class ShownStateTest : public QObject {
    Q_OBJECT
private:
    const VirtualDisplay m_display;
    SecretService m_desktop;
    const AccessibleScreen m_screen{m_desktop.busAddress()};
    const quint16 m_port = freePort();
    std::unique_ptr<ShownProgram> m_program;

    static inline const QString Panel = QStringLiteral("Sync Preferences");
    static inline const QString Home = QStringLiteral("Home");
    static inline const QString Away = QStringLiteral("Away");

    QString home() const { return QFileInfo(m_program->profile()).path(); }
    QString store() const {
        return m_program->profile() + QStringLiteral("/Sync Stores/Home.qvSyncStore");
    }
    QString otherStore() const { return home() + QStringLiteral("/Away.qvSyncStore"); }
    QStringList recordsIn(const QString &package) const {
        QStringList records;
        QDirIterator files(package + QStringLiteral("/transactions"), QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            records.append(files.next());
        }
        return records;
    }
    /// Copies a record of the only database at the store, as a file manager does.
    QString copyOfRecord() const {
        const QFileInfo record(recordsIn(store()).constFirst());
        const QString copy = record.path() + u'/' + record.baseName() + QStringLiteral(" (1).json");
        return QFile::copy(record.filePath(), copy) ? copy : QString();
    }
    void hideStore() const { QVERIFY(QDir().rename(store(), store() + u'x')); }
    void showStore() const { QVERIFY(QDir().rename(store() + u'x', store())); }

    /// Makes the profile, with a second location.
    void makeProfile() const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), home());
        const ProgramRun made = ProgramRun::of(
            QStringLiteral(VELMORA),
            {QStringLiteral("--profile"), m_program->profile(), QStringLiteral("--describe")},
            environment);
        QCOMPARE(made.exitCode, 0);
        for (const char *folder : {"/databases", "/transactions"}) {
            QVERIFY(QDir().mkpath(otherStore() + QLatin1StringView(folder)));
        }
        const QString connection = QStringLiteral("shown-state-test");
        {
            auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
            database.setDatabaseName(m_program->profile() + QStringLiteral("/profile.sqlite"));
            QVERIFY(database.open());
            QVERIFY(QSqlQuery(database).exec(
                QStringLiteral("INSERT INTO locations (uuid, position, url)"
                               " VALUES ('%1', 1, 'file://%2')")
                    .arg(QUuid::createUuid().toString(QUuid::WithoutBraces), otherStore())));
        }
        QSqlDatabase::removeDatabase(connection);
    }
    /// Chooses the port of the server, which is off.
    void choosePort() const {
        const QString folder = home() + QStringLiteral("/.config/Velmora");
        QVERIFY(QDir().mkpath(folder));
        QFile file(folder + QStringLiteral("/Velmora.conf"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[General]\nQVDirectConnectionServerPortNumber=" + QByteArray::number(m_port) +
                   '\n');
    }
    bool isShown(const char *text) const { return m_screen.awaitText(QString::fromUtf8(text)); }
    bool isGone(const char *text) const {
        const QStringList shown = m_screen.awaitNoText(QString::fromUtf8(text));
        return QTest::qVerify(shown.isEmpty(), "isGone", qPrintable(shown.join(u'\n')), __FILE__,
                              __LINE__);
    }
    bool press(const char *name) const { return m_screen.perform(QString::fromUtf8(name)); }
    /// Requests a command of a row of the panel, as its menu does; "Press" selects the row.
    bool request(const char *action, const QString &row) const {
        return m_screen.perform(row, Panel, QString::fromUtf8(action));
    }
    bool tick(const QString &location) const { return m_screen.perform(location, Panel); }
    bool synchronize() const { return request("Sync Now", QStringLiteral("Projects")); }
    /// Gives the keyboard to the window `title` as soon as it is there, and presses keys.
    void pressIn(const char *title, const QStringList &keys) const {
        const QString pattern = u'^' + QString::fromUtf8(title) + u'$';
        QTRY_VERIFY(!m_display.window(pattern).isEmpty());
        m_display.focus(m_display.window(pattern));
        m_display.press(keys);
    }
    /// Opens the sheet of a new WebDAV location, and gives the keyboard to it.
    void openWebDAVSheet() const {
        QVERIFY(press("Add"));
        // "WebDAV Server…".
        chooseFromBelow(2);
        pressIn("WebDAV Location", {});
    }
    /// Chooses the last entry but `above` of the menu that was requested last.
    void chooseFromBelow(int above) const {
        // Read after the request, so the menu is open.
        std::ignore = m_screen.texts();
        m_display.press(QStringList(above + 1, QStringLiteral("Up")) +
                        QStringList(QStringLiteral("Return")));
    }

private Q_SLOTS:
    void init() {
        m_program = std::make_unique<ShownProgram>(QStringLiteral(VELMORA), m_display);
        m_program->useSession(m_desktop.busAddress());
        m_program->setVariable(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"),
                               QStringLiteral("unix:path=/there/is/no/bus"));
        makeProfile();
        choosePort();
        m_program->start();
        m_program->awaitWindows();
    }
    void cleanup() { m_program.reset(); }

    void theResultOfASynchronizationIsSpoken() {
        const HeardNotifications heard(m_screen.bus());
        // The program learns that somebody listens.
        QVERIFY(QTest::qWaitFor(
            [&] {
                return synchronize() && isShown("All up to date") &&
                       !heard.texts().filter(QStringLiteral("All up to date")).isEmpty();
            },
            EventTimeout));
    }

    void aFailureIsShownUntilItIsSolved() {
        QVERIFY(request("Press", QStringLiteral("Projects")));
        QVERIFY(isShown("No synchronization is scheduled."));
        QVERIFY(tick(Away));
        QVERIFY(tick(Away));
        QVERIFY(synchronize());
        QVERIFY(isShown("Synchronized today at"));
        QVERIFY(isShown("All up to date"));
        QVERIFY(!recordsIn(store()).isEmpty());
        QCOMPARE(recordsIn(otherStore()), QStringList());

        const QString copy = copyOfRecord();
        QVERIFY(!copy.isEmpty());
        QVERIFY(synchronize());
        QVERIFY(isShown("Some items of “Projects” could not be synchronized with “Home”"));
        QVERIFY(press("Show what failed with “Home”"));
        QVERIFY(press("Show Log"));
        QVERIFY(isShown(" (1).json” is not used, because records have other names."));
        QVERIFY(QFile::remove(copy));

        hideStore();
        QVERIFY(synchronize());
        QVERIFY(isShown("failed today at"));
        QVERIFY(isShown("“Projects” is not synchronized with “Home”: not available"));
        QVERIFY(press("What Failed…"));
        QVERIFY(isShown("Check whether it was moved or renamed."));
        QVERIFY(isShown("Show Folder"));
        QVERIFY(press("Show Details..."));
        QVERIFY(isShown("Address: file://"));
        QVERIFY(press("Edit Location…"));
        QVERIFY(press("OK"));
        QVERIFY(isGone("failed today at"));

        m_display.focus(m_program->mainWindow());
        m_display.type(QStringLiteral("x"));
        QVERIFY(synchronize());
        QVERIFY(isShown("failed today at"));
        QVERIFY(press("What Failed…"));
        showStore();
        QVERIFY(press("Try Again"));
        QVERIFY(isShown("All up to date"));
        QVERIFY(isGone("failed today at"));
        m_program->terminate();
        QVERIFY(m_program->awaitEnd());
    }

    void whatCannotBeSynchronizedAtTheEndIsTriedAgain() {
        hideStore();
        m_display.press({QStringLiteral("ctrl+q")});
        QVERIFY(press("Synchronize and Quit"));
        QVERIFY(isShown("Some changes could not be synchronized."));
        QVERIFY(isShown("Edit Location…"));
        showStore();
        QVERIFY(press("Try Again"));
        QVERIFY(m_program->awaitEnd());
        QVERIFY(!recordsIn(store()).isEmpty());
    }

    void everyCommandSaysWhatItHasDone() {
        QVERIFY(request("Press", QStringLiteral("Projects")));
        QVERIFY(synchronize());
        QVERIFY(isShown("Synchronized today at"));
        QVERIFY(request("Check", Home));
        QVERIFY(isShown("“Home” can be read and written. 1 database, "));
        QVERIFY(request("ShowMenu", Home));
        // "Clean Up".
        chooseFromBelow(1);
        QVERIFY(isShown("“Projects” was cleaned up at “Home”."));

        QVERIFY(press("Add"));
        // "Dropbox Account…".
        chooseFromBelow(0);
        QVERIFY(isShown("no application key is configured"));
        QVERIFY(press("OK"));
        QVERIFY(isGone("no application key is configured"));
        QVERIFY(press("Add"));
        // "Direct Connection…".
        chooseFromBelow(1);
        QVERIFY(isShown("Computers cannot be found, because the service “Avahi” is not running"));
        QVERIFY(press("Cancel"));
        QVERIFY(isGone("“Avahi”"));

        QVERIFY(tick(Away));
        QVERIFY(request("Remove", Away));
        QVERIFY(isShown("“Away” was removed. Its ticks and schedules can be restored with it."));
        QVERIFY(press("Undo"));
        QVERIFY(isGone("“Away” was removed."));
        QVERIFY(isShown(qPrintable(Away)));

        QVERIFY(press("Direct Connections…"));
        QVERIFY(isShown("A computer that may connect can read and change the ticked databases."));
        QVERIFY(isShown("When a computer connects for the first time"));
        QVERIFY(press("Let other computers synchronize with this one"));
        QVERIFY(m_screen.awaitText(QStringLiteral("Port: %1").arg(m_port)));
        const bool isInNetwork =
            m_screen.texts().filter(QStringLiteral("This computer is in no network.")).isEmpty();
        QVERIFY(!isInNetwork || isShown("Other computers do not find this one by themselves"));
        QVERIFY(press("Let other computers synchronize with this one"));
        QCOMPARE(m_screen.awaitNoText(QStringLiteral("Port: %1").arg(m_port)), QStringList());
        QVERIFY(press("Close"));
        QVERIFY(isGone("When a computer connects for the first time"));
        m_program->terminate();
        QVERIFY(m_program->awaitEnd());
    }

    void whatIsTypedIsReadBeforeItIsUsed() {
        QVERIFY(request("Press", QStringLiteral("Inbox")));
        QVERIFY(isShown("Tick a location first. A schedule belongs to the locations"));
        QVERIFY(tick(Away));
        QVERIFY(press("Every week"));
        QVERIFY(isShown("Next synchronization: "));
        for (const char *day : {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday"}) {
            QVERIFY(press(day));
        }
        QVERIFY(isShown("Choose at least one day. Otherwise nothing is synchronized."));

        openWebDAVSheet();
        m_display.type(QStringLiteral("https://dav.example.org:8443/sync/Notes.qvSyncStore"));
        QVERIFY(isShown("The server field contains a complete address."));
        QVERIFY(press("Fill In the Fields"));
        QVERIFY(isShown("Address: https://dav.example.org:8443/sync/Notes.qvSyncStore"));
        QVERIFY(press("Cancel"));
        QVERIFY(isGone("dav.example.org"));
        openWebDAVSheet();
        m_display.type(QStringLiteral("local host"));
        QVERIFY(isShown("A server name contains no blanks."));
        pressIn("WebDAV Location", {QStringLiteral("ctrl+a")});
        const QString port = QString::number(freePort());
        m_display.type(QStringLiteral("localhost\t\t%1\t\t\t\tNotes").arg(port));
        QVERIFY(m_screen.awaitText(QStringLiteral("Address: http://localhost:%1/Notes").arg(port)));
        QVERIFY(isShown("Without HTTPS, others on the network can read"));
        QVERIFY(press("OK"));
        // It is checked by itself.
        QVERIFY(isShown("refused the connection"));

        QVERIFY(request("Edit…", QStringLiteral("localhost – Notes")));
        pressIn("WebDAV Location", {QStringLiteral("ctrl+a")});
        m_display.type(QStringLiteral("127.0.0.1"));
        QVERIFY(m_screen.awaitText(QStringLiteral("Address: http://127.0.0.1:%1/").arg(port)));
        QVERIFY(press("OK"));
        QVERIFY(isShown("127.0.0.1 – Notes"));
        QVERIFY(isGone("localhost – Notes"));
        m_program->terminate();
        QVERIFY(m_program->awaitEnd());
    }

    void theUserIsAskedBeforeSecretsAreForgotten() {
        QVERIFY(request("Press", QStringLiteral("Projects")));
        openWebDAVSheet();
        QVERIFY(press("Use HTTPS"));
        m_display.type(QStringLiteral("localhost\t\t%1\tida\tsecret\t\tNotes").arg(freePort()));
        QVERIFY(isShown("Address: https://localhost:"));
        QVERIFY(press("OK"));
        const QMap<QString, QString> passwords{
            {QStringLiteral("host"), QStringLiteral("localhost")},
            {QStringLiteral("user"), QStringLiteral("ida")}};
        QTRY_VERIFY(m_desktop.count(passwords) > 0);
        QVERIFY(request("Remove", QStringLiteral("localhost – Notes")));
        QVERIFY(isShown("“localhost – Notes” was removed."));

        const QMap<QString, QString> client{
            {QStringLiteral("xdg:schema"), QStringLiteral("velmora.GenericPassword")},
            {QStringLiteral("service"), DirectConnection::ClientAuthorizationServiceName},
            {QStringLiteral("account"), QStringLiteral("kim at desk")}};
        m_desktop.addItem(client, "secret");
        QVERIFY(press("Direct Connections…"));
        QVERIFY(m_screen.perform(QStringLiteral("kim at desk"),
                                 QStringLiteral("Direct Connections"), QStringLiteral("Press")));
        QVERIFY(press("Revoke"));
        QVERIFY(isShown("Prevent “kim at desk” from connecting?"));
        QVERIFY(press("Cancel"));
        QVERIFY(isGone("Prevent “kim at desk” from connecting?"));
        QCOMPARE(m_desktop.count(client), 1);
        QVERIFY(press("Close"));
        m_program->terminate();
        QVERIFY(m_program->awaitEnd());

        // The removal could be undone until the program ended.
        QVERIFY(m_desktop.count(passwords) > 0);
        m_program->start();
        QVERIFY(isShown("Forget the password of “ida@localhost”?"));
        QVERIFY(press("Forget"));
        QTRY_COMPARE(m_desktop.count(passwords), 0);
        m_program->terminate();
        QVERIFY(m_program->awaitEnd());
    }
};

VELMORA_DISPLAY_TEST(ShownStateTest, AccessibleScreen::require())
#include "ShownStateTest.moc"
