#include "Engine/LocalStore.h"

#include "Engine/EngineRemoteDatabase.h"

LocalStore::LocalStore(std::shared_ptr<QVSyncLocation> location,
                       std::function<QList<Entry>()> entries)
    : EngineStore(std::move(location)), m_readEntries(std::move(entries)) {}

std::shared_ptr<PZFuture> LocalStore::openWithCompletionHandler(ErrorHandler handler) {
    m_entries = m_readEntries();
    return EngineStore::openWithCompletionHandler(std::move(handler));
}

EngineStore::Fetched LocalStore::fetchDatabases() {
    QVRemoteDatabases databases;
    for (const Entry &entry : std::as_const(m_entries)) {
        databases.append(
            std::make_shared<EngineRemoteDatabase>(entry.UUID, entry.name, shared_from_this()));
    }
    return {databases, std::nullopt};
}
