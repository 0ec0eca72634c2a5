#pragma once

#include "Platform/PlatformExport.h"

/// Adds locations on behalf of the application.
///
/// This is an optional addition to PreferencePane: a pane that has it is also a LocationAdding.
/// Must be used on the main thread.
class PLATFORM_EXPORT LocationAdding {
public:
    enum class Kind { NewFolder, ExistingFolder, WebDAV, DirectConnection };
    /// What is shown when the location is added.
    enum class Next { Nothing, DatabasesToImport };

    virtual ~LocationAdding();

    /// Lets the user choose a location, which is added, and ticked for the selected database or,
    /// without one, for the first. Runs a nested event loop for folders and otherwise returns at
    /// once. Has no effect if another sheet of the pane is open. The view of the pane must be
    /// shown.
    virtual void addLocationOfKind(Kind kind, Next next) = 0;
};
