#pragma once

#include "Engine/Stores/EngineStore.h"

class QSqlDatabase;
class QSqlError;

/// The databases that the profile knows, open or not. It reads what is on disk through a connection
/// of its own, so that it need not wait for the main thread.
class LocalStore : public EngineStore {
public:
    /// `path`: that of the profile's database file.
    LocalStore(const std::shared_ptr<QVSyncLocation> &location, const QString &path);

    Expected<void> open(const EngineFuture &future) override;

protected:
    Expected<Fetched> fetch(const EngineFuture &future) override;

private:
    Expected<Fetched> databasesIn(const QSqlDatabase &database);
    Error cannotBeRead(const QSqlError &error) const;

    const QString m_path;
};
