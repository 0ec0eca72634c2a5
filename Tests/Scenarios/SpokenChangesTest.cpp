#include <QtWidgets/QAbstractButton>

#include "Application/EventLog.h"
#include "Application/MainWindow.h"
#include "Application/VelmoraApplication.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Scenarios/Panel.h"
#include "Support/SpokenTexts.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

/// A screen reader speaks what changes by itself: the result of a synchronization, a failure, and
/// when the next one is due.
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
