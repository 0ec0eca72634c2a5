#pragma once

#include "Host/QVHourlySchedule.h"
#include "Host/QVWeeklySchedule.h"

/// The schedules of the engine, their class objects, and the next firing of each, as functions of
/// the time.
namespace EngineSchedules {

/// The next full hour plus `minutesPast` after `now`, in the time zone of `now`.
QDateTime nextHourly(const QDateTime &now, quint32 minutesPast);
/// The next day's or this day's `time` after `now`. Where the clock skips that time, what it is set
/// to.
QDateTime nextDaily(const QDateTime &now, const HourAndMinute &time);
/// The same on the days of the mask alone, bit 0 for Sunday; invalid where it has none.
QDateTime nextWeekly(const QDateTime &now, const HourAndMinute &time, quint64 daysOfWeek);

class BaseClass : public QVSyncSchedule::Class {
public:
    QVSyncSchedulePtr newSchedule() const override;
};

/// Without an offset of its own a schedule fires at the full hour.
class HourlyClass : public QVHourlySchedule::Class {
public:
    std::shared_ptr<const QVHourlySchedule> newHourlySchedule() const override;
    std::shared_ptr<const QVHourlySchedule> initWithHourlyOffset(
        quint32 hourlyOffset) const override;
};

/// Without a time of its own a schedule fires at 9 in the morning.
class DailyClass : public QVDailySchedule::Class {
public:
    std::shared_ptr<const QVDailySchedule> initWithHourAndMinute(
        const std::optional<HourAndMinute> &hourAndMinute) const override;
};

class WeeklyClass : public QVWeeklySchedule::Class {
public:
    std::shared_ptr<const QVWeeklySchedule> initWithHourAndMinute(
        const std::optional<HourAndMinute> &hourAndMinute, quint64 daysOfWeek) const override;
};

}  // namespace EngineSchedules
