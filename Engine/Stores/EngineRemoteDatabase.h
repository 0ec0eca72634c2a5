#pragma once

#include "Engine/Stores/EngineRemoteDatabaseMetadata.h"

/// A database in a store. Immutable. Created on a worker thread and moved to the main thread, on
/// which it must be destroyed: handlers that receive it on a worker thread must pass all their
/// references to the main thread.
class EngineRemoteDatabase : public QVRemoteDatabase {
    Q_OBJECT
public:
    /// Shares ownership of `store`, which must not be null. The application object must exist.
    /// `UUID` must be one that was checked; `name` may be any text.
    EngineRemoteDatabase(const QString &UUID, const QString &name,
                         const std::shared_ptr<QVSyncStore> &store);

    QString UUID() const override { return m_UUID; }
    QVRemoteDatabaseMetadata *metadata() const override { return m_metadata; }
    std::shared_ptr<QVSyncStore> store() const override { return m_store; }

private:
    const QString m_UUID;
    /// Owned as a child.
    QVRemoteDatabaseMetadata *const m_metadata;
    const std::shared_ptr<QVSyncStore> m_store;
};
