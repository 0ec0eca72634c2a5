#pragma once

#include <memory>

#include "Application/Interface/SyncPlugIn.h"
#include "Platform/Foundation/Expected.h"
#include "Platform/Interface/PreferencePane.h"

/// The two plug-ins of the program, from the folder "lib" beside that of the program. Each is
/// loaded once and never unloaded. Main thread only.
namespace PlugIns {

/// Loads the sync plug-in, which the application keeps until it ends. Never returns null.
Expected<SyncPlugIn *> loadSync();

/// Returns a new pane and loads its plug-in if necessary. Must be called after loadSync(). Fails if
/// the plug-in cannot be loaded, or if the pane misses something of the host. Never returns null.
Expected<std::unique_ptr<PreferencePane>> makeSyncPreferences();

}  // namespace PlugIns
