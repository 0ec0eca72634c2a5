#pragma once

#include <QtCore/QDateTime>

#include "Host/QVDailySchedule.h"

/// Times of day by the local clock, also on the days on which it is changed.
namespace TimeOfDay {

/// Where a schedule is made without one.
inline constexpr HourAndMinute Default{9, 0};

/// `time`, or the default for none or one that no clock shows.
HourAndMinute valid(const std::optional<HourAndMinute> &time);

/// The moment at which the local clock shows `time` on `date`. One that it shows twice is the
/// first; one that it skips is as many minutes after the gap as it would have been into it (RFC
/// 5545, section 3.3.5).
QDateTime on(const QDate &date, const HourAndMinute &time);

}  // namespace TimeOfDay
