#include "Engine/Schedules/EngineDailySchedule.h"

#include "Engine/Schedules/TimeOfDay.h"

EngineDailySchedule::EngineDailySchedule(const std::optional<HourAndMinute> &hourAndMinute)
    : m_hourAndMinute(TimeOfDay::valid(hourAndMinute)) {}

QDateTime EngineDailySchedule::nextScheduledDate() const {
    return nextDateAfter(QDateTime::currentDateTime());
}

QDateTime EngineDailySchedule::nextDateAfter(const QDateTime &now) const {
    if (!now.isValid()) {
        return {};
    }
    QDateTime next = TimeOfDay::on(now.date(), m_hourAndMinute);
    for (int days = 1; next <= now; ++days) {
        next = TimeOfDay::on(now.date().addDays(days), m_hourAndMinute);
    }
    return next;
}
