#pragma once

#include <QtCore/QStringList>
#include <memory>

#include "Engine/DirectConnection/DirectConnectionHook.h"

class EngineDispatcher;
class EngineNoteLibrary;
class EngineSyncLocation;

/// Keeps the store that is served in step with the databases of the profile: before a client reads
/// it gets what they hold, and they get what clients have written. A database that the profile does
/// not have yet is made, since whoever wrote it was let in by the person. Main thread.
class DirectConnectionSynchronizer : public DirectConnectionHook {
public:
    /// `dispatcher` and `library` must outlive this. `packagePath`: where the served store is.
    DirectConnectionSynchronizer(EngineDispatcher &dispatcher, EngineNoteLibrary &library,
                                 const QString &packagePath);
    ~DirectConnectionSynchronizer() override;

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
