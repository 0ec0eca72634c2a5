#pragma once

#include "Engine/Schedules/ScheduleByClock.h"
#include "Host/QVHourlySchedule.h"

/// A schedule that fires each time the local clock shows a given minute of the hour. At the end of
/// daylight saving time it fires in both of the equal hours. Immutable, thus thread-safe.
class EngineHourlySchedule : public QVHourlySchedule, public ScheduleByClock {
public:
    /// Minutes past the hour.
    static constexpr quint32 DefaultOffset = 0;

    /// `hourlyOffset` is in minutes past the hour, taken modulo 60.
    explicit EngineHourlySchedule(quint32 hourlyOffset) : m_hourlyOffset(hourlyOffset % 60) {}

    bool isHourly() const override { return true; }
    bool isDaily() const override { return false; }
    bool isWeekly() const override { return false; }
    /// Returns the next date after the current time, usually within an hour. Never invalid.
    QDateTime nextScheduledDate() const override;
    /// From 0 to 59.
    quint32 hourlyOffset() const override { return m_hourlyOffset; }

    /// Returns the start of the first full minute after `now` with the offset; if `now` lies within
    /// such a minute, it is that of a later hour. Invalid only if `now` is. Takes at most some 120
    /// steps of a minute each.
    QDateTime nextDateAfter(const QDateTime &now) const override;

private:
    /// From 0 to 59.
    const quint32 m_hourlyOffset;
};
