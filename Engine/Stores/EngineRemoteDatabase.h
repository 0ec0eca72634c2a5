#pragma once

#include "Engine/Stores/EngineRemoteDatabaseMetadata.h"

/// A database in a store. Immutable. It belongs to the main thread and is destroyed there.
class EngineRemoteDatabase : public QVRemoteDatabase {
    Q_OBJECT
public:
    /// Returns a new database, on any thread; the last reference may be released on any thread,
    /// too. It shares ownership of `store`, which must not be null. The application object must
    /// exist. `UUID` must be one that was checked; `name` may be any text.
    static std::shared_ptr<QVRemoteDatabase> database(const QString &UUID, const QString &name,
                                                      const std::shared_ptr<QVSyncStore> &store);

    QString UUID() const override { return m_UUID; }
    QVRemoteDatabaseMetadata *metadata() const override { return m_metadata; }
    std::shared_ptr<QVSyncStore> store() const override { return m_store; }

private:
    EngineRemoteDatabase(const QString &UUID, const QString &name,
                         const std::shared_ptr<QVSyncStore> &store);

    const QString m_UUID;
    /// Owned as a child.
    QVRemoteDatabaseMetadata *const m_metadata;
    const std::shared_ptr<QVSyncStore> m_store;
};
