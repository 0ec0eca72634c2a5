#include <QtCore/QThreadPool>
#include <QtCore/QUuid>
#include <QtWidgets/QApplication>
#include <ctime>

#include "Benchmarks/Benchmark.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Controller/QVImportDatabasesController.h"
#include "Support/ScriptedLocation.h"
#include "Support/TestHost.h"

namespace {

QString UUID(int i) {
    return QUuid::createUuidV5(QUuid(), QString::number(i)).toString(QUuid::WithoutBraces);
}

/// A given number of databases, and a location that contains them and more.
class ManyDatabases {
public:
    ManyDatabases(int records, int localDatabases) {
        // What is measured does not write.
        Benchmark::require(
            m_host.engine().profile().value(QStringLiteral("PRAGMA synchronous = OFF")));
        for (int i = 0; i < localDatabases; ++i) {
            Benchmark::require(m_host.library().importDatabase(UUID(i), UUID(i)));
        }
        const auto location = std::make_shared<ScriptedLocation>(&m_script);
        m_location = location;
        QVRemoteDatabases fetched;
        for (int i = 0; i < records; ++i) {
            fetched.append(location->record(UUID(i), UUID(i)));
        }
        m_script.databases = fetched;
    }

    /// Returns the CPU time from choosing the location until the sheet shows the list.
    double timeToList() const {
        QWidget parent;
        const auto sheet = QVImportDatabasesController::newController();
        sheet->runImportDatabasesSheetModalForWindow(&parent, [] {});
        const std::clock_t start = std::clock();
        sheet->fetchDatabasesForLocation(m_location);
        while (sheet->isActive()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        QThreadPool::globalInstance()->waitForDone();
        const std::clock_t end = std::clock();
        sheet->cancelModalSheet(nullptr);
        return static_cast<double>(end - start) * 1000 / CLOCKS_PER_SEC;
    }

private:
    TestHost m_host;
    StoreScript m_script;
    std::shared_ptr<QVSyncLocation> m_location;
};

double medianTimeToList(int records, int localDatabases) {
    const ManyDatabases databases(records, localDatabases);
    return Benchmark::median([&] { return databases.timeToList(); });
}

void measureImport(Benchmark::Report &report) {
    registerSyncPreferencesInterface();
    const double whole = medianTimeToList(100000, 10000);
    const auto unit = QStringLiteral("ms");
    report.add({QStringLiteral("100,000 records beside 10,000 databases / five times 20,000"),
                whole, 5 * medianTimeToList(20000, 10000), unit, 1.5});
    report.add({QStringLiteral("100,000 records beside 10,000 databases / beside 100"), whole,
                medianTimeToList(100000, 100), unit, 1.5});
}

const Benchmark::Suite importSuite(QStringLiteral("import"), &measureImport);

}  // namespace
