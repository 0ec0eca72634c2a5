#pragma once

#include "Host/QVSyncDispatcher.h"

/// Synchronizes and cleans nothing yet, and says so in the application's log.
class EngineDispatcher : public QVSyncDispatcher {
public:
    void cleanRemoteStoreWithSynchronizationState(const std::shared_ptr<QVSyncState> &state,
                                                  std::function<void()> handler) override;
    void performSynchronizationsWithSynchronizationStates(const QVSyncStates &states) override;
    void performSynchronizationsWithSynchronizationStates(const QVSyncStates &states,
                                                          std::function<void()> handler) override;
};
