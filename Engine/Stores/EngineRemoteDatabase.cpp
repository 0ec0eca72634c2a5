#include "Engine/Stores/EngineRemoteDatabase.h"

#include <QtCore/QCoreApplication>

EngineRemoteDatabase::EngineRemoteDatabase(const QString &UUID, const QString &name,
                                           const std::shared_ptr<QVSyncStore> &store)
    : m_UUID(UUID), m_metadata(new EngineRemoteDatabaseMetadata(name)), m_store(store) {
    m_metadata->setParent(this);
    moveToThread(QCoreApplication::instance()->thread());
}
