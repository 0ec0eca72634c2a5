#pragma once

#include <QtCore/QStringList>
#include <memory>

#include "Engine/DirectConnection/ServedStoreObserver.h"

class EngineDispatcher;
class EngineNoteLibrary;
class EngineSyncLocation;

/// Keeps the store that is served in step with the databases of the profile: before a client reads
/// it gets what they hold, and they get what clients have written. A database that the profile does
/// not have yet is made, since whoever wrote it was let in by the person. Main thread.
class ServedStoreSynchronizer : public ServedStoreObserver {
public:
    /// `dispatcher` and `library` must outlive this. `location`: that of the served store.
    ServedStoreSynchronizer(EngineDispatcher &dispatcher, EngineNoteLibrary &library,
                            std::shared_ptr<EngineSyncLocation> location);
    ~ServedStoreSynchronizer() override;

    /// A client does not wait longer than a few seconds: the other computer may be waiting for this
    /// one in turn. What has not arrived by then does so the next time.
    void clientWillRead(std::function<void()> proceed) override;
    void clientsDidWrite() override;

private:
    /// The databases of the profile and of the store.
    QStringList databaseUUIDs() const;
    void synchronize(const std::function<void()> &handler);

    EngineDispatcher &m_dispatcher;
    EngineNoteLibrary &m_library;
    const std::shared_ptr<EngineSyncLocation> m_location;
    bool m_isTakingOver = false;
    bool m_hasMoreToTakeOver = false;
};
