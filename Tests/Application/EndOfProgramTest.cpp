#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtNetwork/QLocalServer>
#include <QtNetwork/QLocalSocket>
#include <QtNetwork/QTcpServer>
#include <QtNetwork/QTcpSocket>
#include <atomic>
#include <functional>
#include <memory>

#include "Engine/DirectConnection/DirectConnection.h"
#include "Engine/Plugin/SyncEngine.h"
#include "Engine/Stores/Dropbox/DropboxConfiguration.h"
#include "Support/AccessibleScreen.h"
#include "Support/BusService.h"
#include "Support/DisplayTest.h"
#include "Support/EventTimeout.h"
#include "Support/PrivateBus.h"
#include "Support/SessionManager.h"
#include "Support/ShownProgram.h"
#include "Support/TestApplication.h"

namespace {

/// A service on a private bus that does not reply.
class SilentService : public BusService {
public:
    SilentService(const QString &name, const QString &path)
        : SilentService(std::make_unique<PrivateBus>(), name, path) {}
    ~SilentService() override { leaveBus(); }

    QString busAddress() const { return m_bus->address(); }
    bool wasAsked() const { return m_wasAsked; }

    bool handleMessage(const QDBusMessage & /*message*/,
                       const QDBusConnection & /*connection*/) override {
        m_wasAsked = true;
        return true;
    }

private:
    SilentService(std::unique_ptr<PrivateBus> bus, const QString &name, const QString &path)
        : BusService(bus->address(), name, path), m_bus(std::move(bus)) {
        enterBus();
    }

    const std::unique_ptr<PrivateBus> m_bus;
    std::atomic_bool m_wasAsked = false;
};

}  // namespace

/// The program ends in the same way whether the user quits, the session ends or the process is
/// terminated: what was typed and ticked a moment before is in the profile, and no job goes on.
class EndOfProgramTest : public QObject {
    Q_OBJECT
private:
    TestApplication m_application;
    const VirtualDisplay m_display;

    /// Besides the time in which others use the processors.
    static constexpr std::chrono::milliseconds LongestEnd{2000};
    static inline const QString Quit = QStringLiteral("quit");
    static inline const QString Signal = QStringLiteral("signal");
    static inline const QString Session = QStringLiteral("session");

    static void addEnds() {
        QTest::addColumn<QString>("end");
        for (const QString &end : {Quit, Signal, Session}) {
            QTest::newRow(qPrintable(end)) << end;
        }
    }

    /// Returns the value of the first row.
    static QVariant valueIn(const QString &profile, const QString &statement) {
        SyncEngine engine;
        const auto opened =
            engine.openProfile(profile, FirstContents::Welcome, ProfileUse::Snapshot);
        return opened ? engine.profile().value(statement).value_or(QVariant()) : QVariant();
    }
    static int count(const QString &profile, const QString &tableAndCondition) {
        return valueIn(profile, QStringLiteral("SELECT count(*) FROM ") + tableAndCondition)
            .toInt();
    }
    /// Returns how many of the settings of the inbox are as tick() makes them.
    static int ticks(const QString &profile) {
        return valueIn(profile,
                       QStringLiteral("SELECT total(enabled) + total(sync_on_open)"
                                      " + total(sync_on_close) + count(schedule) FROM states"
                                      " WHERE database_uuid = '@inbox'"))
            .toInt();
    }
    /// Ticks the location for the inbox, which is selected, and sets its schedule.
    static void tick(const AccessibleScreen &screen) {
        const QString panel = QStringLiteral("Sync Preferences");
        // The last two are not saved before the preferences are left.
        for (const char *name :
             {"Home", "Every hour", "When the database is opened", "When the database is closed"}) {
            QVERIFY(screen.perform(QString::fromUtf8(name), panel));
        }
    }
    /// Types into the title of the first note of "Projects".
    static void type(ShownProgram &program, const VirtualDisplay &display) {
        display.focus(program.mainWindow());
        const QString tab = QStringLiteral("Tab");
        display.press({QStringLiteral("Down"), tab, tab, tab, tab});
        display.type(QStringLiteral("Typed at the end"));
        QVERIFY(QTest::qWaitFor([&] { return program.takeWasShownAsModified(); }, EventTimeout));
    }

