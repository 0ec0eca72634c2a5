#pragma once

#include <QtCore/QVariant>

#include "Host/QVSyncSchedule.h"

/// A schedule as the three columns of a state's row in the profile. All are null for no schedule. A
/// value; its functions are thread-safe.
struct ScheduleColumns {
    /// "never", "hourly", "daily" or "weekly".
    QVariant kind;
    /// Minutes past the hour for an hourly schedule, past midnight for the others; null for
    /// "never".
    QVariant minutes;
    /// The mask of days of a weekly schedule, as QVWeeklySchedule::daysOfWeek() has it, in a signed
    /// number; null for the other kinds.
    QVariant days;

    /// Returns the columns for `schedule`. If it is null, all columns are null. A schedule of an
    /// unknown class is stored as "never".
    static ScheduleColumns fromSchedule(const QVSyncSchedulePtr &schedule);
    /// Returns a new schedule; null if the kind is null or unknown. The values may come from a
    /// damaged profile: those out of range are handled as by the constructors of the schedules, and
    /// those that are no numbers as 0.
    QVSyncSchedulePtr schedule() const;
};
