#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <functional>
#include <optional>

#include "Platform/Foundation/Expected.h"

/// A benchmark compares the time that our code takes with that of a reference in the same run.
///
/// A suite is one source here that registers itself:
///
///     static const Benchmark::Suite suite(QStringLiteral("lists"), [](Benchmark::Report &report) {
///         report.compare(QStringLiteral("1,000 rows"), showOurs, showReference, 1.1);
///     });
///
/// It needs no other mention; ./bench --only lists runs it alone.
namespace Benchmark {

/// A value that was measured with some number of items.
struct Point {
    double size = 0;
    double value = 0;
};

struct Row {
    /// What is measured and, if a suite has several baselines, the baseline.
    QString name;
    double ours = 0;
    double reference = 0;
    /// Of both values: "ns", "µs" or "ms", or a unit that a suite adds.
    QString unit;
    /// The target: the ratio that must not be exceeded; empty if there is none.
    std::optional<double> target;
    /// Our value for several sizes, in the order of the sizes; empty if there is one only.
    QList<Point> points = {};

    /// Returns our time divided by the baseline's: smaller is better.
    double ratio() const { return ours / reference; }
    bool isMissed() const { return target && ratio() > *target; }
};

/// Receives the rows of a suite and prints them as they are added.
class Report {
public:
    using Work = std::function<void()>;

    explicit Report(const QString &suite) : m_suite(suite) {}

    /// Adds a row with the CPU times of one call of `ours` and of the baseline: medians over
    /// samples taken alternately, so that other load on the machine affects both equally. Waiting
    /// is not counted. Short calls are repeated within a sample. Both are called a few times before
    /// they are measured.
    Row compare(const QString &name, const Work &ours, const Work &reference,
                std::optional<double> target = std::nullopt);
    /// Adds the row with the largest ratio of ten that are measured in this way.
    Row compareTenTimes(const QString &name, const Work &ours, const Work &reference,
                        std::optional<double> target);
    /// Adds the geometric mean of the ratios of `rows`, which are not added again.
    Row addGeometricMean(const QString &name, const QList<Row> &rows,
                         std::optional<double> target = std::nullopt);
    /// Adds a row that was measured elsewhere.
    void add(const Row &row);

    const QList<Row> &rows() const { return m_rows; }
    const QString &suite() const { return m_suite; }

private:
    QString m_suite;
    QList<Row> m_rows;
};

/// Long suites take minutes, and run only if they are named or with --long.
enum class Duration { Short, Long };

/// Registers a suite until the program ends.
class Suite {
public:
    Suite(const QString &name, const std::function<void(Report &)> &run,
          Duration duration = Duration::Short);
};

/// Returns the CPU time so far of the process, on all its threads, or of the calling thread.
double processorNanoseconds();
double threadNanoseconds();

/// Returns the median of five results of `sample`, after a first call with cold caches. Deferred
/// deletions are performed after each.
double median(const std::function<double()> &sample);

/// Ends the program with the error of `result` if there is one.
template <typename T>
void require(const Expected<T> &result) {
    if (!result) {
        qFatal("%s", qPrintable(result.error().localizedDescription));
    }
}

/// Makes the optimizer believe that `value` is read.
template <typename T>
void keep(T &&value) {
    asm volatile("" : : "g"(&value) : "memory");
}

}  // namespace Benchmark
