#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QMetaType>
#include <memory>

#include "Host/ClassRegistry.h"

/// Determines when a database is synchronized automatically. Immutable, therefore thread-safe.
/// Shared ownership. An instance of this class itself never fires; QVHourlySchedule,
/// QVDailySchedule and QVWeeklySchedule do.
class HOST_EXPORT QVSyncSchedule {
public:
    /// The class object, see HostClass.
    class HOST_EXPORT Class : public HostClass {
    public:
        /// The name under which a host registers the class object.
        static constexpr QLatin1StringView Name{"QVSyncSchedule"};
        /// Implements QVSyncSchedule::newSchedule().
        virtual std::shared_ptr<const QVSyncSchedule> newSchedule() const = 0;
    };
    /// Returns a new schedule that never fires and is neither hourly, daily nor weekly. Never null.
    /// Raises an AssertionFailure if the host has no class "QVSyncSchedule".
    static std::shared_ptr<const QVSyncSchedule> newSchedule();

    virtual ~QVSyncSchedule();

    /// Returns whether the schedule is a QVHourlySchedule. At most one of this, isDaily() and
    /// isWeekly() is true. The schedule can then be cast to the class of that name with
    /// dynamic_cast or std::dynamic_pointer_cast. Constant.
    virtual bool isHourly() const = 0;
    /// Returns whether the schedule is a QVDailySchedule, see isHourly().
    virtual bool isDaily() const = 0;
    /// Returns whether the schedule is a QVWeeklySchedule, see isHourly().
    virtual bool isWeekly() const = 0;
    /// Returns the next date after the current time at which the schedule fires, in local time, or
    /// an invalid date if it never fires. Computed anew in each call. Depends on the clock and the
    /// time zone of the computer; no change of these is announced.
    virtual QDateTime nextScheduledDate() const = 0;
};

/// A shared schedule; null means that there is no schedule.
using QVSyncSchedulePtr = std::shared_ptr<const QVSyncSchedule>;
Q_DECLARE_METATYPE(QVSyncSchedulePtr)
