#pragma once

#include "Host/QVSyncSchedule.h"

class QVSyncScheduleEditor;

/// Observes the changes of a schedule in an editor. Called on the main thread, within the setter
/// that changed it, after the row and its states have the new schedule. Not called when another row
/// is represented.
class QVSyncScheduleEditorDelegate {
public:
    virtual ~QVSyncScheduleEditorDelegate() = default;
    /// Called after each change, possibly several times for one change by the user. `schedule` is
    /// the new schedule; null if scheduling was disabled. `editor` is never null and must not be
    /// destroyed in the call; its schedule may be set again, which calls this recursively.
    virtual void editorDidChangeSchedule(QVSyncScheduleEditor *editor,
                                         const QVSyncSchedulePtr &schedule) = 0;
};
