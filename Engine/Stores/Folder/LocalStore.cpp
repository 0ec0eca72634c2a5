#include "Engine/Stores/Folder/LocalStore.h"

#include <QtSql/QSqlError>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Notes/DeletedDatabase.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Profile/ReadOnlyConnection.h"
#include "Host/InboxUUID.h"
#include "Platform/Foundation/FileManager.h"

LocalStore::LocalStore(const std::shared_ptr<QVSyncLocation> &location,
                       std::shared_ptr<StoreOperations> operations, const QString &path)
    : EngineStore(location, std::move(operations)), m_path(path) {}

Expected<void> LocalStore::open(const EngineFuture & /*future*/) {
    const auto notReached = [](const Error &cause) {
        Error error = engineError(EngineErrorCode::StoreUnreachable, cause.localizedDescription);
        error.details = cause.localizedFailureReason;
        return error;
    };
    return FileManager::exists(m_path).map_error(notReached).and_then([&](bool isThere) {
        return isThere ? Expected<void>()
                       : failure(engineError(EngineErrorCode::StoreUnreachable,
                                             "The profile “%1” no longer exists. Quit Velmora and "
                                             "restore it from a backup.",
                                             m_path));
    });
}

Expected<EngineStore::Fetched> LocalStore::fetch(const EngineFuture & /*future*/) {
    return ReadOnlyConnection::open(m_path, ReadOnlyConnection::Sharing::Shared)
        .and_then([this](const auto &profile) { return databasesIn(*profile); })
        .map_error([](const Error &error) {
            return engineError(EngineErrorCode::StoreUnreachable, error.localizedDescription);
        });
}

Expected<EngineStore::Fetched> LocalStore::databasesIn(const ReadOnlyConnection &profile) {
    Fetched fetched;
    return profile
        .read(QStringLiteral("SELECT uuid, CAST(name AS BLOB), is_inbox FROM databases WHERE NOT %1"
                             " ORDER BY is_inbox DESC, id")
                  .arg(DeletedDatabase::Condition),
              [&](const QSqlQuery &row) {
                  const QString UUID = row.value(2).toBool() ? InboxUUID : row.value(0).toString();
                  fetched.databases.append(record(UUID, ProfileDatabase::exactText(row.value(1))));
              })
        .map([&] { return std::move(fetched); });
}
