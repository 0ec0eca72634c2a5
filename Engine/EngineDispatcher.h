#pragma once

#include "Host/QVSyncDispatcher.h"

/// Notes do not travel yet: what it is asked for ends at once, with an entry in the application's
/// log that says so.
class EngineDispatcher : public QVSyncDispatcher {
    Q_OBJECT
public:
    void cleanRemoteStoreWithSynchronizationState(const std::shared_ptr<QVSyncState> &state,
                                                  std::function<void()> handler) override;
    void performSynchronizationsWithSynchronizationStates(const QVSyncStates &states) override;
    void performSynchronizationsWithSynchronizationStates(const QVSyncStates &states,
                                                          std::function<void()> handler) override;
};
