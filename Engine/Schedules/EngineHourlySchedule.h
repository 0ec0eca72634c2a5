#pragma once

#include "Engine/Schedules/ScheduleByClock.h"
#include "Host/QVHourlySchedule.h"

/// A schedule that fires each time the local clock shows a given minute of the hour. Immutable,
/// thus thread-safe.
class EngineHourlySchedule : public QVHourlySchedule, public ScheduleByClock {
public:
    /// Minutes past the hour.
    static constexpr quint32 DefaultOffset = 0;

    /// `hourlyOffset` is in minutes past the hour, taken modulo 60.
    explicit EngineHourlySchedule(quint32 hourlyOffset) : m_hourlyOffset(hourlyOffset % 60) {}

    bool isHourly() const override { return true; }
    bool isDaily() const override { return false; }
    bool isWeekly() const override { return false; }
    /// Returns the next date after the current time. Never invalid.
    QDateTime nextScheduledDate() const override;
    quint32 hourlyOffset() const override { return m_hourlyOffset; }

    /// Returns the start of the first full minute after `now` with the offset. Never invalid. Takes
    /// at most some 120 steps.
    QDateTime nextDateAfter(const QDateTime &now) const override;

private:
    /// From 0 to 59.
    const quint32 m_hourlyOffset;
};
