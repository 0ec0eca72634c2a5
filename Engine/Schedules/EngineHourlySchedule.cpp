#include "Engine/Schedules/EngineHourlySchedule.h"

QDateTime EngineHourlySchedule::nextScheduledDate() const {
    return nextDateAfter(QDateTime::currentDateTime());
}

QDateTime EngineHourlySchedule::nextDateAfter(const QDateTime &now) const {
    constexpr quint32 minutes = 60;
    if (!now.isValid() || m_hourlyOffset >= minutes) {
        return {};
    }
    const QTime time = now.time();
    QDateTime next = now.addMSecs(60000 - time.second() * 1000 - time.msec());
    // A step at a time, since a clock change need not be a whole hour.
    while (next.time().minute() != static_cast<int>(m_hourlyOffset)) {
        next = next.addSecs(60);
    }
    return next;
}
