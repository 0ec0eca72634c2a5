#pragma once

#include <memory>

#include "Application/Interface/SyncPlugIn.h"
#include "Host/LocationOffers.h"
#include "Platform/Foundation/Expected.h"
#include "Platform/Interface/PreferencePane.h"

/// The two plug-ins of the program, loaded from the folder "velmora" of the libraries next to the
/// program's folder, wherever the program was built or installed. Each is loaded once and never
/// unloaded. Must be used on the main thread, while a QCoreApplication
/// exists.
namespace PlugIns {

/// Loads the sync plug-in. Returns its root object, which is not owned and exists until the program
/// ends; never null. Fails if the file cannot be loaded or is a different plug-in, also one of
/// another version of the interface; the reason is that of QPluginLoader. Blocks for the disk.
Expected<SyncPlugIn *> loadSync();

/// Returns a new pane, never null, and loads its plug-in if necessary. Must be called after
/// loadSync(). Fails if the plug-in cannot be loaded or the host lacks a class that the pane needs.
/// The pane must be destroyed before SyncPlugIn::closeProfile() is called.
Expected<std::unique_ptr<PreferencePane>> makeSyncPreferences();

/// Returns what the pane's plug-in offers to new users, and loads it if necessary; nothing if it
/// has no such addition. Fails if the plug-in cannot be loaded.
Expected<QList<LocationOffer>> locationOffers();

}  // namespace PlugIns
