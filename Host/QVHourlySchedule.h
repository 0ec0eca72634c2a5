#pragma once

#include "Host/QVSyncSchedule.h"

/// A schedule that fires once an hour, by the local clock. At the end of daylight saving time it
/// fires in both of the equal hours.
class HOST_EXPORT QVHourlySchedule : public QVSyncSchedule {
public:
    /// The class object, see HostClass.
    class HOST_EXPORT Class : public HostClass {
    public:
        /// The name under which a host registers the class object.
        static constexpr QLatin1StringView Name{"QVHourlySchedule"};
        /// Returns a new schedule with the host's default offset. Never null.
        virtual std::shared_ptr<const QVHourlySchedule> newHourlySchedule() const = 0;
        /// Returns a new schedule that fires `hourlyOffset` minutes past each full hour of the
        /// local clock. Values above 59 are reduced modulo 60. Never null.
        virtual std::shared_ptr<const QVHourlySchedule> initWithHourlyOffset(
            quint32 hourlyOffset) const = 0;
    };
    ~QVHourlySchedule() override;

    /// Returns the minutes past the full hour, 0 to 59.
    virtual quint32 hourlyOffset() const = 0;
};
