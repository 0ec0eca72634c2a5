#pragma once

#include "Host/QVRemoteDatabase.h"

/// A record that a store of the engine has read.
class EngineRemoteDatabase : public QVRemoteDatabase {
    Q_OBJECT
public:
    EngineRemoteDatabase(const QString &UUID, const QString &name,
                         std::shared_ptr<QVSyncStore> store);

    QString UUID() const override { return m_UUID; }
    QVRemoteDatabaseMetadata *metadata() const override { return m_metadata; }
    std::shared_ptr<QVSyncStore> store() const override { return m_store; }

private:
    const QString m_UUID;
    QVRemoteDatabaseMetadata *const m_metadata;
    const std::shared_ptr<QVSyncStore> m_store;
};
