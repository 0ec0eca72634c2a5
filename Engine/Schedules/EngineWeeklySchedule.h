#pragma once

#include "Engine/Schedules/ScheduleByClock.h"
#include "Host/QVWeeklySchedule.h"

class EngineWeeklySchedule : public QVWeeklySchedule, public ScheduleByClock {
public:
    EngineWeeklySchedule(const std::optional<HourAndMinute> &hourAndMinute, quint64 daysOfWeek);

    bool isHourly() const override { return false; }
    bool isDaily() const override { return false; }
    bool isWeekly() const override { return true; }
    QDateTime nextScheduledDate() const override;
    HourAndMinute hourAndMinute() const override { return m_hourAndMinute; }
    quint64 daysOfWeek() const override { return m_daysOfWeek; }

    QDateTime nextDateAfter(const QDateTime &now) const override;

private:
    bool firesOn(const QDate &date) const;

    const HourAndMinute m_hourAndMinute;
    const quint64 m_daysOfWeek;
};
