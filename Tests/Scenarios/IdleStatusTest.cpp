#include "Application/EventLog.h"
#include "Application/MainWindow.h"
#include "Application/VelmoraApplication.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Engine/Schedules/EngineDailySchedule.h"
#include "Scenarios/Panel.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

/// While nothing runs, the panel says how the synchronization stands, as the main window does.
class IdleStatusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void thePanelSaysWhetherAllIsUpToDateAndWhatIsNext() {
        registerSyncPreferencesInterface();
        TestHost host;
        EventLog log;
        const auto database = host.addDatabase(QStringLiteral("Projects"));
        Note note{{}, QStringLiteral("Title"), QStringLiteral("Text"), {}};
        QVERIFY(database->saveNote(note));
        static_cast<VelmoraApplication *>(qApp)->setDarkAppearance(true);
        const MainWindow window(&host.library(), &log, host.directory());
        const auto state = host.addState(host.addLocation(), database);
        const Panel panel;
        QCOMPARE(panel.text("activityLabel"),
                 QStringLiteral("Nothing is synchronized: no database has a ticked location"));
        // On a dark window the text is light.
        const QImage picture = panel.find<QLabel>("activityLabel")->grab().toImage();
        int lightest = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                lightest = qMax(lightest, picture.pixelColor(x, y).lightness());
            }
        }
        QVERIFY2(lightest > 180, qPrintable(QString::number(lightest)));
        state->setEnabled(true);
        state->setSchedule(std::make_shared<EngineDailySchedule>(HourAndMinute{12, 0}));
        host.save();
        QTRY_VERIFY(panel.text("activityLabel")
                        .startsWith(QStringLiteral("“Projects” has not been "
                                                   "synchronized with “Store 0” yet · next: ")));
        host.engine().plugin().dispatcher()->performSynchronizationsWithSynchronizationStates(
            {state});
        QTRY_VERIFY(
            panel.text("activityLabel").startsWith(QStringLiteral("All up to date · next: ")));
    }
};

VELMORA_TEST_PROGRAM(IdleStatusTest)(int argumentCount, char **arguments) {
    prepareTestProcess();
    const VelmoraApplication application(argumentCount, arguments);
    IdleStatusTest test;
    return QTest::qExec(&test, argumentCount, arguments);
}
#include "IdleStatusTest.moc"
