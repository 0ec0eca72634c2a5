#pragma once

#include <QtCore/QDateTime>

/// What every schedule of the engine can tell besides what the host asks. Any thread.
class ScheduleByClock {
public:
    virtual ~ScheduleByClock() = default;
    /// The first time it fires after `now`, in local time; an invalid date where it never does.
    virtual QDateTime nextDateAfter(const QDateTime &now) const = 0;
};
