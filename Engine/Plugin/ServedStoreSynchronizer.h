#pragma once

#include <QtCore/QList>
#include <QtCore/QStringList>
#include <memory>

#include "Engine/DirectConnection/ServedStoreObserver.h"
#include "Platform/Foundation/Expected.h"

class EngineDispatcher;
class EngineNoteLibrary;
class EngineSyncLocation;
class ServedDatabases;

/// Keeps the served store in sync with the databases of the profile: the store receives their
/// changes before a client reads it, and they receive what clients have written. Databases that are
/// not served take no part. A database that the profile does not have yet is created, because the
/// user has authorized every client, unless the profile has many already, which is reported in the
/// application's log. So is a folder of the store that cannot be read; the databases of the profile
/// are synchronized all the same. Requests that are made while it synchronizes are combined into
/// one synchronization that follows. Must be used on the main thread.
class ServedStoreSynchronizer : public ServedStoreObserver {
public:
    /// Identifies the served store in the profile, where other stores have the identifier of their
    /// location. Must not change.
    static inline const QString Place = QStringLiteral("direct connections");

    /// A profile with this many databases gets no further ones from clients, since any of them
    /// could fill it.
    static constexpr qsizetype MostDatabases = 500;

    /// `dispatcher` and `library` are not owned and must outlive this object. `location` is that of
    /// the served store; it and `served` must not be null. Starts nothing by itself.
    ServedStoreSynchronizer(EngineDispatcher &dispatcher, EngineNoteLibrary &library,
                            std::shared_ptr<EngineSyncLocation> location,
                            std::shared_ptr<const ServedDatabases> served,
                            qsizetype mostDatabases = MostDatabases);
    /// The handlers of running jobs use this object, so the dispatcher must be destroyed next,
    /// without running the event loop in between.
    ~ServedStoreSynchronizer() override;

    /// Synchronizes all databases and then calls `proceed` once, on the main thread, at the latest
    /// after 5 seconds: the other computer may be waiting for this one in turn. Changes that arrive
    /// later are served to the next client. It is called even if a synchronization fails, which is
    /// reported in the log, but not necessarily if this object is destroyed before. `proceed` must
    /// not be empty.
    void clientWillRead(std::function<void()> proceed) override;
    /// Synchronizes all databases. Returns at once; calls while one is waiting have no effect.
    void clientsDidWrite() override;

private:
    /// Returns the databases of the profile that are served, and those of the store that may be
    /// created.
    QStringList databaseUUIDs();
    /// Returns the names of at most 10,000 records of databases in the served store.
    Expected<QStringList> recordNames() const;
    /// Reports the number of databases that may not be created if it is not the one reported last.
    void reportRefused(qsizetype count);
    /// Calls `handler` after the next synchronization that begins from now on.
    void request(std::function<void()> handler);
    /// Starts one job for each database. When all have ended, successfully or not, calls the
    /// handlers that were waiting, and starts again if others are waiting.
    void synchronize();
    void finish(const QList<std::function<void()>> &handlers);

    /// Runs the jobs; only one for each database and store at a time.
    EngineDispatcher &m_dispatcher;
    EngineNoteLibrary &m_library;
    const std::shared_ptr<EngineSyncLocation> m_location;
    const std::shared_ptr<const ServedDatabases> m_served;
    const qsizetype m_mostDatabases;
    bool m_isSynchronizing = false;
    QList<std::function<void()>> m_waiting;
    qsizetype m_refused = 0;
};
