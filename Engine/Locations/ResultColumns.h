#pragma once

#include <QtCore/QVariantList>

#include "Host/QVSyncResult.h"

class QSqlQuery;

/// The columns of the table "states" that hold the result of the last job.
namespace ResultColumns {

/// The names of the columns, separated by commas.
inline const QString Names = QStringLiteral(
    "result_date, result_reason, result_summary, result_received, result_sent, result_problems");
/// In the same order: a placeholder for each column, and the new values of an upsert.
inline const QString Placeholders = QStringLiteral("?, ?, ?, ?, ?, ?");
inline const QString NewValues = QStringLiteral(
    "excluded.result_date, excluded.result_reason, excluded.result_summary,"
    " excluded.result_received, excluded.result_sent, excluded.result_problems");

/// Returns the values of the columns; all are NULL if there is no result.
QVariantList values(const std::optional<QVSyncResult> &result);
/// Returns the result in the columns of `row` that begin with number `first`; empty if there is
/// none.
std::optional<QVSyncResult> result(const QSqlQuery &row, int first);

}  // namespace ResultColumns