    /// Makes a profile whose database "Projects" synchronizes with the location `URL` when it is
    /// opened.
    static void makeProfile(const QString &profile, const QString &URL) {
        SyncEngine engine;
        QVERIFY(engine.openProfile(profile, FirstContents::Welcome, ProfileUse::Edit));
        auto *locations = engine.plugin().locationsController();
        const auto location = engine.plugin().newLocation(Url::fromString(URL));
        locations->insertObjectInSyncLocationsAtIndex(location, 0);
        const auto databases = engine.library()->knownDatabases();
        for (const auto &database : databases) {
            if (!database->isInbox()) {
                const auto state =
                    location->addStateForDatabaseWithUUID(database->UUID(), database->name());
                state->setEnabled(true);
                state->setSyncOnOpen(true);
            }
        }
        std::optional<Error> error;
        locations->save(&error);
        QVERIFY(!error);
    }

    /// Ends the program, and waits until it has ended by itself, without delay. A session that ends
    /// calls `whenSaved` when the program has saved and still runs.
    void end(
        const QString &end, ShownProgram &program, SessionManager &session,
        const std::function<void()> &whenSaved = [] {}) const {
        QElapsedTimer time;
        auto delay = program.delayByOthers();
        time.start();
        if (end == Quit) {
            m_display.focus(program.mainWindow());
            m_display.press({QStringLiteral("ctrl+q")});
            // What is not synchronized is named.
            QString question;
            QVERIFY(QTest::qWaitFor(
                [&] {
                    question = m_display.window(QStringLiteral("^Quit Velmora$"));
                    return !question.isEmpty();
                },
                EventTimeout));
            m_display.focus(question);
            delay = program.delayByOthers();
            time.start();
            m_display.press({QStringLiteral("alt+q")});
        } else if (end == Signal) {
            program.terminate();
        } else {
            QVERIFY(session.askToSave());
            whenSaved();
            delay = program.delayByOthers();
            time.start();
            session.end();
        }
        QVERIFY(program.awaitEnd());
        const std::chrono::nanoseconds taken(time.nsecsElapsed());
        QCOMPARE_LT((taken - (program.delayByOthers() - delay)).count(),
                    std::chrono::nanoseconds(LongestEnd).count());
    }
    static void verifySaved(const QString &profile) {
        QCOMPARE(count(profile, QStringLiteral("operations WHERE title LIKE '%Typed at the end%'")),
                 1);
        QCOMPARE(ticks(profile), 4);
    }

private Q_SLOTS:
    void typedTextAndTicksAreSaved_data() { addEnds(); }
    void typedTextAndTicksAreSaved() {
        QFETCH(QString, end);
        SessionManager session;
        const PrivateBus bus;
        const AccessibleScreen screen(bus.address());
        ShownProgram program(QStringLiteral(VELMORA), m_display);
        program.setVariable(QStringLiteral("SESSION_MANAGER"), session.address());
        program.useSession(bus.address());
        program.start();
        program.awaitWindows();
        QCOMPARE(ticks(program.profile()), 0);
        tick(screen);
        type(program, m_display);
        // The system may kill the program as soon as it has saved for the end of the session.
        this->end(end, program, session, [&] { verifySaved(program.profile()); });
        verifySaved(program.profile());
        QVERIFY(QDir(program.profile()).entryList({QStringLiteral("unsaved-*")}).isEmpty());
    }

    /// As when the X server or the compositor crashes.
    void textShownAsSavedSurvivesTheLossOfTheDisplay() {
        auto display = std::make_unique<VirtualDisplay>();
        ShownProgram program(QStringLiteral(VELMORA), *display);
        program.start();
        program.awaitWindows();
        type(program, *display);
        QVERIFY(QTest::qWaitFor([&] { return !program.isShownAsModified(); }, EventTimeout));
        display.reset();
        QVERIFY(!program.awaitEnd());
        QVERIFY(!program.isRunning());
        QCOMPARE(count(program.profile(),
                       QStringLiteral("operations WHERE title LIKE '%Typed at the end%'")),
                 1);
        SyncEngine engine;
        QVERIFY(engine.openProfile(program.profile(), FirstContents::Welcome, ProfileUse::Run));
    }

