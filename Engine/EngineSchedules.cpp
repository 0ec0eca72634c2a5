#include "Engine/EngineSchedules.h"

namespace EngineSchedules {

namespace {

constexpr int daysInWeek = 7;
constexpr quint32 minutesInHour = 60;
constexpr HourAndMinute defaultTime{9, 0};

class BaseSchedule : public QVSyncSchedule {
public:
    bool isHourly() const override { return false; }
    bool isDaily() const override { return false; }
    bool isWeekly() const override { return false; }
    QDateTime nextScheduledDate() const override { return {}; }
};

class HourlySchedule : public QVHourlySchedule {
public:
    explicit HourlySchedule(quint32 offset) : m_offset(offset % minutesInHour) {}
    bool isHourly() const override { return true; }
    bool isDaily() const override { return false; }
    bool isWeekly() const override { return false; }
    quint32 hourlyOffset() const override { return m_offset; }
    QDateTime nextScheduledDate() const override {
        return nextHourly(QDateTime::currentDateTime(), m_offset);
    }

private:
    const quint32 m_offset;
};

class DailySchedule : public QVDailySchedule {
public:
    explicit DailySchedule(const HourAndMinute &time) : m_time(time) {}
    bool isHourly() const override { return false; }
    bool isDaily() const override { return true; }
    bool isWeekly() const override { return false; }
    HourAndMinute hourAndMinute() const override { return m_time; }
    QDateTime nextScheduledDate() const override {
        return nextDaily(QDateTime::currentDateTime(), m_time);
    }

private:
    const HourAndMinute m_time;
};

class WeeklySchedule : public QVWeeklySchedule {
public:
    WeeklySchedule(const HourAndMinute &time, quint64 days) : m_time(time), m_days(days) {}
    bool isHourly() const override { return false; }
    bool isDaily() const override { return false; }
    bool isWeekly() const override { return true; }
    HourAndMinute hourAndMinute() const override { return m_time; }
    quint64 daysOfWeek() const override { return m_days; }
    QDateTime nextScheduledDate() const override {
        return nextWeekly(QDateTime::currentDateTime(), m_time, m_days);
    }

private:
    const HourAndMinute m_time;
    const quint64 m_days;
};

QDateTime at(const QDateTime &now, int days, const HourAndMinute &time) {
    QDateTime result = now;
    result.setDate(now.date().addDays(days));
    result.setTime(QTime(time.hour, time.minute));
    return result;
}

}  // namespace

QDateTime nextHourly(const QDateTime &now, quint32 minutesPast) {
    const QTime time = now.time();
    const qint64 sinceHour = qint64{time.minute()} * 60000 + time.second() * 1000 + time.msec();
    const QDateTime candidate = now.addMSecs(qint64{minutesPast} * 60000 - sinceHour);
    return candidate > now ? candidate : candidate.addSecs(3600);
}

QDateTime nextDaily(const QDateTime &now, const HourAndMinute &time) {
    const QDateTime today = at(now, 0, time);
    return today > now ? today : at(now, 1, time);
}

QDateTime nextWeekly(const QDateTime &now, const HourAndMinute &time, quint64 daysOfWeek) {
    for (int days = 0; days <= daysInWeek; ++days) {
        const QDateTime candidate = at(now, days, time);
        // QDate counts Sunday as 7.
        const int bit = candidate.date().dayOfWeek() % daysInWeek;
        if (candidate > now && (daysOfWeek >> bit & 1U) != 0) {
            return candidate;
        }
    }
    return {};
}

QVSyncSchedulePtr BaseClass::newSchedule() const {
    return std::make_shared<BaseSchedule>();
}

std::shared_ptr<const QVHourlySchedule> HourlyClass::newHourlySchedule() const {
    return std::make_shared<HourlySchedule>(0);
}

std::shared_ptr<const QVHourlySchedule> HourlyClass::initWithHourlyOffset(
    quint32 hourlyOffset) const {
    return std::make_shared<HourlySchedule>(hourlyOffset);
}

std::shared_ptr<const QVDailySchedule> DailyClass::initWithHourAndMinute(
    const std::optional<HourAndMinute> &hourAndMinute) const {
    return std::make_shared<DailySchedule>(hourAndMinute.value_or(defaultTime));
}

std::shared_ptr<const QVWeeklySchedule> WeeklyClass::initWithHourAndMinute(
    const std::optional<HourAndMinute> &hourAndMinute, quint64 daysOfWeek) const {
    return std::make_shared<WeeklySchedule>(hourAndMinute.value_or(defaultTime), daysOfWeek);
}

}  // namespace EngineSchedules
