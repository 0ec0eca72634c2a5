#pragma once

#include <QtCore/QString>
#include <memory>

#include "Host/HostExport.h"

class QVSyncLocation;

/// What is selected in a pane, for an application that shows the pane again.
///
/// This is an optional addition to PreferencePane: a pane that has it is also a PaneSelection. The
/// view of the pane must be loaded, and willSelect() called. Must be used on the main thread.
class HOST_EXPORT PaneSelection {
public:
    virtual ~PaneSelection();

    /// Returns the UUID of the selected database as the pane lists it; empty if none is selected.
    virtual QString selectedDatabase() const = 0;
    /// Selects the row of the database. Has no effect if there is none, in particular if `UUID` is
    /// empty.
    virtual void selectDatabase(const QString &UUID) = 0;
    /// Returns the selected location; null if none is selected.
    virtual std::shared_ptr<QVSyncLocation> selectedLocation() const = 0;
    /// Selects the row of `location`. Has no effect if there is none, or if `location` is null.
    virtual void selectLocation(const std::shared_ptr<QVSyncLocation> &location) = 0;
};
