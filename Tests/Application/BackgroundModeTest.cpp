#include <QtCore/QRegularExpression>

#include "Engine/DirectConnection/DirectConnection.h"
#include "Support/AccessibleScreen.h"
#include "Support/AskedUser.h"
#include "Support/DisplayTest.h"
#include "Support/EventTimeout.h"
#include "Support/FreePort.h"
#include "Support/NotificationService.h"
#include "Support/SecretService.h"
#include "Support/ShownProgram.h"
#include "Support/StatusNotifierWatcher.h"
#include "Support/TestHost.h"

/// The program stays in the background if the user wants that, with an icon in the desktop's panel.
class BackgroundModeTest : public QObject {
    Q_OBJECT
private:
    const VirtualDisplay m_display;
    const SecretService m_desktop;
    std::unique_ptr<StatusNotifierWatcher> m_watcher;
    std::unique_ptr<NotificationService> m_notifications;
    std::unique_ptr<ShownProgram> m_program;

    QString home() const { return QFileInfo(m_program->profile()).path(); }
    QString store() const {
        return m_program->profile() + QStringLiteral("/Sync Stores/Home.qvSyncStore");
    }
    void turnOn(const QString &furtherSettings = {}) const {
        const QString folder = home() + QStringLiteral("/.config/Velmora");
        QVERIFY(QDir().mkpath(folder));
        QFile file(folder + QStringLiteral("/Velmora.conf"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[General]\nQVKeepSynchronizingInBackground=true\n" + furtherSettings.toUtf8());
    }
    /// Edits the notes of "Projects" in another profile and synchronizes it with the program's
    /// store.
    void editOnAnotherComputer() const {
        TestHost other(FirstContents::Welcome);
        const auto projects = other.library().knownDatabases().value(1);
        QCOMPARE(projects->name(), QStringLiteral("Projects"));
        const QList<Note> notes = projects->notes().value();
        for (Note note : notes) {
            note.text += QStringLiteral("There");
            QVERIFY(projects->saveNote(note));
        }
        const auto location = other.addLocation(Url::fileURL(store()).absoluteString());
        const auto state = other.addState(location, projects);
        state->setEnabled(true);
        other.engine().plugin().dispatcher()->performSynchronizationsWithSynchronizationStates(
            {state});
        QTRY_VERIFY(state->lastSynced().isValid());
    }
    QByteArray settings() const {
        QFile settings(home() + QStringLiteral("/.config/Velmora/Velmora.conf"));
        return settings.open(QIODevice::ReadOnly) ? settings.readAll() : QByteArray();
    }
    void start() const {
        m_program->start();
        m_program->awaitWindows();
    }
    bool isShown() const { return !m_display.window(QStringLiteral("^Velmora\\*?$")).isEmpty(); }
    void closeWindow() const {
        m_display.focus(m_program->mainWindow());
        m_display.press({QStringLiteral("ctrl+w")});
        QVERIFY(QTest::qWaitFor([this] { return !isShown(); }, EventTimeout));
        QVERIFY(m_program->isRunning());
    }
    /// Chooses an entry of the icon's menu as soon as it is there.
    void choose(const QString &title) const {
        QVERIFY2(QTest::qWaitFor([&] { return m_watcher->menu().contains(title); }, EventTimeout),
                 qPrintable(title + u'\n' + m_watcher->menu().join(u'\n')));
        QVERIFY(m_watcher->choose(title));
    }
    bool isStateShown(const QString &text) const {
        return QTest::qWaitFor([&] { return m_watcher->menu().value(0).contains(text); },
                               EventTimeout);
    }

private Q_SLOTS:
    void init() {
        m_watcher = std::make_unique<StatusNotifierWatcher>(m_desktop.busAddress());
        m_notifications = std::make_unique<NotificationService>(m_desktop.busAddress());
        m_program = std::make_unique<ShownProgram>(QStringLiteral(VELMORA), m_display);
        m_program->useSession(m_desktop.busAddress());
    }
    void cleanup() {
        m_program.reset();
        m_notifications.reset();
        m_watcher.reset();
    }

    void itIsOffUntilTheUserTurnsItOn() {
        start();
        m_display.press({QStringLiteral("alt+t"), QStringLiteral("b")});
        QTRY_COMPARE(m_watcher->items().size(), 1);
        QVERIFY(settings().contains("QVKeepSynchronizingInBackground=true"));
    }

    void theIconsMenuControlsTheSynchronization() {
        turnOn();
        start();
        QTRY_COMPARE(m_watcher->items().size(), 1);
        closeWindow();
        choose(QStringLiteral("Sync All Now"));
        QVERIFY(isStateShown(QStringLiteral("All up to date")));
        QVERIFY(!QDir(store() + QStringLiteral("/transactions")).isEmpty());
        choose(QStringLiteral("Pause for an Hour"));
        QVERIFY(isStateShown(QStringLiteral("Paused")));
        QVERIFY(!m_watcher->menu().contains(QStringLiteral("Pause until Tomorrow")));
        choose(QStringLiteral("Resume"));
        QVERIFY(isStateShown(QStringLiteral("All up to date")));
        choose(QStringLiteral("Pause until Tomorrow"));
        QVERIFY(isStateShown(QStringLiteral("Paused")));
        QVERIFY(!m_watcher->menu().contains(QStringLiteral("Pause for an Hour")));
        choose(QStringLiteral("Resume"));
        QVERIFY(isStateShown(QStringLiteral("All up to date")));
        choose(QStringLiteral("Show Velmora"));
        QVERIFY(QTest::qWaitFor([this] { return isShown(); }, EventTimeout));
        choose(QStringLiteral("Quit"));
        QVERIFY(m_program->awaitEnd());
    }

    void aFirstFailureIsNotified() {
        turnOn();
        start();
        QTRY_COMPARE(m_watcher->items().size(), 1);
        closeWindow();
        QVERIFY(QDir(store()).removeRecursively());
        for (int i = 0; i < 2; ++i) {
            choose(QStringLiteral("Sync All Now"));
            QVERIFY(isStateShown(QStringLiteral("not available")));
        }
        QTRY_COMPARE(m_notifications->messages().size(), 1);
        const NotificationService::Message message = m_notifications->messages().first();
        QCOMPARE(message.title, QStringLiteral("A synchronization failed"));
        QVERIFY(message.text.contains(store()));
        // A success ends the failure; the next one is a first one again.
        for (const char *folder : {"/databases", "/transactions"}) {
            QVERIFY(QDir().mkpath(store() + QLatin1StringView(folder)));
        }
        choose(QStringLiteral("Sync All Now"));
        QVERIFY(isStateShown(QStringLiteral("All up to date")));
        QVERIFY(QDir(store()).removeRecursively());
        choose(QStringLiteral("Sync All Now"));
        QTRY_COMPARE(m_notifications->messages().size(), 2);
        m_program->terminate();
        QVERIFY(m_program->awaitEnd());
        QCOMPARE(m_notifications->messages().size(), 2);
    }

    void withoutAPlaceForItsIconItSaysSoAndEnds() {
        turnOn();
        m_watcher.reset();
        const AccessibleScreen screen(m_desktop.busAddress());
        m_program->start();
        QVERIFY(screen.awaitText(QStringLiteral("Velmora cannot stay in the background")));
        QVERIFY(screen.perform(QStringLiteral("Do Not Stay in the Background")));
        QCOMPARE(screen.awaitNoText(QStringLiteral("Velmora cannot stay in the background")),
                 QStringList());
        QTRY_VERIFY(settings().contains("QVKeepSynchronizingInBackground=false"));
        m_program->terminate();
        QVERIFY(m_program->awaitEnd());
    }

    void whenThePanelEndsTheWindowComesBack() {
        turnOn();
        const AccessibleScreen screen(m_desktop.busAddress());
        start();
        QTRY_COMPARE(m_watcher->items().size(), 1);
        closeWindow();
        m_watcher.reset();
        QVERIFY(screen.awaitText(QStringLiteral("Velmora cannot stay in the background")));
        QVERIFY(isShown());
        m_program->terminate();
        QVERIFY(m_program->awaitEnd());
    }

    void aConflictIsNotified() {
        turnOn();
        start();
        QTRY_COMPARE(m_watcher->items().size(), 1);
        editOnAnotherComputer();
        // The first note of "Projects".
        const QString tab = QStringLiteral("Tab");
        m_display.press({QStringLiteral("Down"), tab, tab, tab, tab});
        m_display.type(QStringLiteral("Here"));
        QVERIFY(QTest::qWaitFor([&] { return m_program->isShownAsModified(); }, EventTimeout));
        closeWindow();
        choose(QStringLiteral("Sync All Now"));
        QTRY_COMPARE(m_notifications->messages().size(), 1);
        QCOMPARE(m_notifications->messages().first().title,
                 QStringLiteral("A note was edited on two computers"));
        m_program->terminate();
        QVERIFY(m_program->awaitEnd());
    }

    void aComputerThatWantsToPairIsNotified() {
        const quint16 port = freePort();
        turnOn(QStringLiteral("QVDirectConnectionServerEnabled=true\n"
                              "QVDirectConnectionServerPortNumber=%1\n")
                   .arg(port));
        const AccessibleScreen screen(m_desktop.busAddress());
        start();
        QTRY_COMPARE(m_watcher->items().size(), 1);
        closeWindow();
        TestHost other;
        const AskedUser otherUser;
        const auto store =
            other
                .newLocation(Url::fromString(
                    QStringLiteral("%1://127.0.0.1:%2").arg(DirectConnection::URLScheme).arg(port)))
                ->createStore();
        const auto opened = store->openWithCompletionHandler([](const auto & /*error*/) {});
        QTRY_COMPARE(m_notifications->messages().size(), 1);
        const NotificationService::Message message = m_notifications->messages().first();
        QCOMPARE(message.title, QStringLiteral("Velmora asks for a decision"));
        QVERIFY2(message.text.contains(QStringLiteral("synchronize with this computer?")),
                 qPrintable(message.text));
        // It is shown although the main window is hidden.
        QVERIFY(screen.awaitText(QStringLiteral("synchronize with this computer?")));
        const QRegularExpression code(QStringLiteral("^\\d{3}\u00a0\\d{3}$"));
        QVERIFY(!screen.texts().filter(code).isEmpty());
        QVERIFY(screen.perform(QStringLiteral("Refuse")));
        QCOMPARE(screen.awaitNoText(QStringLiteral("synchronize with this computer?")),
                 QStringList());
        opened->cancel();
        m_program->terminate();
        QVERIFY(m_program->awaitEnd());
    }
};

VELMORA_DISPLAY_TEST(BackgroundModeTest, AccessibleScreen::require())
#include "BackgroundModeTest.moc"
