#include "Engine/Stores/Folder/LocalStore.h"

#include <QtCore/QFileInfo>
#include <QtCore/QScopeGuard>
#include <QtCore/QUuid>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>

#include "Engine/Foundation/EngineError.h"
#include "Host/InboxUUID.h"
#include "Host/SyncStrings.h"

LocalStore::LocalStore(const std::shared_ptr<QVSyncLocation> &location,
                       std::shared_ptr<StoreOperations> operations, const QString &path)
    : EngineStore(location, std::move(operations)), m_path(path) {}

Expected<void> LocalStore::open(const EngineFuture & /*future*/) {
    if (QFileInfo::exists(m_path)) {
        return {};
    }
    return failure(engineError(
        EngineErrorCode::StoreUnreachable,
        localizedSyncString(
            "The profile “%1” no longer exists. Quit Velmora and restore it from a backup.")
            .arg(m_path)));
}

Expected<EngineStore::Fetched> LocalStore::fetch(const EngineFuture & /*future*/) {
    const QString connection = QUuid::createUuid().toString();
    const auto removal = qScopeGuard([&] { QSqlDatabase::removeDatabase(connection); });
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
    database.setDatabaseName(m_path);
    database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
    if (!database.open()) {
        return failure(cannotBeRead(database.lastError()));
    }
    return databasesIn(database);
}

Expected<EngineStore::Fetched> LocalStore::databasesIn(const QSqlDatabase &database) {
    QSqlQuery rows(database);
    rows.exec(
        QStringLiteral("SELECT uuid, name, is_inbox FROM databases ORDER BY is_inbox DESC, id"));
    Fetched fetched;
    while (rows.next()) {
        const QString UUID = rows.value(2).toBool() ? InboxUUID : rows.value(0).toString();
        fetched.databases.append(record(UUID, rows.value(1).toString()));
    }
    // Stepping can fail at any row.
    if (rows.lastError().isValid()) {
        return failure(cannotBeRead(rows.lastError()));
    }
    return fetched;
}

Error LocalStore::cannotBeRead(const QSqlError &error) const {
    return engineError(EngineErrorCode::StoreUnreachable,
                       localizedSyncString("The profile “%1” cannot be read or written: %2")
                           .arg(m_path, error.databaseText()));
}
