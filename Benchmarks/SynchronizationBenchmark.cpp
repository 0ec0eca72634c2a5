#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <ctime>

#include "Benchmarks/Benchmark.h"
#include "Engine/Plugin/EngineClasses.h"
#include "Engine/Plugin/SyncEngine.h"
#include "Host/QVApplication.h"

using Benchmark::require;

namespace {

constexpr int NoteCount = 10000;

/// An engine with its own profile, like a separate computer.
class Computer : public QVApplication {
public:
    Computer(const QString &profile, const QString &store) {
        setNSApp(this);
        require(m_engine.openProfile(profile, FirstContents::Inbox));
        m_location = m_engine.plugin().newLocation(Url::fileURL(store));
        m_engine.plugin().locationsController()->insertObjectInSyncLocationsAtIndex(m_location, 0);
    }
    ~Computer() override { setNSApp(nullptr); }

    /// Creates the database and its notes; returns its UUID.
    QString makeNotes() {
        require(m_engine.library()->createDatabase(QStringLiteral("Notes")));
        const auto database = m_engine.library()->synchronizedDatabase(
            m_engine.library()->knownDatabases().last()->UUID());
        require(m_engine.profile().write([&]() -> Expected<void> {
            for (int i = 0; i < NoteCount; ++i) {
                Note note{{},
                          QStringLiteral("Note %1").arg(i),
                          text(i),
                          QDateTime::fromMSecsSinceEpoch(1700000000000 + i)};
                require(database->log().save(note));
            }
            return {};
        }));
        return database->UUID();
    }

    void synchronize(const QString &UUID) {
        QEventLoop loop;
        const auto state = m_location->addStateForDatabaseWithUUID(UUID, QStringLiteral("Notes"));
        state->setEnabled(true);
        m_engine.plugin().dispatcher()->performSynchronizationsWithSynchronizationStates(
            {state}, [&] { loop.quit(); });
        loop.exec();
    }

    qsizetype notes(const QString &UUID) const {
        const auto database =
            const_cast<SyncEngine &>(m_engine).library()->synchronizedDatabase(UUID);
        return database ? database->notes().value().size() : 0;
    }

    static QString text(int i) {
        return QStringLiteral("What note %1 says, line by line.\n").arg(i).repeated(16);
    }

    std::shared_ptr<QVDatabase> inbox() const override { return nullptr; }
    void logItemCmd(const QString & /*title*/, const QString & /*info*/) override {}
    void presentError(const Error & /*error*/) override {}

private:
    SyncEngine m_engine;
    EngineClasses m_classes{m_engine};
    std::shared_ptr<EngineSyncLocation> m_location;
};

double milliseconds(const std::function<void()> &work) {
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double processorMillisecondsOf(const std::function<void()> &work) {
    const std::clock_t start = std::clock();
    work();
    return static_cast<double>(std::clock() - start) * 1000 / CLOCKS_PER_SEC;
}

/// Returns the time that `cp -r` takes for the same notes as files.
double timeToCopy(const QString &folder) {
    const QString from = folder + QStringLiteral("/notes");
    QDir().mkpath(from);
    for (int i = 0; i < NoteCount; ++i) {
        QFile file(from + QStringLiteral("/Note %1.txt").arg(i));
        if (!file.open(QIODevice::WriteOnly) || file.write(Computer::text(i).toUtf8()) < 0) {
            qFatal("cannot write the notes");
        }
    }
    return milliseconds([&] {
        QProcess::execute(QStringLiteral("cp"),
                          {QStringLiteral("-r"), from, folder + QStringLiteral("/copy")});
    });
}

void measureSynchronization(Benchmark::Report &report) {
    const QTemporaryDir folder;
    const QString store = folder.filePath(QStringLiteral("Store.qvSyncStore"));
    QDir().mkpath(store + QStringLiteral("/databases"));
    QDir().mkpath(store + QStringLiteral("/transactions"));
    QString UUID;
    double time = 0;
    double idle = 0;
    {
        Computer computer(folder.filePath(QStringLiteral("A")), store);
        UUID = computer.makeNotes();
        time += milliseconds([&] { computer.synchronize(UUID); });
        idle = processorMillisecondsOf([&] { computer.synchronize(UUID); });
    }
    {
        Computer computer(folder.filePath(QStringLiteral("B")), store);
        time += milliseconds([&] { computer.synchronize(UUID); });
        if (computer.notes(UUID) != NoteCount) {
            qFatal("notes were lost");
        }
    }
    report.add({QStringLiteral("10,000 notes there and into another profile / cp -r"), time,
                timeToCopy(folder.path()), QStringLiteral("ms"), 4.0});
    report.add({QStringLiteral("Synchronizing 10,000 notes that are there / 50 ms"), idle, 50,
                QStringLiteral("ms"), 1.0});
}

const Benchmark::Suite synchronizationSuite(QStringLiteral("synchronization"),
                                            &measureSynchronization);

}  // namespace
