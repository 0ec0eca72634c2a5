#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QMetaType>
#include <memory>

#include "Host/ClassRegistry.h"

/// When a database synchronizes by itself. An immutable value, shared by all that hold it; any
/// thread.
class HOST_EXPORT QVSyncSchedule {
public:
    /// Registered as "QVSyncSchedule".
    class HOST_EXPORT Class : public HostClass {
    public:
        /// A schedule that never fires: neither hourly, daily nor weekly.
        virtual std::shared_ptr<const QVSyncSchedule> newSchedule() const = 0;
    };
    static std::shared_ptr<const QVSyncSchedule> newSchedule();

    virtual ~QVSyncSchedule();

    virtual bool isHourly() const = 0;
    virtual bool isDaily() const = 0;
    virtual bool isWeekly() const = 0;
    /// The next time it fires after now, in local time; an invalid date where it never does.
    virtual QDateTime nextScheduledDate() const = 0;
};

using QVSyncSchedulePtr = std::shared_ptr<const QVSyncSchedule>;
Q_DECLARE_METATYPE(QVSyncSchedulePtr)
