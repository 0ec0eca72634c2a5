#pragma once

#include <QtCore/QDateTime>

/// Interface of the schedules that depend on the clock. Thread-safe.
class ScheduleByClock {
public:
    virtual ~ScheduleByClock() = default;
    /// Returns the first time after `now` at which the schedule fires, in local time; an invalid
    /// date if it never does. The current clock is not read.
    virtual QDateTime nextDateAfter(const QDateTime &now) const = 0;
};
