#include "Engine/EngineDispatcher.h"

#include "Host/QVApplication.h"
#include "Platform/Foundation/Localization.h"
#include "Platform/Foundation/MainQueue.h"

void EngineDispatcher::cleanRemoteStoreWithSynchronizationState(
    const std::shared_ptr<QVSyncState> &state, std::function<void()> handler) {
    NSApp()->logItemCmd(QStringLiteral("Sync:"),
                        localizedSyncString("This version of Velmora cannot clean up “%1” yet.")
                            .arg(state->databaseName()));
    MainQueue::dispatchAsync(std::move(handler));
}

void EngineDispatcher::performSynchronizationsWithSynchronizationStates(
    const QVSyncStates &states) {
    performSynchronizationsWithSynchronizationStates(states, [] {});
}

void EngineDispatcher::performSynchronizationsWithSynchronizationStates(
    const QVSyncStates &states, std::function<void()> handler) {
    for (const auto &state : states) {
        NSApp()->logItemCmd(
            QStringLiteral("Sync:"),
            localizedSyncString("This version of Velmora cannot synchronize “%1” yet.")
                .arg(state->databaseName()));
    }
    MainQueue::dispatchAsync(std::move(handler));
}
