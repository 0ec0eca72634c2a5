#pragma once

#include "Engine/Schedules/ScheduleByClock.h"
#include "Host/QVHourlySchedule.h"

/// Fires whenever the minute hand of the local clock reaches the offset.
class EngineHourlySchedule : public QVHourlySchedule, public ScheduleByClock {
public:
    static constexpr quint32 DefaultOffset = 0;

    explicit EngineHourlySchedule(quint32 hourlyOffset) : m_hourlyOffset(hourlyOffset % 60) {}

    bool isHourly() const override { return true; }
    bool isDaily() const override { return false; }
    bool isWeekly() const override { return false; }
    QDateTime nextScheduledDate() const override;
    quint32 hourlyOffset() const override { return m_hourlyOffset; }

    QDateTime nextDateAfter(const QDateTime &now) const override;

private:
    const quint32 m_hourlyOffset;
};
