#pragma once

#include "Host/QVDailySchedule.h"

/// A schedule that fires at a time of day on selected days of the week. Clock changes are treated
/// as by QVDailySchedule.
class HOST_EXPORT QVWeeklySchedule : public QVSyncSchedule {
public:
    /// The class object, see HostClass.
    class HOST_EXPORT Class : public HostClass {
    public:
        /// The name under which a host registers the class object.
        static constexpr QLatin1StringView Name{"QVWeeklySchedule"};
        /// Returns a new schedule. If `hourAndMinute` is std::nullopt or not a valid time of day,
        /// the host's default time is used. Bits of `daysOfWeek` above 6 are kept but have no
        /// effect. Never null.
        virtual std::shared_ptr<const QVWeeklySchedule> initWithHourAndMinute(
            const std::optional<HourAndMinute> &hourAndMinute, quint64 daysOfWeek) const = 0;
    };
    ~QVWeeklySchedule() override;

    /// Returns the time of day at which the schedule fires. Always valid.
    virtual HourAndMinute hourAndMinute() const = 0;
    /// Returns the days as a bit mask: bit 0 is Sunday, bit 6 is Saturday. If none of these bits is
    /// set, the schedule never fires.
    virtual quint64 daysOfWeek() const = 0;
};
