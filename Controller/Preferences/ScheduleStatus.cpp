#include "Controller/Preferences/ScheduleStatus.h"

#include "Host/SyncStrings.h"
#include "Platform/Foundation/RelativeDate.h"

ScheduleStatus::ScheduleStatus(QObject *parent) : QObject(parent) {
    connect(m_dayChange.get(), &DayChange::occurred, this, &ScheduleStatus::changed);
}

void ScheduleStatus::setNextDate(const QDateTime &date) {
    m_nextDate = date;
    Q_EMIT changed();
}

void ScheduleStatus::setHourly(bool hourly) {
    m_isHourly = hourly;
    Q_EMIT changed();
}

void ScheduleStatus::setDaily(bool daily) {
    m_isDaily = daily;
    Q_EMIT changed();
}

void ScheduleStatus::setWeekly(bool weekly) {
    m_isWeekly = weekly;
    Q_EMIT changed();
}

void ScheduleStatus::setWeeklyDays(quint64 days) {
    m_weeklyDays = days;
    Q_EMIT changed();
}

void ScheduleStatus::setDatabase(const std::shared_ptr<QVStandInDatabase> &database) {
    m_database = database;
    m_observation.stop();
    if (database) {
        m_observation =
            KeyValue::observe(database.get(), "canSynchronize", [this] { Q_EMIT changed(); });
    }
    Q_EMIT changed();
}

QString ScheduleStatus::text() const {
    if (const auto row = database(); row && !row->canSynchronize()) {
        return localizedSyncString(
            "Tick a location first. A schedule belongs to the locations that are ticked.");
    }
    if (m_isWeekly && m_weeklyDays == 0) {
        return localizedSyncString("Choose at least one day. Otherwise nothing is synchronized.");
    }
    return m_nextDate.isValid()
               ? localizedSyncString("Next synchronization: %1")
                     .arg(relativeDateString(m_nextDate, QDateTime::currentDateTime()))
               : localizedSyncString("No synchronization is scheduled.");
}
