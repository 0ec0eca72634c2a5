#include "Engine/EngineDispatcher.h"

#include "Engine/MainThreadQueue.h"
#include "Host/QVApplication.h"
#include "Platform/Foundation/Localization.h"

namespace {

void logNotDone(const char *text, const QVSyncState &state) {
    NSApp()->logItemCmd(QStringLiteral("Sync:"),
                        localizedSyncString(text).arg(state.databaseName()));
}

}  // namespace

void EngineDispatcher::cleanRemoteStoreWithSynchronizationState(
    const std::shared_ptr<QVSyncState> &state, std::function<void()> handler) {
    logNotDone("“%1” was not cleaned up: this version of Velmora cannot clean up yet.", *state);
    MainThreadQueue::post(std::move(handler));
}

void EngineDispatcher::performSynchronizationsWithSynchronizationStates(
    const QVSyncStates &states) {
    for (const std::shared_ptr<QVSyncState> &state : states) {
        logNotDone("“%1” was not synchronized: this version of Velmora cannot synchronize yet.",
                   *state);
    }
}

void EngineDispatcher::performSynchronizationsWithSynchronizationStates(
    const QVSyncStates &states, std::function<void()> handler) {
    performSynchronizationsWithSynchronizationStates(states);
    MainThreadQueue::post(std::move(handler));
}
