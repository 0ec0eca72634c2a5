#pragma once

#include "Engine/Schedules/ScheduleByClock.h"
#include "Host/QVDailySchedule.h"

/// A schedule that fires every day at the same time of day by the local clock (see TimeOfDay).
/// Immutable, thus thread-safe.
class EngineDailySchedule : public QVDailySchedule, public ScheduleByClock {
public:
    /// An empty or invalid time is replaced by TimeOfDay::Default.
    explicit EngineDailySchedule(const std::optional<HourAndMinute> &hourAndMinute);

    bool isHourly() const override { return false; }
    bool isDaily() const override { return true; }
    bool isWeekly() const override { return false; }
    /// Returns the next date after the current time, at most some two days later. Never invalid.
    QDateTime nextScheduledDate() const override;
    /// Always a valid time of day.
    HourAndMinute hourAndMinute() const override { return m_hourAndMinute; }

    /// Returns the next occurrence of the time of day after `now`; if `now` is exactly that time,
    /// the one on the next day. Invalid only if `now` is.
    QDateTime nextDateAfter(const QDateTime &now) const override;

private:
    const HourAndMinute m_hourAndMinute;
};
