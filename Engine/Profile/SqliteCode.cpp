#include "Engine/Profile/SqliteCode.h"

#include <QtSql/QSqlError>

SqliteCode sqliteCode(int resultCode) {
    constexpr int primary = 0xFF;
    return static_cast<SqliteCode>(resultCode & primary);
}

SqliteCode sqliteCode(const QSqlError &error) {
    return sqliteCode(error.nativeErrorCode().toInt());
}
