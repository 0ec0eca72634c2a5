#include "Application/LogEntry.h"

#include <array>

namespace {

using JobResult = QVJobReport::Outcome;

constexpr qsizetype LongestText = 4000;

struct OutcomeName {
    JobResult outcome;
    const char *name;
};

constexpr std::array OutcomeNames{
    OutcomeName{JobResult::Succeeded, "succeeded"}, OutcomeName{JobResult::Partial, "partial"},
    OutcomeName{JobResult::Failed, "failed"}, OutcomeName{JobResult::Stopped, "stopped"}};

QString nameOf(JobResult outcome) {
    for (const OutcomeName &each : OutcomeNames) {
        if (each.outcome == outcome) {
            return QString::fromLatin1(each.name);
        }
    }
    return {};
}

std::optional<JobResult> outcomeOf(const QString &name) {
    for (const OutcomeName &each : OutcomeNames) {
        if (name == QLatin1StringView(each.name)) {
            return each.outcome;
        }
    }
    return {};
}

}  // namespace

LogEntry LogEntry::of(const QVJobReport &report) {
    const bool isJob = report.started.isValid();
    return {.time = isJob ? report.started : report.ended,
            .text = report.text,
            .outcome = report.outcome,
            .database = report.database,
            .location = report.location,
            .duration = isJob ? report.started.msecsTo(report.ended) : -1,
            .received = report.received,
            .sent = report.sent};
}

QJsonObject LogEntry::toJson() const {
    QJsonObject object{{QStringLiteral("time"), time.toMSecsSinceEpoch()},
                       {QStringLiteral("text"), text.left(LongestText)}};
    if (outcome) {
        object.insert(QStringLiteral("outcome"), nameOf(*outcome));
        object.insert(QStringLiteral("database"), database.left(LongestText));
        object.insert(QStringLiteral("location"), location.left(LongestText));
        object.insert(QStringLiteral("duration"), duration);
        object.insert(QStringLiteral("received"), received);
        object.insert(QStringLiteral("sent"), sent);
    }
    return object;
}

std::optional<LogEntry> LogEntry::fromJson(const QJsonObject &object) {
    const QJsonValue time = object[QStringLiteral("time")];
    const QJsonValue text = object[QStringLiteral("text")];
    if (!time.isDouble() || !text.isString()) {
        return {};
    }
    return LogEntry{.time = QDateTime::fromMSecsSinceEpoch(time.toInteger()),
                    .text = text.toString(),
                    .outcome = outcomeOf(object[QStringLiteral("outcome")].toString()),
                    .database = object[QStringLiteral("database")].toString(),
                    .location = object[QStringLiteral("location")].toString(),
                    .duration = object[QStringLiteral("duration")].toInteger(-1),
                    .received = object[QStringLiteral("received")].toInteger(),
                    .sent = object[QStringLiteral("sent")].toInteger()};
}
