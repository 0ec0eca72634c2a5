#pragma once

#include <functional>
#include <memory>

#include "Platform/Foundation/Error.h"

class QVSyncLocation;

/// The next steps that the pane offers with the error of a location. Must be used on the main
/// thread.
namespace LocationRecovery {

/// Returns "Edit Location…" if there is an editor, "Try Again", which calls `tryAgain`, and, for a
/// folder, "Show Folder". `location` must not be null; neither it nor the pane is kept alive.
QList<RecoveryOption> options(const std::shared_ptr<QVSyncLocation> &location,
                              const std::function<void()> &tryAgain);

/// Returns "Try Again", which calls `tryAgain`.
RecoveryOption tryAgainOption(const std::function<void()> &tryAgain);

}  // namespace LocationRecovery
