#pragma once

#include "Host/QVSyncSchedule.h"

/// Fires every hour.
class HOST_EXPORT QVHourlySchedule : public QVSyncSchedule {
public:
    /// Registered as "QVHourlySchedule".
    class HOST_EXPORT Class : public HostClass {
    public:
        /// With the host's default offset.
        virtual std::shared_ptr<const QVHourlySchedule> newHourlySchedule() const = 0;
        /// `hourlyOffset`: minutes past the full hour; what lies above 59 is taken modulo 60.
        virtual std::shared_ptr<const QVHourlySchedule> initWithHourlyOffset(
            quint32 hourlyOffset) const = 0;
    };
    ~QVHourlySchedule() override;

    /// Minutes past the full hour, 0 to 59.
    virtual quint32 hourlyOffset() const = 0;
};
