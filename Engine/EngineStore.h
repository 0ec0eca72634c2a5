#pragma once

#include "Host/QVSyncStore.h"

/// The store of one location. What takes time runs on a thread of Qt's pool, where the handlers are
/// called too; a future of each operation cancels it as long as it has not begun.
class EngineStore : public QVSyncStore, public std::enable_shared_from_this<EngineStore> {
public:
    explicit EngineStore(std::shared_ptr<QVSyncLocation> location)
        : m_location(std::move(location)) {}

    std::shared_ptr<QVSyncLocation> location() const override { return m_location; }
    std::shared_ptr<PZFuture> openWithCompletionHandler(ErrorHandler handler) override;
    std::shared_ptr<PZFuture> fetchDatabasesWithCompletionHandler(
        DatabasesHandler handler) override;
    std::shared_ptr<PZFuture> closeWithCompletionHandler(ErrorHandler handler) override;

protected:
    struct Fetched {
        std::optional<QVRemoteDatabases> databases;
        std::optional<Error> error;
    };

    // These run on a thread of the pool, one after the other for a caller who awaits the handlers.
    virtual std::optional<Error> open() = 0;
    virtual Fetched fetchDatabases() = 0;
    virtual std::optional<Error> close() { return std::nullopt; }

private:
    const std::shared_ptr<QVSyncLocation> m_location;
};
