#pragma once

#include <optional>

#include "Host/QVSyncSchedule.h"

/// A time of day in the local time zone. A value, which is not checked: functions that take one say
/// what happens to a time out of range.
struct HourAndMinute {
    /// 0 to 23.
    int hour = 0;
    /// 0 to 59.
    int minute = 0;
    /// Compares the numbers, also if they are out of range.
    bool operator==(const HourAndMinute &) const = default;
};

/// A schedule that fires once a day. On a day on which the clock is changed it still fires once: at
/// the first of two equal times, and after the gap for a time that is skipped.
class HOST_EXPORT QVDailySchedule : public QVSyncSchedule {
public:
    /// The class object, see HostClass.
    class HOST_EXPORT Class : public HostClass {
    public:
        /// The name under which a host registers the class object.
        static constexpr QLatin1StringView Name{"QVDailySchedule"};
        /// Returns a new schedule. If `hourAndMinute` is std::nullopt or not a valid time of day,
        /// the host's default time is used. Never null.
        virtual std::shared_ptr<const QVDailySchedule> initWithHourAndMinute(
            const std::optional<HourAndMinute> &hourAndMinute) const = 0;
    };
    ~QVDailySchedule() override;

    /// Returns the time of day at which the schedule fires. Always valid.
    virtual HourAndMinute hourAndMinute() const = 0;
};
