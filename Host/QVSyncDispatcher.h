#pragma once

#include <QtCore/QObject>
#include <functional>
#include <memory>

#include "Host/QVSyncState.h"

/// Runs synchronizations and clean-ups. Called on the main thread; everything returns at once.
class HOST_EXPORT QVSyncDispatcher : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString activity READ activity NOTIFY activityChanged)
public:
    ~QVSyncDispatcher() override;

    /// Drops from the store of `state`'s location what no replica of its database needs any more.
    /// `handler` is called once when that is done or has failed, on any thread.
    virtual void cleanRemoteStoreWithSynchronizationState(const std::shared_ptr<QVSyncState> &state,
                                                          std::function<void()> handler) = 0;
    /// Synchronizes each of `states` now, enabled or not.
    Q_INVOKABLE virtual void performSynchronizationsWithSynchronizationStates(
        const QVSyncStates &states) = 0;
    /// The same; `handler` is called once on the main thread, when all have ended, well or not.
    virtual void performSynchronizationsWithSynchronizationStates(
        const QVSyncStates &states, std::function<void()> handler) = 0;
    /// What is being done now, for a person to read; empty while nothing is.
    virtual QString activity() const = 0;

Q_SIGNALS:
    void activityChanged();
};
