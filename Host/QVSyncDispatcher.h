#pragma once

#include <QtCore/QObject>
#include <functional>
#include <memory>

#include "Host/QVSyncState.h"

/// Runs synchronizations and clean-ups in the background. Must be used on the main thread. Every
/// function returns at once. Jobs for the same location run one after the other, those of different
/// locations perhaps at the same time; asking again for a job that is still waiting does not add
/// another one, but every handler is called. A job that fails reports to the user by itself (the
/// application's log), never through a handler. Jobs that run when the host closes its profile are
/// cancelled, and their handlers are not called.
class HOST_EXPORT QVSyncDispatcher : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString activity READ activity NOTIFY activityChanged)
public:
    ~QVSyncDispatcher() override;

    /// Removes from the store at the location of `state` what no replica of its database needs any
    /// more. `handler`, which must not be empty, is called once when that has succeeded or failed.
    /// A host may call it on any thread, because the work ends on one; so a handler must not touch
    /// the user interface. If `state` is null or disabled, or its location has been destroyed,
    /// nothing is cleaned and `handler` is called all the same.
    virtual void cleanRemoteStoreWithSynchronizationState(const std::shared_ptr<QVSyncState> &state,
                                                          std::function<void()> handler) = 0;
    /// Synchronizes the database of each state with the state's location. `states` may be empty and
    /// contain duplicates; no entry may be null. Disabled states, and those whose location has been
    /// destroyed or is not one of this host, are skipped.
    Q_INVOKABLE virtual void performSynchronizationsWithSynchronizationStates(
        const QVSyncStates &states) = 0;
    /// Does the same, and calls `handler` once when all these synchronizations have ended,
    /// successfully or not: on the main thread, since it updates the user interface, and never from
    /// within this function. `handler` must not be empty.
    virtual void performSynchronizationsWithSynchronizationStates(
        const QVSyncStates &states, std::function<void()> handler) = 0;
    /// Returns a localized description of what the dispatcher is doing, or an empty text if it is
    /// idle. If several jobs run, it describes the one that was started first.
    virtual QString activity() const = 0;

Q_SIGNALS:
    /// Emitted after activity() has changed.
    void activityChanged();
};
