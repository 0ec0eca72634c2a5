#pragma once

#include <QtCore/QVariant>

#include "Host/QVSyncSchedule.h"

/// A schedule as the three columns in which a state's row keeps it; all are null for none.
struct ScheduleColumns {
    /// "never", "hourly", "daily" or "weekly".
    QVariant kind;
    /// Past the hour for an hourly schedule, past midnight for the others.
    QVariant minutes;
    /// The mask of a weekly schedule.
    QVariant days;

    static ScheduleColumns fromSchedule(const QVSyncSchedulePtr &schedule);
    /// nullptr also for a kind that is unknown.
    QVSyncSchedulePtr schedule() const;
};
