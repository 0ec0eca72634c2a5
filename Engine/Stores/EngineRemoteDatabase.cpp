#include "Engine/Stores/EngineRemoteDatabase.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QThread>

#include "Platform/Foundation/MainQueue.h"

std::shared_ptr<QVRemoteDatabase> EngineRemoteDatabase::database(
    const QString &UUID, const QString &name, const std::shared_ptr<QVSyncStore> &store) {
    return {new EngineRemoteDatabase(UUID, name, store), [](const QVRemoteDatabase *database) {
                if (QThread::currentThread() == database->thread()) {
                    delete database;
                } else {
                    MainQueue::dispatchAsync([database] { delete database; });
                }
            }};
}

EngineRemoteDatabase::EngineRemoteDatabase(const QString &UUID, const QString &name,
                                           const std::shared_ptr<QVSyncStore> &store)
    : m_UUID(UUID), m_metadata(new EngineRemoteDatabaseMetadata(name)), m_store(store) {
    m_metadata->setParent(this);
    moveToThread(QCoreApplication::instance()->thread());
}
