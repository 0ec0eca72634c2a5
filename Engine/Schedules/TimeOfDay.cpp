#include "Engine/Schedules/TimeOfDay.h"

#include <QtCore/QTimeZone>

HourAndMinute TimeOfDay::valid(const std::optional<HourAndMinute> &time) {
    return time && QTime::isValid(time->hour, time->minute, 0) ? *time : Default;
}

QDateTime TimeOfDay::on(const QDate &date, const HourAndMinute &time) {
    const QTime clock(time.hour, time.minute);
    const auto withOffsetOfNoon = [&](const QDate &day) {
        const int offset = QDateTime(day, QTime(12, 0)).offsetFromUtc();
        return QDateTime(date, clock, QTimeZone::utc()).addSecs(-offset).toLocalTime();
    };
    const auto isShown = [&](const QDateTime &moment) {
        return moment.date() == date && moment.time() == clock;
    };
    const QDateTime before = withOffsetOfNoon(date.addDays(-1));
    const QDateTime after = withOffsetOfNoon(date.addDays(1));
    return !isShown(before) && isShown(after) ? after : before;
}
