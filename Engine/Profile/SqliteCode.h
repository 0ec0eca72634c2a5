#pragma once

#include <sqlite3.h>

class QSqlError;

/// The primary result codes of SQLite (https://sqlite.org/rescode.html) that the profile
/// distinguishes. An extended code such as SQLITE_IOERR_READ has its primary code in the lowest
/// byte. The functions are thread-safe.
enum class SqliteCode {
    Ok = SQLITE_OK,
    /// A statement is not valid, for example because a table or column is missing.
    Error = SQLITE_ERROR,
    InputOutputError = SQLITE_IOERR,
    Corrupt = SQLITE_CORRUPT,
    Full = SQLITE_FULL,
    CannotOpen = SQLITE_CANTOPEN,
    Constraint = SQLITE_CONSTRAINT,
    NotADatabase = SQLITE_NOTADB,
};

/// Returns the primary code of `resultCode`, which may be primary or extended. It may be one that
/// has no name here.
SqliteCode sqliteCode(int resultCode);
/// Returns the primary code of `error`; Ok if it has none.
SqliteCode sqliteCode(const QSqlError &error);
