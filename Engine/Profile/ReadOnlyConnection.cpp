#include "Engine/Profile/ReadOnlyConnection.h"

#include <sqlite3.h>

#include <QtCore/QUrl>
#include <QtCore/QUuid>
#include <QtSql/QSqlDriver>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Profile/FullDisk.h"
#include "Engine/Profile/SqliteCode.h"
#include "Host/SyncStrings.h"

namespace {

EngineErrorCode codeOf(const QSqlError &reason) {
    switch (sqliteCode(reason)) {
        case SqliteCode::Corrupt:
        case SqliteCode::NotADatabase:
        // Our statements are valid, so that this means a missing table or column.
        case SqliteCode::Error:
            return EngineErrorCode::ProfileDamaged;
        case SqliteCode::InputOutputError:
            return EngineErrorCode::ProfileUnreadable;
        default:
            return EngineErrorCode::ProfileUnusable;
    }
}

}  // namespace

Expected<std::unique_ptr<const ReadOnlyConnection>> ReadOnlyConnection::open(
    const QString &path, Sharing sharing, const std::atomic_bool *isCancelled) {
    std::unique_ptr<ReadOnlyConnection> connection(new ReadOnlyConnection(path, sharing));
    if (!connection->m_database.open()) {
        return failure(connection->error(connection->m_database.lastError()));
    }
    if (isCancelled) {
        connection->interruptIf(*isCancelled);
    }
    return connection;
}

ReadOnlyConnection::ReadOnlyConnection(const QString &path, Sharing sharing)
    : m_path(path),
      m_name(QUuid::createUuid().toString(QUuid::WithoutBraces)),
      m_database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name)) {
    m_database.setDatabaseName(QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded()) +
                               (sharing == Sharing::Shared
                                    ? QStringLiteral("?mode=ro")
                                    : QStringLiteral("?mode=ro&immutable=1")));
    m_database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_OPEN_READONLY"));
}

void ReadOnlyConnection::interruptIf(const std::atomic_bool &isCancelled) {
    constexpr int steps = 1000;
    const QVariant handle = m_database.driver()->handle();
    auto *const connection = *static_cast<sqlite3 *const *>(handle.constData());
    const auto ask = [](void *flag) -> int {
        return *static_cast<const std::atomic_bool *>(flag) ? 1 : 0;
    };
    sqlite3_progress_handler(connection, steps, ask, const_cast<std::atomic_bool *>(&isCancelled));
}

ReadOnlyConnection::~ReadOnlyConnection() {
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_name);
}

Expected<void> ReadOnlyConnection::read(const QString &statement, const RowVisitor &visit) const {
    QSqlQuery rows = query();
    rows.exec(statement);
    while (rows.next()) {
        visit(rows);
    }
    // Reading can fail at any row, which ends the loop like the last one.
    return rows.lastError().isValid() ? failure(error(rows.lastError())) : Expected<void>();
}

Expected<QVariant> ReadOnlyConnection::value(const QString &statement) const {
    QSqlQuery rows = query();
    if (rows.exec(statement) && rows.next()) {
        return rows.value(0);
    }
    // A result without a row is no error.
    return rows.lastError().isValid() ? Expected<QVariant>(failure(error(rows.lastError())))
                                      : QVariant();
}

tl::expected<void, QSqlError> ReadOnlyConnection::copyTo(const QString &path) const {
    QSqlQuery copy = query();
    const bool isPrepared = copy.prepare(QStringLiteral("VACUUM INTO ?"));
    copy.addBindValue(path);
    // Executing what could not be prepared replaces the error.
    if (!isPrepared || !copy.exec()) {
        return tl::make_unexpected(copy.lastError());
    }
    return {};
}

Error ReadOnlyConnection::error(const QSqlError &reason) const {
    if (FullDisk::isCauseOf(reason, m_path)) {
        return engineError(EngineErrorCode::ProfileDiskFull, FullDisk::message(m_path));
    }
    return engineError(
        codeOf(reason),
        localizedSyncString("The database “%1” cannot be read (%2). Try again. If that fails, "
                            "check the disk and the permissions of the file.")
            .arg(m_path,
                 reason.databaseText().isEmpty() ? reason.driverText() : reason.databaseText()));
}
