#pragma once

#include <QtCore/QList>
#include <functional>

#include "Application/Interface/QuestionPresenter.h"
#include "Host/QVSyncState.h"

class QVSyncDispatcher;

/// Synchronizes with a decision that the user has made beforehand. The dispatcher of the sync
/// plug-in is also a RemovalDecider. Must be used on the main thread.
class INTERFACE_EXPORT RemovalDecider {
public:
    virtual ~RemovalDecider();

    /// Does what QVSyncDispatcher::performSynchronizationsWithSynchronizationStates() does. If one
    /// of these synchronizations would remove so many notes that the user must decide, `decision`
    /// is carried out at once, and only for the notes that it finds then. For
    /// RemovalDecision::Later the user is asked. `handler`, which must not be empty, is called on
    /// the main thread when all have ended, with the questions that `decision` has answered as far
    /// as it was carried out.
    virtual void synchronize(
        const QVSyncStates &states, RemovalDecision decision,
        std::function<void(const QList<RemovalQuestion> &decided)> handler) = 0;

    /// Returns `dispatcher` if it is one, otherwise null. Not owned.
    static RemovalDecider *of(QVSyncDispatcher *dispatcher);
};
