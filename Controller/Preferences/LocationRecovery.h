#pragma once

#include <functional>
#include <memory>

#include "Platform/Foundation/Error.h"

class QVSyncLocation;
class QVSyncState;

/// The next steps that the pane offers with the error of a location. Must be used on the main
/// thread.
namespace LocationRecovery {

/// Returns "Edit Location…" if there is an editor, "Try Again", which calls `tryAgain`, and, for a
/// folder, "Show Folder". `location` must not be null; neither it nor the pane is kept alive.
QList<RecoveryOption> options(const std::shared_ptr<QVSyncLocation> &location,
                              const std::function<void()> &tryAgain);

/// Shows the folder of `location`, which must not be null and has a file URL, in the file manager.
/// Returns at once. A failure is presented later, with "Edit Location…".
void showFolder(const std::shared_ptr<QVSyncLocation> &location);

/// Returns `options`, preceded by "Show Log" if the application offers it. For failures that left
/// some items out: the log names these.
QList<RecoveryOption> withLog(const QList<RecoveryOption> &options);

/// Returns a function that starts the last job of `state` again, which has a result and must not be
/// null: a clean-up as such. The state is not kept alive; once it is gone, the function has no
/// effect.
std::function<void()> lastJobOf(const std::shared_ptr<QVSyncState> &state);

/// Returns "Try Again", which calls `tryAgain`.
RecoveryOption tryAgainOption(const std::function<void()> &tryAgain);

}  // namespace LocationRecovery
