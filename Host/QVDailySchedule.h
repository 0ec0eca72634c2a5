#pragma once

#include <optional>

#include "Host/QVSyncSchedule.h"

/// A time of day: hour 0 to 23, minute 0 to 59, by the local clock.
struct HourAndMinute {
    int hour = 0;
    int minute = 0;
    bool operator==(const HourAndMinute &) const = default;
};

/// Fires every day at a time of day.
class HOST_EXPORT QVDailySchedule : public QVSyncSchedule {
public:
    /// Registered as "QVDailySchedule".
    class HOST_EXPORT Class : public HostClass {
    public:
        /// Without a time of day, the host's default is taken.
        virtual std::shared_ptr<const QVDailySchedule> initWithHourAndMinute(
            const std::optional<HourAndMinute> &hourAndMinute) const = 0;
    };
    ~QVDailySchedule() override;

    virtual HourAndMinute hourAndMinute() const = 0;
};
