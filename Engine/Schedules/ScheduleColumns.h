#pragma once

#include <QtCore/QVariant>

#include "Host/QVSyncSchedule.h"

/// A schedule as the three columns of a state's row in the profile. All are null for no schedule.
/// A value. Must be used on the main thread, like the schedules.
struct ScheduleColumns {
    /// "never", "hourly", "daily" or "weekly".
    QVariant kind;
    /// Minutes past the hour for an hourly schedule, past midnight for the others.
    QVariant minutes;
    /// The mask of days of a weekly schedule.
    QVariant days;

    /// Returns the columns for `schedule`, which may be null.
    static ScheduleColumns fromSchedule(const QVSyncSchedulePtr &schedule);
    /// Returns a new schedule; null if the kind is null or unknown. Values out of range are handled
    /// as by the constructors of the schedules.
    QVSyncSchedulePtr schedule() const;
};
