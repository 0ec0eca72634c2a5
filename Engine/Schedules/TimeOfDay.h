#pragma once

#include <QtCore/QDateTime>

#include "Host/QVDailySchedule.h"

/// Times of day by the local clock, also on days on which the clock changes. Thread-safe.
namespace TimeOfDay {

/// The time of a schedule that is created without one: nine o'clock.
inline constexpr HourAndMinute Default{9, 0};

/// Returns `time`, or Default if it is empty or not a valid time: hours are from 0 to 23, minutes
/// from 0 to 59.
HourAndMinute valid(const std::optional<HourAndMinute> &time);

/// Returns the moment at which the local clock shows `time` on `date`. If it does so twice, returns
/// the first. If it skips that time, returns the moment that is as long after the gap as `time` is
/// into it (RFC 5545, section 3.3.5). `time` must be valid. `date` must be valid as well. The
/// result is in local time, has neither seconds nor milliseconds, and is computed with the time
/// zone of this moment; Qt's own constructor of QDateTime is not used, because versions of Qt
/// differ in how it resolves both cases.
QDateTime on(const QDate &date, const HourAndMinute &time);

}  // namespace TimeOfDay
