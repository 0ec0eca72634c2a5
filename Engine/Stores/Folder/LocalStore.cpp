#include "Engine/Stores/Folder/LocalStore.h"

#include <QtCore/QFileInfo>
#include <QtCore/QUuid>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Notes/InboxUUID.h"
#include "Platform/Foundation/Localization.h"

LocalStore::LocalStore(const std::shared_ptr<QVSyncLocation> &location, const QString &path)
    : EngineStore(location), m_path(path) {}

std::optional<Error> LocalStore::open(const EngineFuture & /*future*/) {
    if (QFileInfo::exists(m_path)) {
        return {};
    }
    return engineError(EngineErrorCode::StoreUnreachable,
                       localizedSyncString("The profile “%1” is gone.").arg(m_path));
}

EngineStore::Fetched LocalStore::fetch(const EngineFuture & /*future*/) {
    const QString connection = QUuid::createUuid().toString();
    Fetched fetched;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        database.setDatabaseName(m_path);
        database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
        database.open();
        QSqlQuery rows(database);
        if (rows.exec(QStringLiteral(
                "SELECT uuid, name, is_inbox FROM databases ORDER BY is_inbox DESC, id"))) {
            fetched.databases.emplace();
            while (rows.next()) {
                const QString UUID = rows.value(2).toBool() ? InboxUUID : rows.value(0).toString();
                fetched.databases->append(record(UUID, rows.value(1).toString()));
            }
        } else {
            fetched.error =
                engineError(EngineErrorCode::StoreUnreachable,
                            localizedSyncString("The profile “%1” cannot be read or written: %2")
                                .arg(m_path, rows.lastError().databaseText()));
        }
    }
    QSqlDatabase::removeDatabase(connection);
    return fetched;
}
