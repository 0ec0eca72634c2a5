#pragma once

#include "Engine/Stores/EngineRemoteDatabaseMetadata.h"

/// Made on a worker thread; lives on the main thread.
class EngineRemoteDatabase : public QVRemoteDatabase {
    Q_OBJECT
public:
    EngineRemoteDatabase(const QString &UUID, const QString &name,
                         const std::shared_ptr<QVSyncStore> &store);

    QString UUID() const override { return m_UUID; }
    QVRemoteDatabaseMetadata *metadata() const override { return m_metadata; }
    std::shared_ptr<QVSyncStore> store() const override { return m_store; }

private:
    const QString m_UUID;
    QVRemoteDatabaseMetadata *const m_metadata;
    const std::shared_ptr<QVSyncStore> m_store;
};
