#include <QtWidgets/QCheckBox>
#include <csignal>

#include "Application/EndSignals.h"
#include "Application/EventLog.h"
#include "Application/MainWindow.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Scenarios/Panel.h"
#include "Support/TestHost.h"

/// A tick that could not be saved when it was made is saved later.
class UnsavedTicksTest : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<TestHost> m_host;
    EventLog m_log;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<Panel> m_panel;

    static void tick() {
        Panel::select(Panel::databaseRow(0));
        auto *box = Panel::locationRow(0)->findChild<QCheckBox *>(QStringLiteral("rowCheckBox"));
        QTRY_VERIFY(box->isEnabled());
        box->click();
        QVERIFY(box->isChecked());
    }
    bool isTickSaved() {
        m_panel.reset();
        m_window.reset();
        m_host->restart();
        const auto states = m_host->locations().syncLocations().first()->synchronizationStates();
        return states.size() == 1 && states.first()->isEnabled();
    }

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }
    void init() {
        m_host = std::make_unique<TestHost>();
        m_host->addLocation();
        m_host->save();
        m_window = std::make_unique<MainWindow>(&m_host->library(), &m_log, m_host->directory());
        m_panel = std::make_unique<Panel>();
    }
    void cleanup() {
        m_host->letSavesPass();
        m_panel.reset();
        m_window.reset();
        m_host.reset();
    }

    void theSignalToEndSavesThem() {
        m_host->makeSavesFail();
        tick();
        qobject_cast<PreferencesWindow *>(m_panel->window())->closeInAnyCase();
        m_host->letSavesPass();
        const EndSignals endSignals;
        connect(&endSignals, &EndSignals::received, m_window.get(), &MainWindow::saveAll);
        const QSignalSpy received(&endSignals, &EndSignals::received);
        QCOMPARE(::raise(SIGTERM), 0);
        QTRY_COMPARE(received.size(), 1);
        QVERIFY(isTickSaved());
    }

    void theWindowStaysOpenUntilTheyAreSaved() {
        m_host->makeSavesFail();
        tick();
        const qsizetype errors = m_host->application().presentedErrors().size();
        QVERIFY(!m_panel->window()->close());
        QVERIFY(m_panel->window()->isVisible());
        QCOMPARE(m_host->application().presentedErrors().size(), errors + 1);
        m_host->letSavesPass();
        QVERIFY(m_panel->window()->close());
        QVERIFY(isTickSaved());
    }
};

VELMORA_TEST(UnsavedTicksTest)
#include "UnsavedTicksTest.moc"
