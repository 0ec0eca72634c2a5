#pragma once

#include <QtCore/QStringList>
#include <memory>

#include "Engine/DirectConnection/ServedStoreObserver.h"

class EngineDispatcher;
class EngineNoteLibrary;
class EngineSyncLocation;

/// Keeps the served store in sync with the databases of the profile: the store receives their
/// changes before a client reads it, and they receive what clients have written. A database that
/// the profile does not have yet is created, because the user has authorized every client. Must be
/// used on the main thread.
class ServedStoreSynchronizer : public ServedStoreObserver {
public:
    /// Identifies the served store in the profile.
    static inline const QString Place = QStringLiteral("direct connections");

    /// `dispatcher` and `library` are not owned and must outlive this object. `location` is that of
    /// the served store and must not be null.
    ServedStoreSynchronizer(EngineDispatcher &dispatcher, EngineNoteLibrary &library,
                            std::shared_ptr<EngineSyncLocation> location);
    ~ServedStoreSynchronizer() override;

    /// Synchronizes all databases and then calls `proceed`, at the latest after 5 seconds: the
    /// other computer may be waiting for this one in turn. Changes that arrive later are served to
    /// the next client.
    void clientWillRead(std::function<void()> proceed) override;
    /// Starts to synchronize all databases. While that runs, further calls are combined into one.
    void clientsDidWrite() override;

private:
    /// Returns the databases of the profile and of the store, without duplicates.
    QStringList databaseUUIDs() const;
    /// Starts one job for each database; `handler` is called when all have ended, successfully or
    /// not.
    void synchronize(const std::function<void()> &handler);

    /// Runs the jobs; only one for each database and store at a time.
    EngineDispatcher &m_dispatcher;
    EngineNoteLibrary &m_library;
    const std::shared_ptr<EngineSyncLocation> m_location;
    /// Whether clientsDidWrite() is synchronizing, and whether it must do so again afterwards.
    bool m_isTakingOver = false;
    bool m_hasMoreToTakeOver = false;
};
