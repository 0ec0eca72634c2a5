#include "Benchmarks/Benchmark.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QMap>
#include <QtWidgets/QApplication>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <vector>

#include "Benchmarks/Plot.h"
#include "Support/TestMain.h"

using namespace Benchmark;

namespace {

struct RegisteredSuite {
    std::function<void(Report &)> run;
    Duration duration = Duration::Short;
};

QMap<QString, RegisteredSuite> &suites() {
    static QMap<QString, RegisteredSuite> suites;
    return suites;
}

double nanosecondsOf(clockid_t clock) {
    timespec time = {};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_nsec);
}

double nanosecondsFor(const Report::Work &work, int calls) {
    const double start = processorNanoseconds();
    for (int i = 0; i < calls; ++i) {
        work();
    }
    return processorNanoseconds() - start;
}

/// Returns the number of calls that take about the duration of a sample; finding it warms
/// everything up.
int callsPerSample(const Report::Work &work) {
    constexpr double sampleNanoseconds = 500'000;
    constexpr int maximum = 1 << 20;
    int calls = 1;
    while (calls < maximum && nanosecondsFor(work, calls) < sampleNanoseconds) {
        calls *= 2;
    }
    return calls;
}

double medianOf(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<qsizetype>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

QByteArray json(const QString &suite, const Row &row) {
    QJsonObject object{
        {QStringLiteral("suite"), suite},   {QStringLiteral("name"), row.name},
        {QStringLiteral("ours"), row.ours}, {QStringLiteral("reference"), row.reference},
        {QStringLiteral("unit"), row.unit}, {QStringLiteral("ratio"), row.ratio()}};
    if (row.target) {
        object.insert(QStringLiteral("target"), *row.target);
    }
    if (!row.points.isEmpty()) {
        QJsonArray points;
        for (const Point &point : row.points) {
            points.append(QJsonArray{point.size, point.value});
        }
        object.insert(QStringLiteral("points"), points);
    }
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

void print(const Row &row) {
    const QString target = row.target ? QString::number(*row.target, 'f', 2) : QString();
    const QString line = QStringLiteral("  %1 %2 %3 %4 %5 %6%7")
                             .arg(row.name, -58)
                             .arg(row.ours, 10, 'f', 2)
                             .arg(row.reference, 10, 'f', 2)
                             .arg(row.unit, -5)
                             .arg(row.ratio(), 6, 'f', 2)
                             .arg(target, 5)
                             .arg(row.isMissed() ? QStringLiteral("  MISSED") : QString());
    std::puts(qPrintable(line));
    std::fflush(stdout);
}

void printHeading(const QString &suite) {
    const QString line = QStringLiteral("%1 %2 %3 %4 %5 %6")
                             .arg(suite, -60)
                             .arg(QStringLiteral("ours"), 10)
                             .arg(QStringLiteral("reference"), 10)
                             .arg(QStringLiteral("unit"), -5)
                             .arg(QStringLiteral("ratio"), 6)
                             .arg(QStringLiteral("target"), 5);
    std::puts(qPrintable(line));
}

Row measured(const QString &name, const Report::Work &ours, const Report::Work &reference,
             std::optional<double> target) {
    constexpr int samples = 25;
    const int oursCalls = callsPerSample(ours);
    const int referenceCalls = callsPerSample(reference);
    std::vector<double> oursTimes;
    std::vector<double> referenceTimes;
    for (int i = 0; i < samples; ++i) {
        oursTimes.push_back(nanosecondsFor(ours, oursCalls) / oursCalls);
        referenceTimes.push_back(nanosecondsFor(reference, referenceCalls) / referenceCalls);
    }

    Row row{name, medianOf(oursTimes), medianOf(referenceTimes), QStringLiteral("ns"), target};
    for (const QString &unit : {QStringLiteral("µs"), QStringLiteral("ms")}) {
        if (row.reference >= 10'000) {
            row.ours /= 1000;
            row.reference /= 1000;
            row.unit = unit;
        }
    }
    return row;
}

}  // namespace

Suite::Suite(const QString &name, const std::function<void(Report &)> &run, Duration duration) {
    suites().insert(name, {run, duration});
}

double Benchmark::processorNanoseconds() {
    return nanosecondsOf(CLOCK_PROCESS_CPUTIME_ID);
}

double Benchmark::threadNanoseconds() {
    return nanosecondsOf(CLOCK_THREAD_CPUTIME_ID);
}

Row Report::compare(const QString &name, const Work &ours, const Work &reference,
                    std::optional<double> target) {
    const Row row = measured(name, ours, reference, target);
    add(row);
    return row;
}

Row Report::compareTenTimes(const QString &name, const Work &ours, const Work &reference,
                            std::optional<double> target) {
    Row worst = measured(name, ours, reference, target);
    for (int run = 1; run < 10; ++run) {
        const Row row = measured(name, ours, reference, target);
        worst = row.ratio() > worst.ratio() ? row : worst;
    }
    add(worst);
    return worst;
}

double Benchmark::median(const std::function<double()> &sample) {
    constexpr int samples = 5;
    std::vector<double> values;
    for (int i = -1; i < samples; ++i) {
        const double value = sample();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (i >= 0) {
            values.push_back(value);
        }
    }
    return medianOf(values);
}

Row Report::addGeometricMean(const QString &name, const QList<Row> &rows,
                             std::optional<double> target) {
    double logarithms = 0;
    for (const Row &row : rows) {
        logarithms += std::log(row.ratio());
    }
    const double mean = std::exp(logarithms / static_cast<double>(rows.size()));
    const Row row{name, mean, 1, QStringLiteral("ratio"), target};
    add(row);
    return row;
}

void Report::add(const Row &row) {
    m_rows += row;
    print(row);
}

int main(int argumentCount, char **arguments) {
    // Leaves the user's settings and secrets alone.
    prepareTestProcess();
    QApplication application(argumentCount, arguments);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Compares our code with a reference. A ratio below 1 is faster."));
    const QCommandLineOption only(QStringLiteral("only"), QStringLiteral("Run this suite alone."),
                                  QStringLiteral("suite"));
    const QCommandLineOption jsonFile(QStringLiteral("json"),
                                      QStringLiteral("Write one JSON object a row to this file."),
                                      QStringLiteral("file"));
    const QCommandLineOption plots(QStringLiteral("plots"),
                                   QStringLiteral("Draw each row as an SVG file in this folder."),
                                   QStringLiteral("folder"));
    const QCommandLineOption all(QStringLiteral("long"),
                                 QStringLiteral("Also run the suites that take minutes."));
    parser.addHelpOption();
    parser.addOptions({only, jsonFile, plots, all});
    parser.process(application);

    QStringList names = parser.isSet(only) ? parser.values(only) : QStringList(suites().keys());
    if (!parser.isSet(only) && !parser.isSet(all)) {
        names.removeIf(
            [](const QString &name) { return suites().value(name).duration == Duration::Long; });
    }
    if (parser.isSet(plots) && !QDir().mkpath(parser.value(plots))) {
        std::fprintf(stderr, "%s cannot be created\n", qPrintable(parser.value(plots)));
        return 1;
    }
    QByteArray rows;
    for (const QString &name : names) {
        if (!suites().contains(name)) {
            std::fprintf(stderr, "There is no suite \"%s\", but %s\n", qPrintable(name),
                         qPrintable(QStringList(suites().keys()).join(QStringLiteral(", "))));
            return 1;
        }
        Report report(name);
        printHeading(name);
        suites().value(name).run(report);
        for (const Row &row : report.rows()) {
            rows += json(name, row);
            const Expected<void> drawn = parser.isSet(plots)
                                             ? Plot::write(parser.value(plots), name, row)
                                             : Expected<void>();
            if (!drawn) {
                std::fprintf(stderr, "%s\n", qPrintable(drawn.error().localizedDescription));
                return 1;
            }
        }
    }
    if (parser.isSet(jsonFile)) {
        QFile file(parser.value(jsonFile));
        if (!file.open(QIODevice::WriteOnly) || file.write(rows) != rows.size()) {
            std::fprintf(stderr, "%s cannot be written: %s\n", qPrintable(file.fileName()),
                         qPrintable(file.errorString()));
            return 1;
        }
    }
    return 0;
}
