#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <algorithm>
#include <ctime>

#include "Benchmarks/Benchmark.h"

namespace {

constexpr int Runs = 9;
constexpr int Timeout = 60'000;

/// What a start of a program costs.
struct Start {
    double milliseconds = 0;
    double processorMilliseconds = 0;
    double megabytes = 0;
};

double monotonicNanoseconds() {
    timespec time = {};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_nsec);
}

/// Starts programs with a home folder of their own.
class Starter {
public:
    Starter() {
        m_environment.insert(QStringLiteral("HOME"), m_folder.path());
        m_environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_folder.path());
        for (const char *name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"}) {
            m_environment.remove(QString::fromLatin1(name));
        }
        m_environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        m_environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(FIRST_PAINT_FOLDER));
        m_environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"),
                             QStringLiteral("FirstPaint"));
    }

    /// Returns the costs until the first window is painted, and the resident memory a second later.
    Start start(const QString &program, const QStringList &arguments = {}) const {
        QProcess process;
        process.setProcessEnvironment(m_environment);
        const double begin = monotonicNanoseconds();
        process.start(program, arguments);
        if (!process.waitForFinished(Timeout)) {
            qFatal("%s does not end.", qPrintable(program));
        }
        const QByteArrayList values = process.readAllStandardOutput().trimmed().split(' ');
        if (values.size() != 3) {
            qFatal("%s shows no window: %s", qPrintable(program),
                   process.readAllStandardError().constData());
        }
        return {(values.at(0).toDouble() - begin) / 1e6, values.at(1).toDouble() / 1e6,
                values.at(2).toDouble() / 1000};
    }

private:
    QTemporaryDir m_folder;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
};

double medianOf(const QList<Start> &starts, double Start::*value) {
    QList<double> values;
    for (const Start &start : starts) {
        values.append(start.*value);
    }
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

void run(Benchmark::Report &report) {
    const Starter starter;
    const QString velmora = QStringLiteral(VELMORA);
    const QString minimal = QStringLiteral(MINIMAL_PROGRAM);
    // Makes the profile.
    starter.start(velmora, {QStringLiteral("--begin"), QStringLiteral("examples")});
    starter.start(minimal);
    QList<Start> ours;
    QList<Start> reference;
    for (int i = 0; i < Runs; ++i) {
        ours.append(starter.start(velmora));
        reference.append(starter.start(minimal));
    }
    const auto add = [&](const char *name, double Start::*value, const char *unit,
                         std::optional<double> target) {
        report.add({QString::fromUtf8(name), medianOf(ours, value), medianOf(reference, value),
                    QString::fromUtf8(unit), target});
    };
    add("first painted window, elapsed time / minimal Qt Widgets program", &Start::milliseconds,
        "ms", 2.5);
    add("the same, CPU time", &Start::processorMilliseconds, "ms", std::nullopt);
    add("resident memory a second later / that of the minimal program", &Start::megabytes, "MB",
        1.8);
}

const Benchmark::Suite suite(QStringLiteral("start"), &run);

}  // namespace
