#include "Engine/Locations/ResultColumns.h"

#include <QtSql/QSqlQuery>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Locations/FailureSummary.h"
#include "Engine/Profile/ProfileDatabase.h"

QVariantList ResultColumns::values(const std::optional<QVSyncResult> &result) {
    if (!result) {
        return {QVariant(), QVariant(), QVariant(), QVariant(), QVariant(), QVariant()};
    }
    const QVariant reason =
        result->error ? ProfileDatabase::text(result->error->localizedDescription) : QVariant();
    return {result->date.toMSecsSinceEpoch(),
            reason,
            ProfileDatabase::text(FailureSummary::english(result->summary)),
            result->received,
            result->sent,
            result->problems};
}

std::optional<QVSyncResult> ResultColumns::result(const QSqlQuery &row, int first) {
    if (row.value(first).isNull()) {
        return {};
    }
    QVSyncResult result{.date = QDateTime::fromMSecsSinceEpoch(row.value(first).toLongLong()),
                        .error = {},
                        .summary = FailureSummary::localized(row.value(first + 2).toString()),
                        .received = row.value(first + 3).toLongLong(),
                        .sent = row.value(first + 4).toLongLong(),
                        .problems = row.value(first + 5).toLongLong()};
    if (!row.value(first + 1).isNull()) {
        result.error = Error{.domain = EngineErrorDomain,
                             .localizedDescription = row.value(first + 1).toString()};
    }
    return result;
}
