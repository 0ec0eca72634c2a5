#pragma once

#include <functional>
#include <memory>

#include "Application/SynchronizationSummary.h"

class QVSyncLocation;

/// The next steps that the windows offer with failures of synchronizations. Must be used on the
/// main thread.
namespace FailureSteps {

using Editor = std::function<void(const std::shared_ptr<QVSyncLocation> &location)>;

/// Returns "Try Again", which calls `tryAgain`, and, if all of `failed` are at one location, "Edit
/// Location…", which calls `edit`, and, for a folder, "Show Folder". If some of `failed` are
/// partial, "Show Log" comes first, since the log names what was left out. The location is not kept
/// alive; the steps have no effect once it is gone.
QList<RecoveryOption> of(const QList<SynchronizationSummary::Item> &failed, const Editor &edit,
                         const std::function<void()> &tryAgain);

/// Starts the jobs of `failed` again, clean-ups as such. Returns at once.
void runAgain(const QList<SynchronizationSummary::Item> &failed);

}  // namespace FailureSteps
