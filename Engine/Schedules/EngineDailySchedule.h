#pragma once

#include "Engine/Schedules/ScheduleByClock.h"
#include "Host/QVDailySchedule.h"

class EngineDailySchedule : public QVDailySchedule, public ScheduleByClock {
public:
    explicit EngineDailySchedule(const std::optional<HourAndMinute> &hourAndMinute);

    bool isHourly() const override { return false; }
    bool isDaily() const override { return true; }
    bool isWeekly() const override { return false; }
    QDateTime nextScheduledDate() const override;
    HourAndMinute hourAndMinute() const override { return m_hourAndMinute; }

    QDateTime nextDateAfter(const QDateTime &now) const override;

private:
    const HourAndMinute m_hourAndMinute;
};
