#include <malloc.h>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>
#include <ctime>
#include <functional>
#include <memory>
#include <vector>

#include "Benchmarks/Benchmark.h"
#include "Controller/Preferences/QVSyncPreferences.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Engine/Plugin/EngineClasses.h"
#include "Engine/Plugin/SyncEngine.h"
#include "Host/QVApplication.h"
#include "Host/QVSyncLocationsController.h"
#include "Support/PeakMemory.h"

namespace {

/// An engine whose profile has a given number of databases and locations, and a state for each
/// pair.
class Host : public QVApplication {
public:
    Host(int databases, int locations) {
        setNSApp(this);
        Benchmark::require(m_engine.openProfile(m_folder.filePath(QStringLiteral("profile")),
                                                FirstContents::Inbox));
        // What is measured does not write.
        Benchmark::require(m_engine.profile().value(QStringLiteral("PRAGMA synchronous = OFF")));
        for (int i = 1; i < databases; ++i) {
            Benchmark::require(
                m_engine.library()->createDatabase(QStringLiteral("Database %1").arg(i)));
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

/// What something costs.
struct Cost {
    double milliseconds = 0;
    double megabytes = 0;
};

/// Returns the CPU time of `work`, and how much more memory than before it takes at most.
Cost costOf(const std::function<void()> &work) {
    malloc_trim(0);
    const PeakMemory memory;
    const double start = processorMilliseconds();
    work();
    return {processorMilliseconds() - start, static_cast<double>(memory.growth())};
}

Cost costToShow(int databases, int locations) {
    const Host host(databases, locations);
    return costOf([] { timeToShow(); });
}

/// Returns the cost of so many objects of which each is connected with a receiver.
Cost costOfObjects(int count) {
    return costOf([count] {
        std::vector<std::unique_ptr<QObject>> objects;
        QObject receiver;
        for (int i = 0; i < count; ++i) {
            objects.push_back(std::make_unique<QObject>());
            QObject::connect(objects.back().get(), &QObject::objectNameChanged, &receiver, [] {});
        }
    });
}

void measureLargePane(Benchmark::Report &report) {
    registerSyncPreferencesInterface();
    constexpr int locations = 100;
    constexpr int largest = 10'000;
    // The first pane loads what the others use, too.
    costToShow(1, 1);
    QList<Benchmark::Point> times;
    QList<Benchmark::Point> memory;
    for (const int databases : {largest / 100, largest / 10, largest}) {
        const Cost cost = costToShow(databases, locations);
        times.append({double(databases), cost.milliseconds});
        memory.append({double(databases), cost.megabytes});
    }
    const Cost objects = costOfObjects(largest * locations);
    report.add({QStringLiteral("10,000 databases × 100 locations shown / 1,000,000 QObjects"),
                times.last().value, objects.milliseconds, QStringLiteral("ms"), 4.0, times});
    report.add({QStringLiteral("the same, memory"), memory.last().value, objects.megabytes,
                QStringLiteral("MB"), 2.0, memory});
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
const Benchmark::Suite largeSuite(QStringLiteral("large pane"), &measureLargePane,
                                  Benchmark::Duration::Long);

}  // namespace
