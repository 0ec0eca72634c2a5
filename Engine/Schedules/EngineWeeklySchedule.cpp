#include "Engine/Schedules/EngineWeeklySchedule.h"

#include "Engine/Schedules/TimeOfDay.h"

EngineWeeklySchedule::EngineWeeklySchedule(const std::optional<HourAndMinute> &hourAndMinute,
                                           quint64 daysOfWeek)
    : m_hourAndMinute(TimeOfDay::valid(hourAndMinute)), m_daysOfWeek(daysOfWeek) {}

QDateTime EngineWeeklySchedule::nextScheduledDate() const {
    return nextDateAfter(QDateTime::currentDateTime());
}

QDateTime EngineWeeklySchedule::nextDateAfter(const QDateTime &now) const {
    if (!now.isValid()) {
        return {};
    }
    for (int days = 0; days <= 7; ++days) {
        const QDate date = now.date().addDays(days);
        QDateTime next = TimeOfDay::on(date, m_hourAndMinute);
        if (firesOn(date) && next > now) {
            return next;
        }
    }
    return {};
}

bool EngineWeeklySchedule::firesOn(const QDate &date) const {
    // Qt counts Monday as 1 and Sunday as 7.
    return (m_daysOfWeek >> (date.dayOfWeek() % 7)) & 1U;
}
