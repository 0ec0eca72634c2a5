#pragma once

#include "Host/QVSyncSchedule.h"

class QVSyncScheduleEditor;

/// Hears of each change of a schedule in an editor.
class QVSyncScheduleEditorDelegate {
public:
    virtual ~QVSyncScheduleEditorDelegate() = default;
    /// `schedule`: the new one; nullptr: none.
    virtual void editorDidChangeSchedule(QVSyncScheduleEditor *editor,
                                         const QVSyncSchedulePtr &schedule) = 0;
};