    void aRunningJobIsStopped_data() { addEnds(); }
    void aRunningJobIsStopped() {
        QFETCH(QString, end);
        // A server that accepts connections, but never responds.
        QTcpServer server;
        QVERIFY(server.listen(QHostAddress::LocalHost));
        SessionManager session;
        ShownProgram program(QStringLiteral(VELMORA), m_display);
        program.setVariable(QStringLiteral("SESSION_MANAGER"), session.address());
        makeProfile(
            program.profile(),
            QStringLiteral("http://127.0.0.1:%1/Notes.qvSyncStore").arg(server.serverPort()));
        program.start();
        program.awaitWindows();
        // The job begins because the database is open.
        QVERIFY(QTest::qWaitFor([&] { return server.hasPendingConnections(); }, EventTimeout));
        const std::unique_ptr<QTcpSocket> connection(server.nextPendingConnection());
        this->end(end, program, session);
        QTRY_COMPARE(connection->state(), QAbstractSocket::UnconnectedState);
        QCOMPARE(count(program.profile(), QStringLiteral("states WHERE last_synced NOT NULL")), 0);
        // Otherwise the check would wait for it.
        server.close();
        SyncEngine engine;
        QVERIFY(
            engine.openProfile(program.profile(), FirstContents::Welcome, ProfileUse::Snapshot));
        QVERIFY(engine.verify(VerificationMode::Report).parts.first().outcome ==
                VerificationReport::Outcome::Sound);
    }

    void silentServicesDelayNoEnd_data() { addEnds(); }
    void silentServicesDelayNoEnd() {
        QFETCH(QString, end);
        const SilentService discovery(QStringLiteral("org.freedesktop.Avahi"), QStringLiteral("/"));
        const SilentService passwords(QStringLiteral("org.freedesktop.secrets"),
                                      QStringLiteral("/org/freedesktop/secrets"));
        SessionManager session;
        ShownProgram program(QStringLiteral(VELMORA), m_display);
        program.setVariable(QStringLiteral("SESSION_MANAGER"), session.address());
        program.setVariable(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"), discovery.busAddress());
        program.setVariable(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), passwords.busAddress());
        const QTemporaryDir settings;
        program.setVariable(QStringLiteral("XDG_CONFIG_HOME"), settings.path());
        QSettings(settings.filePath(QStringLiteral("Velmora/Velmora.conf")),
                  QSettings::NativeFormat)
            .setValue(DropboxConfiguration::ApplicationKeyDefault, QStringLiteral("key"));
        makeProfile(program.profile(),
                    DirectConnection::URLScheme + QStringLiteral("://silent.local"));
        makeProfile(program.profile(), QStringLiteral("dropbox://ada@example.org"));
        program.start();
        program.awaitWindows();
        // One location is to be looked up, and the tokens of the other are to be read.
        QVERIFY(QTest::qWaitFor([&] { return discovery.wasAsked() && passwords.wasAsked(); },
                                EventTimeout));
        this->end(end, program, session);
    }

    void aSilentSystemBusDelaysNoEnd() {
        // It accepts connections, but never responds.
        const QTemporaryDir folder;
        QLocalServer bus;
        QVERIFY(bus.listen(folder.filePath(QStringLiteral("bus"))));
        SessionManager session;
        ShownProgram program(QStringLiteral(VELMORA), m_display);
        program.setVariable(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"),
                            QStringLiteral("unix:path=") + bus.fullServerName());
        makeProfile(program.profile(),
                    DirectConnection::URLScheme + QStringLiteral("://silent.local"));
        program.start();
        program.awaitWindows();
        // The location is to be looked up.
        QVERIFY(QTest::qWaitFor([&] { return bus.hasPendingConnections(); }, EventTimeout));
        end(Signal, program, session);
    }
};

VELMORA_DISPLAY_TEST(EndOfProgramTest, AccessibleScreen::require())
#include "EndOfProgramTest.moc"
