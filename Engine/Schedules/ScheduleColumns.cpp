#include "Engine/Schedules/ScheduleColumns.h"

#include "Engine/Schedules/EngineDailySchedule.h"
#include "Engine/Schedules/EngineHourlySchedule.h"
#include "Engine/Schedules/EngineSchedule.h"
#include "Engine/Schedules/EngineWeeklySchedule.h"

namespace {

int minutesOfDay(const HourAndMinute &time) {
    return time.hour * 60 + time.minute;
}

HourAndMinute timeOfDay(int minutes) {
    return {minutes / 60, minutes % 60};
}

}  // namespace

ScheduleColumns ScheduleColumns::fromSchedule(const QVSyncSchedulePtr &schedule) {
    if (!schedule) {
        return {};
    }
    if (const auto *hourly = dynamic_cast<const QVHourlySchedule *>(schedule.get())) {
        return {QStringLiteral("hourly"), hourly->hourlyOffset(), {}};
    }
    if (const auto *daily = dynamic_cast<const QVDailySchedule *>(schedule.get())) {
        return {QStringLiteral("daily"), minutesOfDay(daily->hourAndMinute()), {}};
    }
    if (const auto *weekly = dynamic_cast<const QVWeeklySchedule *>(schedule.get())) {
        return {QStringLiteral("weekly"), minutesOfDay(weekly->hourAndMinute()),
                static_cast<qint64>(weekly->daysOfWeek())};
    }
    return {QStringLiteral("never"), {}, {}};
}

QVSyncSchedulePtr ScheduleColumns::schedule() const {
    const QString name = kind.toString();
    if (name == QStringLiteral("hourly")) {
        return std::make_shared<EngineHourlySchedule>(minutes.toUInt());
    }
    if (name == QStringLiteral("daily")) {
        return std::make_shared<EngineDailySchedule>(timeOfDay(minutes.toInt()));
    }
    if (name == QStringLiteral("weekly")) {
        return std::make_shared<EngineWeeklySchedule>(timeOfDay(minutes.toInt()),
                                                      static_cast<quint64>(days.toLongLong()));
    }
    return name == QStringLiteral("never") ? std::make_shared<EngineSchedule>() : nullptr;
}
