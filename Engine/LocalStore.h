#pragma once

#include "Engine/EngineStore.h"

/// The databases on this computer, as they are when the store is asked. Main thread, but for the
/// handlers.
class LocalStore : public EngineStore {
public:
    /// A database as `fetchDatabases` delivers it.
    struct Entry {
        QString UUID;
        QString name;
    };

    LocalStore(std::shared_ptr<QVSyncLocation> location, std::function<QList<Entry>()> entries);

    std::shared_ptr<PZFuture> openWithCompletionHandler(ErrorHandler handler) override;

protected:
    std::optional<Error> open() override { return std::nullopt; }
    Fetched fetchDatabases() override;

private:
    const std::function<QList<Entry>()> m_readEntries;
    QList<Entry> m_entries;
};
