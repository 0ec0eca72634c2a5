#pragma once

#include <QtCore/QJsonObject>
#include <optional>

#include "Application/Interface/SyncPlugIn.h"
#include "Platform/Interface/PreferencePane.h"

/// The two plug-ins beside the program, each loaded once and kept. Main thread.
namespace PlugIns {

/// nullptr where it cannot be loaded; `error` then says why.
SyncPlugIn *loadSync(std::optional<Error> *error);

/// A fresh pane. Loads the plug-in, after that of the sync services. nullptr where that fails or
/// the pane refuses; `error` then says why.
std::unique_ptr<PreferencePane> makeSyncPreferences(std::optional<Error> *error);

}  // namespace PlugIns
