#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLineEdit>

#include "Application/EventLog.h"
#include "Application/LocationRemovals.h"
#include "Application/MainWindow.h"
#include "Application/VelmoraApplication.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Platform/Interface/NotificationLabel.h"
#include "Platform/Interface/TableView.h"
#include "Scenarios/Panel.h"
#include "Support/SpokenTexts.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

/// A screen reader speaks what changes by itself: the result of a synchronization, a failure, when
/// the next one is due, and why a sheet cannot be accepted.
class SpokenChangesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;
    EventLog m_log;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<Panel> m_panel;
    std::shared_ptr<NoteDatabase> m_database;

    std::shared_ptr<QVSyncState> addState(const QString &URL) {
        const auto location = URL.isEmpty() ? m_host->addLocation() : m_host->addLocation(URL);
        const auto state = m_host->addState(location, m_database);
        state->setEnabled(true);
        m_host->save();
        return state;
    }
    void showPanel() {
        m_panel = std::make_unique<Panel>();
        m_panel->window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_panel->window()));
    }
    /// Waits for the sheet that `item` of the menu "Add" opens.
    void openSheet(const char *item) const {
        m_panel->choose(item);
        QTRY_VERIFY(m_panel->sheet());
        m_panel->sheet()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_panel->sheet()));
    }
    /// Returns whether `button` of the sheet cannot be pressed for the reason that `label` speaks.
    bool isOffBecauseOf(const char *button, const char *label) const {
        const auto *off = m_panel->inSheet<QAbstractButton>(button);
        const auto *reason = m_panel->inSheet<NotificationLabel>(label);
        return !off->isEnabled() && reason->isVisible() && !reason->text().isEmpty() &&
               off->accessibleDescription() == reason->text();
    }
    void synchronize(const std::shared_ptr<QVSyncState> &state) const {
        m_host->engine().plugin().dispatcher()->performSynchronizationsWithSynchronizationStates(
            {state});
    }

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }
    void init() {
        m_host = std::make_unique<TestHost>();
        m_database = m_host->addDatabase(QStringLiteral("Projects"));
        Note note{{}, QStringLiteral("Title"), QStringLiteral("Text"), {}};
        QVERIFY(m_database->saveNote(note));
        m_window = std::make_unique<MainWindow>(&m_host->library(), &m_log, m_host->directory());
        m_window->show();
    }
    void cleanup() {
        m_panel.reset();
        m_window.reset();
        m_database.reset();
        m_host.reset();
    }

    void theResultIsSpokenInThePanel() {
        const auto state = addState({});
        showPanel();
        const SpokenTexts spoken(*m_panel->window());
        synchronize(state);
        QTRY_VERIFY(spoken.last().startsWith(QStringLiteral("All up to date")));
    }

    void theResultIsSpokenInTheMainWindow() {
        const auto state = addState({});
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        const SpokenTexts spoken(*m_window);
        synchronize(state);
        QTRY_VERIFY(spoken.last().startsWith(QStringLiteral("All up to date")));
    }

    void aFailureIsSpoken() {
        const auto state = addState(QStringLiteral("http://127.0.0.1:1/Shared.qvSyncStore"));
        showPanel();
        const SpokenTexts spoken(*m_panel->window());
        synchronize(state);
        QTRY_VERIFY(spoken.last().startsWith(QStringLiteral("“Projects”")));
        QVERIFY2(spoken.last().contains(QStringLiteral("127.0.0.1")),
                 qPrintable(spoken.texts().join(u'\n')));
    }

    void anAddressThatIsRightIsNotSpokenLetterByLetter() {
        showPanel();
        openSheet("addWebDAVItem");
        QVERIFY(isOffBecauseOf("acceptButton", "addressLabel"));
        const SpokenTexts spoken(*m_panel->sheet());
        auto *server = m_panel->inSheet<QLineEdit>("serverField");
        QTest::keyClicks(m_panel->inSheet<QLineEdit>("storeField"), QStringLiteral("Notes"));
        QTest::keyClicks(server, QStringLiteral("dav.example.com"));
        const QString address = m_panel->inSheet<QLabel>("addressLabel")->text();
        QVERIFY2(address.contains(QStringLiteral("dav.example.com")), qPrintable(address));
        // Not each letter of an address that is right.
        QVERIFY2(spoken.texts().size() <= 3, qPrintable(spoken.texts().join(u'\n')));
        server->clear();
        QTest::keyClicks(server, QStringLiteral(" "));
        QTest::keyClick(server, Qt::Key_Backspace);
        QVERIFY(isOffBecauseOf("acceptButton", "addressLabel"));
        m_panel->sheet()->reject();
    }

    void whatIsWrongWithAnAddressIsSpokenWhileItIsTyped() {
        showPanel();
        openSheet("addWebDAVItem");
        const SpokenTexts spoken(*m_panel->sheet());
        QTest::keyClicks(m_panel->inSheet<QLineEdit>("serverField"), QStringLiteral("my attic"));
        QVERIFY2(spoken.last().startsWith(QStringLiteral("A server name contains no blanks.")),
                 qPrintable(spoken.texts().join(u'\n')));
        QVERIFY(isOffBecauseOf("acceptButton", "addressLabel"));
        m_panel->sheet()->reject();
    }

    void whatADirectConnectionLacksIsSpoken() {
        showPanel();
        openSheet("addDirectConnectionItem");
        QVERIFY(isOffBecauseOf("acceptButton", "problemLabel"));
        const SpokenTexts spoken(*m_panel->sheet());
        auto *host = m_panel->inSheet<QLineEdit>("hostField");
        QTest::keyClicks(host, QStringLiteral("my attic"));
        QVERIFY(spoken.last().startsWith(QStringLiteral("“my a")));
        QVERIFY(isOffBecauseOf("acceptButton", "problemLabel"));
        host->clear();
        QTest::keyClicks(host, QStringLiteral("attic"));
        QVERIFY(m_panel->inSheet<QAbstractButton>("acceptButton")->isEnabled());
        QVERIFY(m_panel->inSheet<QLabel>("problemLabel")->isHidden());
        m_panel->sheet()->reject();
    }

    void whatAnImportLacksAndItsFailureAreSpoken() {
        m_host->addLocation(QStringLiteral("http://127.0.0.1:1/Shared.qvSyncStore"));
        m_host->save();
        showPanel();
        m_panel->press("importButton");
        QTRY_VERIFY(m_panel->sheet());
        m_panel->sheet()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_panel->sheet()));
        QVERIFY(isOffBecauseOf("continueButton", "chooseLocationLabel"));
        const SpokenTexts spoken(*m_panel->sheet());
        m_panel->inSheet<TableView>("locationsTable")->selectRow(0);
        QVERIFY(m_panel->inSheet<QLabel>("chooseLocationLabel")->isHidden());
        m_panel->inSheet<QAbstractButton>("continueButton")->click();
        QTRY_VERIFY(spoken.last().contains(QStringLiteral("127.0.0.1")));
        m_panel->sheet()->reject();
    }

    void aRemovalIsSpoken() {
        m_host->addLocation(QStringLiteral("https://dav.example.com/Shared.qvSyncStore"));
        m_host->save();
        PreferencesWindow window(std::make_unique<QVSyncPreferences>());
        window.setAttribute(Qt::WA_DeleteOnClose, false);
        LocationRemovals removals(&m_host->locations());
        window.showRemovals(&removals, [] { return failure(Error()); });
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        const SpokenTexts spoken(window);
        m_host->locations().removeObjectFromSyncLocationsAtIndex(0);
        m_host->save();
        QTRY_VERIFY(spoken.last().contains(QStringLiteral("was removed")));
        window.close();
    }

    void theNextDateIsSpoken() {
        addState({});
        showPanel();
        Panel::select(Panel::databaseRow(QStringLiteral("Projects")));
        const QString before = m_panel->text("nextScheduledDateLabel");
        const SpokenTexts spoken(*m_panel->window());
        m_panel->find<QAbstractButton>("hourlyButton")->click();
        QTRY_VERIFY(m_panel->text("nextScheduledDateLabel") != before);
        QVERIFY(spoken.texts().contains(m_panel->text("nextScheduledDateLabel")));
    }
};

VELMORA_TEST_PROGRAM(SpokenChangesTest)(int argumentCount, char **arguments) {
    prepareTestProcess();
    const VelmoraApplication application(argumentCount, arguments);
    SpokenChangesTest test;
    return QTest::qExec(&test, argumentCount, arguments);
}
#include "SpokenChangesTest.moc"
