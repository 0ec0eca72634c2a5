#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <functional>
#include <optional>

/// Benchmarks set ours beside a yardstick and see how many times the yardstick's cost we take.
///
/// A suite is one source here that registers itself:
///
///     static const Benchmark::Suite suite(QStringLiteral("lists"), [](Benchmark::Report &report) {
///         report.compare(QStringLiteral("1,000 rows"), showOurs, showYardstick, 1.1);
///     });
///
/// It needs no other mention; ./bench --only lists runs it alone.
namespace Benchmark {

struct Row {
    /// What is measured and, where a suite has several yardsticks, against which.
    QString name;
    double ours = 0;
    double yardstick = 0;
    /// Of both values: "ns", "µs" or "ms", or whatever a suite adds by itself.
    QString unit;
    /// The ratio that must not be exceeded, where there is one.
    std::optional<double> aim;

    /// Ours by the yardstick's: smaller is better.
    double ratio() const { return ours / yardstick; }
    bool isMissed() const { return aim && ratio() > *aim; }
};

/// What a suite writes its rows to; they are printed as they come.
class Report {
public:
    using Work = std::function<void()>;

    explicit Report(const QString &suite) : m_suite(suite) {}

    /// Adds a row of the processor time that one call of `ours` and of `yardstick` takes: the
    /// medians over samples taken in turn, so that whatever else the machine does meets both alike.
    /// Waiting does not count. Quick works are repeated within a sample. Both are called a few
    /// times before they are measured.
    Row compare(const QString &name, const Work &ours, const Work &yardstick,
                std::optional<double> aim = std::nullopt);
    /// Adds the geometric mean of the ratios of `rows`, which are not added again.
    Row addGeometricMean(const QString &name, const QList<Row> &rows,
                         std::optional<double> aim = std::nullopt);
    /// Adds a row measured elsewhere.
    void add(const Row &row);

    const QList<Row> &rows() const { return m_rows; }
    const QString &suite() const { return m_suite; }

private:
    QString m_suite;
    QList<Row> m_rows;
};

/// Registers a suite at the start of the program, for the rest of it.
class Suite {
public:
    Suite(const QString &name, const std::function<void(Report &)> &run);
};

/// The median of five of what `sample` answers, after a first one with cold caches. What is to be
/// deleted later goes after each.
double median(const std::function<double()> &sample);

/// Makes the optimizer believe that `value` is read.
template <typename T>
void keep(T &&value) {
    asm volatile("" : : "g"(&value) : "memory");
}

}  // namespace Benchmark
