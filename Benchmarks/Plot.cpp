#include "Benchmarks/Plot.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <algorithm>
#include <cmath>
#include <tuple>

using Benchmark::Row;

namespace {

constexpr double Width = 640;
constexpr double Height = 400;
constexpr double Margin = 80;
constexpr double Bottom = Height - Margin;
constexpr double InnerWidth = Width - 2 * Margin;
constexpr double InnerHeight = Height - 2 * Margin;

QString text(double x, double y, const QString &content, const char *anchor = "middle") {
    return QStringLiteral("<text x=\"%1\" y=\"%2\" text-anchor=\"%3\">%4</text>\n")
        .arg(QString::number(x), QString::number(y), QLatin1StringView(anchor),
             content.toHtmlEscaped());
}

QString line(double x1, double y1, double x2, double y2, const char *color) {
    return QStringLiteral("<path d=\"M%1 %2 L%3 %4\" stroke=\"%5\" fill=\"none\"/>\n")
        .arg(QString::number(x1), QString::number(y1), QString::number(x2), QString::number(y2),
             QLatin1StringView(color));
}

/// A logarithmic axis.
class Axis {
public:
    /// Values below `most` / 10,000, such as 0, are drawn as that.
    Axis(double least, double most)
        : m_least(std::max({least, most / 10'000, 1e-9})),
          m_first(std::log10(m_least)),
          m_last(std::log10(std::max(most, m_least))) {
        if (m_last - m_first < 0.1) {
            m_first -= 0.5;
            m_last += 0.5;
        }
    }
    /// Returns the place of `value`, from 0 to 1.
    double place(double value) const {
        return (std::log10(std::max(value, m_least)) - m_first) / (m_last - m_first);
    }

private:
    double m_least;
    double m_first;
    double m_last;
};

QString curve(const Row &row) {
    const auto bySize = [](const auto &a, const auto &b) { return a.size < b.size; };
    const auto byValue = [](const auto &a, const auto &b) { return a.value < b.value; };
    const auto [smallest, largest] =
        std::minmax_element(row.points.begin(), row.points.end(), bySize);
    const auto [least, most] = std::minmax_element(row.points.begin(), row.points.end(), byValue);
    const Axis sizes(smallest->size, largest->size);
    const Axis values(least->value, most->value);
    QString svg = text(Width / 2, Height - 20, QStringLiteral("size"));
    double lastX = 0;
    double lastY = 0;
    for (const Benchmark::Point &point : row.points) {
        const double x = Margin + sizes.place(point.size) * InnerWidth;
        const double y = Bottom - values.place(point.value) * InnerHeight;
        if (lastX > 0) {
            svg += line(lastX, lastY, x, y, "#1f77b4");
        }
        svg += QStringLiteral("<circle cx=\"%1\" cy=\"%2\" r=\"4\" fill=\"#1f77b4\"/>\n")
                   .arg(QString::number(x), QString::number(y));
        svg += text(x, y - 10, QString::number(point.value, 'g', 4) + u' ' + row.unit);
        svg += text(x, Bottom + 20, QString::number(point.size, 'g', 7));
        lastX = x;
        lastY = y;
    }
    return svg;
}

QString bars(const Row &row) {
    const double allowed = row.reference * row.target.value_or(1);
    const double most = std::max(row.ours, allowed);
    QString svg;
    double x = Margin + 60;
    for (const auto &[name, value, color] :
         {std::tuple("ours", row.ours, "#1f77b4"), std::tuple("allowed", allowed, "#bbbbbb")}) {
        const double height = most > 0 ? value / most * InnerHeight : 0;
        svg += QStringLiteral("<path d=\"M%1 %2 h120 v%3 h-120 z\" fill=\"%4\"/>\n")
                   .arg(QString::number(x), QString::number(Bottom - height),
                        QString::number(height), QLatin1StringView(color));
        svg += text(x + 60, Bottom - height - 8, QString::number(value, 'g', 4) + u' ' + row.unit);
        svg += text(x + 60, Bottom + 20, QLatin1StringView(name));
        x += 240;
    }
    return svg;
}

QString fileName(const QString &suite, const QString &row) {
    static const QRegularExpression others(QStringLiteral("[^a-z0-9]+"));
    QString name = (suite + u' ' + row).toLower().replace(others, QStringLiteral("-"));
    return name.left(120) + QStringLiteral(".svg");
}

}  // namespace

Expected<void> Plot::write(const QString &folder, const QString &suite, const Row &row) {
    const QString svg = QStringLiteral(
                            "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 %1 %2\""
                            " font-family=\"sans-serif\" font-size=\"13\">\n"
                            "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n")
                            .arg(QString::number(Width), QString::number(Height)) +
                        text(Width / 2, 30, suite + QStringLiteral(": ") + row.name) +
                        line(Margin, Margin, Margin, Bottom, "black") +
                        line(Margin, Bottom, Width - Margin, Bottom, "black") +
                        (row.points.size() > 1 ? curve(row) : bars(row)) +
                        QStringLiteral("</svg>\n");
    QFile file(folder + u'/' + fileName(suite, row.name));
    const QByteArray bytes = svg.toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush()) {
        return failure(Error{
            .domain = QStringLiteral("Velmora"),
            .localizedDescription = file.fileName() + QStringLiteral(": ") + file.errorString()});
    }
    return {};
}
