#pragma once

#include <QtCore/QVariantList>

#include "Host/QVSyncResult.h"

class QSqlQuery;

/// The columns of the table "states" that hold the result of the last job. Two statements write
/// them, those of the locations controller and of the dispatcher, and use these texts. Thread-safe.
namespace ResultColumns {

/// The names of the columns, separated by commas.
inline const QString Names = QStringLiteral(
    "result_date, result_reason, result_summary, result_received, result_sent, result_problems");
/// A placeholder for each column.
inline const QString Placeholders = QStringLiteral("?, ?, ?, ?, ?, ?");

/// Returns the values of the columns, in the order of Names; all are NULL if there is no result. Of
/// an error only the description is stored. The date is in milliseconds since 1970 (UTC). The
/// summary is stored in English, see FailureSummary, and read back in the user's language.
QVariantList values(const std::optional<QVSyncResult> &result);
/// Returns the result in the columns of `row` that begin with number `first`; empty if there is
/// none. `row` must be positioned on a row. An error that is read back has the domain of the
/// engine, the description, and the code 0, which is none of EngineErrorCode; damaged numbers are
/// read as 0.
std::optional<QVSyncResult> result(const QSqlQuery &row, int first);

}  // namespace ResultColumns
