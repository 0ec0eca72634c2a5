#pragma once

#include <QtCore/QString>

#include "Host/HostExport.h"

/// Adds locations on behalf of the application.
///
/// This is an optional addition to PreferencePane: a pane that has it is also a LocationAdding.
/// Must be used on the main thread.
class HOST_EXPORT LocationAdding {
public:
    /// What is shown when the location is added.
    enum class Next { Nothing, DatabasesToImport };

    virtual ~LocationAdding();

    /// Lets the user choose a location of the kind `kind`, see LocationOffer. It is added, and
    /// ticked for every open database. A folder is a new one unless databases are to be imported
    /// from it. Runs a nested event loop for folders and otherwise returns at once. Has no effect
    /// if another sheet of the pane is open or the pane offers no such kind. The view of the pane
    /// must be shown.
    virtual void addLocationOfKind(const QString &kind, Next next) = 0;
};
