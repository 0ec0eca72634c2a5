#pragma once

#include "Host/QVDailySchedule.h"

/// Fires at a time of day on some days of the week.
class HOST_EXPORT QVWeeklySchedule : public QVSyncSchedule {
public:
    /// Registered as "QVWeeklySchedule".
    class HOST_EXPORT Class : public HostClass {
    public:
        /// Without a time of day, the host's default is taken.
        virtual std::shared_ptr<const QVWeeklySchedule> initWithHourAndMinute(
            const std::optional<HourAndMinute> &hourAndMinute, quint64 daysOfWeek) const = 0;
    };
    ~QVWeeklySchedule() override;

    virtual HourAndMinute hourAndMinute() const = 0;
    /// Bit 0 is Sunday, bit 6 Saturday. Without any of these it never fires.
    virtual quint64 daysOfWeek() const = 0;
};
