#include "Support/HostileStore.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include "Application/ConflictBar.h"
#include "Application/EventLog.h"
#include "Application/MainWindow.h"
#include "Application/NotesList.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Controller/QVImportDatabasesController.h"
#include "Platform/Interface/TableView.h"
#include "Support/PeakMemory.h"
#include "Support/StallMeter.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

/// Milliseconds that the window may not respond, and megabytes that it may take. Generous for a
/// sanitized build.
constexpr qint64 LongestWorkOfWindow = 2000;
constexpr qint64 LargestGrowthOfWindow = 200;

}  // namespace

/// The windows respond while they show what a hostile store contains.
class HostileStoreTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;

    static void verify(StallMeter &meter, const PeakMemory &memory) {
        const QString figures = QStringLiteral("%1: work %2 ms, stall %3 ms, %4 MB")
                                    .arg(QString::fromUtf8(QTest::currentDataTag()))
                                    .arg(meter.longestWork())
                                    .arg(meter.longest())
                                    .arg(memory.growth());
        qInfo("%s", qPrintable(figures));
        QVERIFY2(meter.longestWork() <= LongestWorkOfWindow, qPrintable(figures));
        QVERIFY2(memory.growth() <= LargestGrowthOfWindow, qPrintable(figures));
    }

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }
    void init() {
        m_host = std::make_unique<TestHost>();
        m_host->leaveUnverified("the stores contain what no program writes");
    }
    void cleanup() { m_host.reset(); }

    void theImportSheetIsBounded_data() {
        QTest::addColumn<int>("databases");
        QTest::addColumn<int>("nameSize");
        QTest::addColumn<int>("shown");
        QTest::newRow("80,000 databases with names of 20 characters") << 80'000 << 20 << 0;
        QTest::newRow("40,000 databases with names of 4,080 characters") << 40'000 << 4080 << 0;
        QTest::newRow("10,000 databases with names of 4,080 characters") << 10'000 << 4080 << 0;
        QTest::newRow("10,000 databases with names of 20 characters") << 10'000 << 20 << 10'000;
        QTest::newRow("980 databases with names of 4,080 characters") << 980 << 4080 << 980;
    }
    void theImportSheetIsBounded() {
        QFETCH(const int, databases);
        QFETCH(const int, nameSize);
        QFETCH(const int, shown);
        const ScriptedServer server(HostileStore::databases(databases, nameSize),
                                    ScriptedServer::Order::AllAtOnce);
        const auto location = m_host->addLocation(server.URLText(HostileStore::Path));
        QWidget parent;
        parent.show();
        const auto controller = QVImportDatabasesController::newController();
        controller->runImportDatabasesSheetModalForWindow(&parent, [] {});
        const auto *table =
            controller->window()->findChild<TableView *>(QStringLiteral("databasesTable"));
        const PeakMemory memory;
        StallMeter meter;
        controller->fetchDatabasesForLocation(location);
        QTRY_VERIFY_WITH_TIMEOUT(!controller->isActive(), 120'000);
        QCOMPARE(table->rowCount(), shown);
        QCOMPARE(controller->remoteErrorText().contains(QStringLiteral("too many databases")),
                 shown == 0);
        QTest::qWait(0);
        verify(meter, memory);
        controller->cancelModalSheet(nullptr);
    }

    void theListOfNotesIsBounded_data() {
        QTest::addColumn<int>("edits");
        QTest::newRow("30,000 conflicting edits") << 30'000;
    }
    void theListOfNotesIsBounded() {
        QFETCH(const int, edits);
        const auto location = m_host->addLocation();
        HostileStore::writeRecords(location->URL().path(), HostileStore::conflictingEdits(edits));
        const auto state = m_host->addState(location, m_host->inbox());
        state->setEnabled(true);
        m_host->save();
        EventLog log;
        MainWindow window(&m_host->library(), &log, m_host->directory());
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const PeakMemory memory;
        StallMeter meter;
        bool isDone = false;
        m_host->engine().plugin().dispatcher()->performSynchronizationsWithSynchronizationStates(
            {state}, [&] { isDone = true; });
        QTRY_VERIFY_WITH_TIMEOUT(isDone, 240'000);
        QVERIFY(state->lastSynced().isValid());
        auto *notes = window.findChild<NotesList *>();
        QTRY_VERIFY(notes->count() > 1);
        QCOMPARE_LT(notes->count(), 1000);
        notes->setCurrentRow(0);
        const auto *bar = window.findChild<ConflictBar *>();
        QTRY_VERIFY(bar->isVisible());
        QVERIFY(bar->findChild<QLabel *>()->text().contains(QStringLiteral("in more places")));
        verify(meter, memory);
    }
};

VELMORA_TEST(HostileStoreTest)
#include "HostileStoreTest.moc"
