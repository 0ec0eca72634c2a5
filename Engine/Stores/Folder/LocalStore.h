#pragma once

#include "Engine/Stores/EngineStore.h"

class ReadOnlyConnection;

/// The databases that the profile contains, open or not, as a store. It reads the profile through
/// its own connection, so it does not wait for the main thread, and sees what is on disk. The inbox
/// comes first and has the UUID InboxUUID. If the profile cannot be read, fetching fails with the
/// code StoreUnreachable.
class LocalStore : public EngineStore {
public:
    /// `path` is the path of the profile's database file. Opens no file yet.
    LocalStore(const std::shared_ptr<QVSyncLocation> &location,
               std::shared_ptr<StoreOperations> operations, const QString &path);

    /// Fails with the code StoreUnreachable if the file does not exist or cannot be reached.
    Expected<void> open(const EngineFuture &future) override;

protected:
    Expected<Fetched> fetch(const EngineFuture &future) override;

private:
    /// Reads the databases through an open connection.
    Expected<Fetched> databasesIn(const ReadOnlyConnection &profile);

    const QString m_path;
};
