#pragma once

#include <QtCore/QDateTime>
#include <memory>

#include "Controller/Preferences/QVStandInDatabase.h"
#include "Platform/Foundation/DayChange.h"

/// What the form of the schedule editor says about the schedule: when the next synchronization is,
/// or what is missing. An object of the form, which creates it and binds its keys to the editor; it
/// does not compute the date itself. Must be used on the main thread.
class ScheduleStatus : public QObject {
    Q_OBJECT
    /// The keys of the schedule editor, to which the form binds these. Without a binding they are
    /// invalid, false and 0.
    Q_PROPERTY(QDateTime nextDate MEMBER m_nextDate WRITE setNextDate)
    Q_PROPERTY(bool hourly MEMBER m_isHourly WRITE setHourly)
    Q_PROPERTY(bool daily MEMBER m_isDaily WRITE setDaily)
    Q_PROPERTY(bool weekly MEMBER m_isWeekly WRITE setWeekly)
    Q_PROPERTY(quint64 weeklyDays MEMBER m_weeklyDays WRITE setWeeklyDays)
    /// The row whose schedule is edited. Not owned: null once it is destroyed.
    Q_PROPERTY(std::shared_ptr<QVStandInDatabase> database READ database WRITE setDatabase)
    /// One sentence, localized, with the date in words relative to the current day; never empty. A
    /// missing location takes precedence over a missing day.
    Q_PROPERTY(QString text READ text NOTIFY changed)
    /// Whether there is a schedule, even if it never fires.
    Q_PROPERTY(bool scheduled READ isScheduled NOTIFY changed)
public:
    /// Nil values until the form binds the keys.
    explicit ScheduleStatus(QObject *parent = nullptr);

    /// Each setter emits changed(), also if the value is equal: while a row is replaced, the text
    /// may be composed of old and new values until all are set.
    void setNextDate(const QDateTime &date);
    void setHourly(bool hourly);
    void setDaily(bool daily);
    void setWeekly(bool weekly);
    void setWeeklyDays(quint64 days);
    /// Null if none was set or it is destroyed.
    std::shared_ptr<QVStandInDatabase> database() const { return m_database.lock(); }
    /// Observes "canSynchronize" of the row instead of the former one. Null is allowed.
    void setDatabase(const std::shared_ptr<QVStandInDatabase> &database);
    /// Both are computed at each call. O(1).
    QString text() const;
    bool isScheduled() const { return m_isHourly || m_isDaily || m_isWeekly; }

Q_SIGNALS:
    /// Emitted for both keys, also when a new day begins.
    void changed();

private:
    const std::shared_ptr<DayChange> m_dayChange = DayChange::shared();
    QDateTime m_nextDate;
    bool m_isHourly = false;
    bool m_isDaily = false;
    bool m_isWeekly = false;
    quint64 m_weeklyDays = 0;
    std::weak_ptr<QVStandInDatabase> m_database;
    KeyValue::Observation m_observation;
};
