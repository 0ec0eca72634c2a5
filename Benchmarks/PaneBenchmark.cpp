#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>
#include <ctime>

#include "Benchmarks/Benchmark.h"
#include "Controller/Preferences/QVSyncPreferences.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Engine/Plugin/EngineClasses.h"
#include "Engine/Plugin/SyncEngine.h"
#include "Host/QVApplication.h"
#include "Host/QVSyncLocationsController.h"

namespace {

/// An engine whose profile has a given number of databases and locations, and a state for each
/// pair.
class Host : public QVApplication {
public:
    Host(int databases, int locations) {
        setNSApp(this);
        m_engine.openProfile(m_folder.filePath(QStringLiteral("profile")), FirstContents::Inbox);
        for (int i = 1; i < databases; ++i) {
            m_engine.library()->createDatabase(QStringLiteral("Database %1").arg(i));
        }
        QVSyncLocationsController *controller = m_engine.plugin().locationsController();
        for (int i = 0; i < locations; ++i) {
            const auto location = m_engine.plugin().newLocation(Url::fromString(
                QStringLiteral("https://u@host%1.example/Store.qvSyncStore").arg(i)));
            for (const auto &database : m_engine.library()->knownDatabases()) {
                location->addStateForDatabaseWithUUID(database->UUID(), database->name());
            }
            controller->insertObjectInSyncLocationsAtIndex(location, i);
        }
    }
    ~Host() override { setNSApp(nullptr); }

    std::shared_ptr<QVDatabase> inbox() const override {
        return const_cast<SyncEngine &>(m_engine).library()->inbox();
    }
    void logItemCmd(const QString & /*title*/, const QString & /*info*/) override {}
    void presentError(const Error & /*error*/) override {}

private:
    QTemporaryDir m_folder;
    SyncEngine m_engine;
    EngineClasses m_classes{m_engine};
};

double processorMilliseconds() {
    return static_cast<double>(std::clock()) * 1000 / CLOCKS_PER_SEC;
}

/// Returns the time from creating the pane until it is painted.
double timeToShow() {
    const double start = processorMilliseconds();
    QVSyncPreferences pane;
    pane.loadMainView();
    pane.mainView()->resize(760, 600);
    pane.mainView()->show();
    pane.willSelect();
    QCoreApplication::processEvents();
    pane.mainView()->repaint();
    return processorMilliseconds() - start;
}

double medianTimeToShow(int databases, int locations) {
    const Host host(databases, locations);
    return Benchmark::median(&timeToShow);
}

void run(Benchmark::Report &report) {
    registerSyncPreferencesInterface();
    const double whole = medianTimeToShow(1000, 100);
    const auto unit = QStringLiteral("ms");
    report.add({QStringLiteral("1,000 databases × 100 locations shown / twice 500 × 100"), whole,
                2 * medianTimeToShow(500, 100), unit, 1.2});
    report.add({QStringLiteral("1,000 databases × 100 locations shown / twice 1,000 × 50"), whole,
                2 * medianTimeToShow(1000, 50), unit, 1.2});
    report.add({QStringLiteral("1 database × 1,000 locations shown / ten times 1 × 100"),
                medianTimeToShow(1, 1000), 10 * medianTimeToShow(1, 100), unit, 1.5});
}

const Benchmark::Suite suite(QStringLiteral("pane"), &run);

}  // namespace
