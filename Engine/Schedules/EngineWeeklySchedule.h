#pragma once

#include "Engine/Schedules/ScheduleByClock.h"
#include "Host/QVWeeklySchedule.h"

/// A schedule that fires on given days of the week at the same time of day by the local clock (see
/// TimeOfDay). Immutable, thus thread-safe.
class EngineWeeklySchedule : public QVWeeklySchedule, public ScheduleByClock {
public:
    /// An empty or invalid time is replaced by TimeOfDay::Default. In `daysOfWeek`, bit 0 is Sunday
    /// and bit 6 Saturday; other bits are kept and have no effect. Without any day, the schedule
    /// never fires.
    EngineWeeklySchedule(const std::optional<HourAndMinute> &hourAndMinute, quint64 daysOfWeek);

    bool isHourly() const override { return false; }
    bool isDaily() const override { return false; }
    bool isWeekly() const override { return true; }
    /// Returns the next date after the current time; invalid if the schedule has no day.
    QDateTime nextScheduledDate() const override;
    HourAndMinute hourAndMinute() const override { return m_hourAndMinute; }
    /// Returns the mask as it was passed to the constructor.
    quint64 daysOfWeek() const override { return m_daysOfWeek; }

    /// Returns the first date after `now`; invalid if the schedule has no day or `now` is invalid.
    /// With a single day, and if `now` is exactly the time on that day, it is a week later.
    QDateTime nextDateAfter(const QDateTime &now) const override;

private:
    /// Returns whether the bit of the day of `date` is set.
    bool firesOn(const QDate &date) const;

    const HourAndMinute m_hourAndMinute;
    const quint64 m_daysOfWeek;
};
