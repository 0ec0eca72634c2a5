#pragma once

#include <QtCore/QCalendar>
#include <QtCore/QDateTime>
#include <memory>

#include "Controller/Preferences/QVStandInDatabase.h"
#include "Controller/Preferences/QVSyncScheduleEditorDelegate.h"
#include "Host/QVDailySchedule.h"
#include "Host/QVHourlySchedule.h"
#include "Host/QVWeeklySchedule.h"
#include "Platform/Interface/ViewController.h"

/// Edits when the represented database row synchronizes by itself. What is set here is set on the
/// row, and so on all of the row's states; the row announces it, and the delegate is told of
/// schedules, and saves. Main thread.
///
/// The owner calls `stopObservingScheduleFiring` before it lets go of an editor that observes.
class QVSyncScheduleEditor : public ViewController {
    Q_OBJECT
    Q_PROPERTY(bool canSchedule READ canSchedule NOTIFY canScheduleChanged)
    /// Setting one of the four modes to false does nothing: another mode replaces it.
    Q_PROPERTY(bool disabled READ isDisabled WRITE setDisabled NOTIFY disabledChanged)
    Q_PROPERTY(bool hourly READ isHourly WRITE setHourly NOTIFY hourlyChanged)
    Q_PROPERTY(bool daily READ isDaily WRITE setDaily NOTIFY dailyChanged)
    Q_PROPERTY(bool weekly READ isWeekly WRITE setWeekly NOTIFY weeklyChanged)
    Q_PROPERTY(QDateTime nextScheduledDate READ nextScheduledDate NOTIFY nextScheduledDateChanged)
    /// Of these dates only hour and minute matter. Invalid, and not to be set, in another mode.
    Q_PROPERTY(QDateTime dailyDate READ dailyDate WRITE setDailyDate NOTIFY dailyDateChanged)
    Q_PROPERTY(QDateTime weeklyDate READ weeklyDate WRITE setWeeklyDate NOTIFY weeklyDateChanged)
    /// The schedule class's mask of weekdays; 0, and not to be set, in another mode.
    Q_PROPERTY(quint64 weeklyDays READ weeklyDays WRITE setWeeklyDays NOTIFY weeklyDaysChanged)
    Q_PROPERTY(bool syncOnOpen READ syncOnOpen WRITE setSyncOnOpen NOTIFY syncOnOpenChanged)
    Q_PROPERTY(bool syncOnClose READ syncOnClose WRITE setSyncOnClose NOTIFY syncOnCloseChanged)
    /// For binding: the represented object alone or nothing; the last one set becomes it.
    Q_PROPERTY(QVariantList representedObjects READ representedObjects WRITE setRepresentedObjects
                   NOTIFY representedObjectsChanged)
    /// The schedule class's offset; 0, and not to be set, in another mode.
    Q_PROPERTY(
        qint32 hourlyOffset READ hourlyOffset WRITE setHourlyOffset NOTIFY hourlyOffsetChanged)
    /// The row's, or a base schedule for a row that has none.
    Q_PROPERTY(QVSyncSchedulePtr schedule READ schedule WRITE setSchedule NOTIFY scheduleChanged)
    /// The schedule as one of the three kinds; null if it is of another kind.
    Q_PROPERTY(std::shared_ptr<const QVHourlySchedule> hourlySchedule READ hourlySchedule)
    Q_PROPERTY(std::shared_ptr<const QVDailySchedule> dailySchedule READ dailySchedule)
    Q_PROPERTY(std::shared_ptr<const QVWeeklySchedule> weeklySchedule READ weeklySchedule)
    Q_PROPERTY(QCalendar gregorianCalendar READ gregorianCalendar)
    /// Not owned; null if there is none.
    Q_PROPERTY(QVSyncScheduleEditorDelegate *delegate READ delegate WRITE setDelegate NOTIFY
                   delegateChanged)
public:
    QVSyncScheduleEditor();

    QVSyncScheduleEditorDelegate *delegate() const { return m_delegate; }
    /// Not owned; nullptr: none.
    void setDelegate(QVSyncScheduleEditorDelegate *delegate);

    std::shared_ptr<QVStandInDatabase> database() const;
    bool canSchedule() const { return true; }
    bool isDisabled() const;
    void setDisabled(bool disabled);
    bool isHourly() const;
    void setHourly(bool hourly);
    bool isDaily() const;
    void setDaily(bool daily);
    bool isWeekly() const;
    void setWeekly(bool weekly);
    QDateTime nextScheduledDate() const;
    QDateTime dailyDate() const;
    void setDailyDate(const QDateTime &date);
    QDateTime weeklyDate() const;
    void setWeeklyDate(const QDateTime &date);
    quint64 weeklyDays() const;
    void setWeeklyDays(quint64 days);
    bool syncOnOpen() const;
    void setSyncOnOpen(bool syncOnOpen);
    bool syncOnClose() const;
    void setSyncOnClose(bool syncOnClose);
    QVariantList representedObjects() const;
    void setRepresentedObjects(const QVariantList &objects);
    qint32 hourlyOffset() const;
    void setHourlyOffset(qint32 offset);
    QVSyncSchedulePtr schedule() const;
    void setSchedule(const QVSyncSchedulePtr &schedule);
    /// nullptr for a schedule of another kind.
    std::shared_ptr<const QVHourlySchedule> hourlySchedule() const;
    std::shared_ptr<const QVDailySchedule> dailySchedule() const;
    std::shared_ptr<const QVWeeklySchedule> weeklySchedule() const;
    /// A new one at each call.
    QCalendar gregorianCalendar() const;

    /// While it observes, each firing of a schedule announces "schedule".
    void startObservingScheduleFiring();
    void stopObservingScheduleFiring();

    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingSchedule();
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingCanSchedule();
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingDisabled();
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingHourly();
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingHourlyOffset();
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingDaily();
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingWeekly();
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingNextScheduledDate();
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingDailyDate();
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingWeeklyDate();
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingWeeklyDays();
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingSyncOnOpen();
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingSyncOnClose();

Q_SIGNALS:
    void canScheduleChanged();
    void disabledChanged();
    void hourlyChanged();
    void dailyChanged();
    void weeklyChanged();
    void nextScheduledDateChanged();
    void dailyDateChanged();
    void weeklyDateChanged();
    void weeklyDaysChanged();
    void syncOnOpenChanged();
    void syncOnCloseChanged();
    void representedObjectsChanged();
    void hourlyOffsetChanged();
    void scheduleChanged();
    void delegateChanged();

private:
    void tellDelegate(const QVSyncSchedulePtr &schedule);
    HourAndMinute hourAndMinuteOf(const QDateTime &date) const;
    QDateTime dateOf(const HourAndMinute &hourAndMinute) const;
    void scheduleDidFire();

    /// Never set, so that a change to daily or weekly takes the schedule class's own time of day.
    std::optional<HourAndMinute> m_hourAndMinute;
    QVSyncScheduleEditorDelegate *m_delegate = nullptr;
};
