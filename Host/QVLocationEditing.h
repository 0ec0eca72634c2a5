#pragma once

#include <memory>

#include "Host/HostExport.h"

class QVSyncLocation;

/// Edits locations on behalf of the application.
///
/// This is an optional addition to PreferencePane: a pane that has it is also a QVLocationEditing.
/// Must be used on the main thread.
class HOST_EXPORT QVLocationEditing {
public:
    virtual ~QVLocationEditing();

    /// Shows the editor of `location`, which must not be null, and returns at once. Returns false
    /// without an effect if it has no editor or another sheet of the pane is open. The view of the
    /// pane must be shown.
    virtual bool editLocation(const std::shared_ptr<QVSyncLocation> &location) = 0;
};
