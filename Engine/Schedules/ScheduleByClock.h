#pragma once

#include <QtCore/QDateTime>

/// Interface of the schedules that depend on the clock. A schedule does not wake by itself and does
/// not remember when it has fired: its owner asks for the next date again after each, and whenever
/// the clock or the time zone was changed. Thread-safe.
class ScheduleByClock {
public:
    virtual ~ScheduleByClock() = default;
    /// Returns the first time after `now` at which the schedule fires, in local time; an invalid
    /// date if it never does, or if `now` is invalid. `now` must be in local time. The current
    /// clock is not read, but the current time zone is (TZ), so the result can change between calls
    /// with the same argument.
    virtual QDateTime nextDateAfter(const QDateTime &now) const = 0;
};
