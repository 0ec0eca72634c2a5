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

/// Edits when the represented database row is synchronized automatically. A value set here is set
/// on the row and thereby on all of its states. The row announces it; the delegate is called for
/// changes of the schedule, and saves.
///
/// Must be used on the main thread. The owner must call stopObservingScheduleFiring() before it
/// destroys an editor that observes. Without a represented object, setters change nothing; those of
/// the schedule still call the delegate. A setter returns when the row, all of its states, the
/// observers and the delegate have been notified, so it blocks for the disk write of the delegate,
/// possibly several times.
class QVSyncScheduleEditor : public ViewController {
    Q_OBJECT
    /// Always true.
    Q_PROPERTY(bool canSchedule READ canSchedule NOTIFY canScheduleChanged)
    /// The four modes. Setting one to true replaces the schedule; setting it to false has no
    /// effect, since another mode replaces it.
    Q_PROPERTY(bool disabled READ isDisabled WRITE setDisabled NOTIFY disabledChanged)
    Q_PROPERTY(bool hourly READ isHourly WRITE setHourly NOTIFY hourlyChanged)
    Q_PROPERTY(bool daily READ isDaily WRITE setDaily NOTIFY dailyChanged)
    Q_PROPERTY(bool weekly READ isWeekly WRITE setWeekly NOTIFY weeklyChanged)
    /// The next date in local time; invalid if there is none.
    Q_PROPERTY(QDateTime nextScheduledDate READ nextScheduledDate NOTIFY nextScheduledDateChanged)
    /// Only the hour and minute, in local time, are significant. Invalid in another mode, in which
    /// setting them has no effect.
    Q_PROPERTY(QDateTime dailyDate READ dailyDate WRITE setDailyDate NOTIFY dailyDateChanged)
    Q_PROPERTY(QDateTime weeklyDate READ weeklyDate WRITE setWeeklyDate NOTIFY weeklyDateChanged)
    /// The weekly schedule's mask of days: bit 0 is Sunday. 0 in another mode, in which setting it
    /// has no effect.
    Q_PROPERTY(quint64 weeklyDays READ weeklyDays WRITE setWeeklyDays NOTIFY weeklyDaysChanged)
    /// The row's settings; false without a row.
    Q_PROPERTY(bool syncOnOpen READ syncOnOpen WRITE setSyncOnOpen NOTIFY syncOnOpenChanged)
    Q_PROPERTY(bool syncOnClose READ syncOnClose WRITE setSyncOnClose NOTIFY syncOnCloseChanged)
    /// For binding: a list of the represented object, or an empty list. Setting it represents the
    /// last object of the list, or none.
    Q_PROPERTY(QVariantList representedObjects READ representedObjects WRITE setRepresentedObjects
                   NOTIFY representedObjectsChanged)
    /// The hourly schedule's offset. 0 in another mode, in which setting it has no effect. A
    /// negative value wraps around to an unsigned one.
    Q_PROPERTY(
        qint32 hourlyOffset READ hourlyOffset WRITE setHourlyOffset NOTIFY hourlyOffsetChanged)
    /// The row's schedule, or a base schedule, which never fires, if it has none. Null disables
    /// scheduling.
    Q_PROPERTY(QVSyncSchedulePtr schedule READ schedule WRITE setSchedule NOTIFY scheduleChanged)
    /// The schedule as one of the three kinds; null if it is of another kind.
    Q_PROPERTY(std::shared_ptr<const QVHourlySchedule> hourlySchedule READ hourlySchedule)
    Q_PROPERTY(std::shared_ptr<const QVDailySchedule> dailySchedule READ dailySchedule)
    Q_PROPERTY(std::shared_ptr<const QVWeeklySchedule> weeklySchedule READ weeklySchedule)
    Q_PROPERTY(QCalendar gregorianCalendar READ gregorianCalendar)
    /// Not owned; null if there is none. Must be reset before it is destroyed.
    Q_PROPERTY(QVSyncScheduleEditorDelegate *delegate READ delegate WRITE setDelegate NOTIFY
                   delegateChanged)
public:
    /// Loads no view yet; see ViewController::view().
    QVSyncScheduleEditor();

    QVSyncScheduleEditorDelegate *delegate() const { return m_delegate; }
    /// Replaces the delegate, and announces it; null is allowed. The new one is not called for the
    /// present schedule.
    void setDelegate(QVSyncScheduleEditorDelegate *delegate);

    /// Returns the represented row; null if there is none.
    std::shared_ptr<QVStandInDatabase> database() const;
    bool canSchedule() const { return true; }
    /// False, even without a schedule, since schedule() then returns a base schedule. To find out,
    /// compare the row's schedule with null.
    bool isDisabled() const;
    /// Removes the schedule of the row if `disabled` is true, and calls the delegate once with
    /// null.
    void setDisabled(bool disabled);
    /// Sets `disabled`; the form's button calls it.
    Q_SLOT void removeSchedule() { setDisabled(true); }
    /// The kinds of the schedule: at most one is true.
    bool isHourly() const;
    /// Each setter of a mode replaces the schedule by one of the host's default time, also if the
    /// mode is the present one, so that its time is lost. Without the host's class of that
    /// schedule, scheduling is disabled. The delegate is called three times for the hourly mode,
    /// otherwise once.
    void setHourly(bool hourly);
    bool isDaily() const;
    void setDaily(bool daily);
    bool isWeekly() const;
    void setWeekly(bool weekly);
    /// Computed at each call, from the current time. Announced with the schedule, but not when the
    /// date passes unless the schedule's firing is observed.
    QDateTime nextScheduledDate() const;
    /// The date is a fixed day; only the time of day is meant.
    QDateTime dailyDate() const;
    /// The setters of a mode's values replace the schedule by one of the same kind and call the
    /// delegate twice. A date of another time zone is converted to local time; an invalid one
    /// selects the host's default time.
    void setDailyDate(const QDateTime &date);
    QDateTime weeklyDate() const;
    void setWeeklyDate(const QDateTime &date);
    /// Bit 6 is Saturday.
    quint64 weeklyDays() const;
    /// 0 is allowed: the schedule then never fires. Bits above 6 are passed to the host as they
    /// are.
    void setWeeklyDays(quint64 days);
    bool syncOnOpen() const;
    /// These do not call the delegate, so they are saved with the next change of a schedule or when
    /// the pane is left.
    void setSyncOnOpen(bool syncOnOpen);
    bool syncOnClose() const;
    void setSyncOnClose(bool syncOnClose);
    QVariantList representedObjects() const;
    /// Does not change the schedule of the former row. Announces "representedObject" and all that
    /// depends on it, then "representedObjects"; the delegate is not called.
    void setRepresentedObjects(const QVariantList &objects);
    qint32 hourlyOffset() const;
    /// In minutes past the hour; the host determines what a value above 59 means. The delegate is
    /// called twice.
    void setHourlyOffset(qint32 offset);
    /// Never null. The base schedule is a new object in each call, so it equals none that was
    /// returned before.
    QVSyncSchedulePtr schedule() const;
    /// Sets the schedule of the row and calls the delegate, which saves. Without a row, only calls
    /// the delegate.
    void setSchedule(const QVSyncSchedulePtr &schedule);
    /// At most one of the three is not null.
    std::shared_ptr<const QVHourlySchedule> hourlySchedule() const;
    std::shared_ptr<const QVDailySchedule> dailySchedule() const;
    std::shared_ptr<const QVWeeklySchedule> weeklySchedule() const;
    /// Returns a Gregorian calendar, a new value each time.
    QCalendar gregorianCalendar() const;

    /// While observing, each firing of a schedule, also of another database's, announces
    /// "schedule", so that the next date is updated. Must not be called twice without stopping.
    void startObservingScheduleFiring();
    /// Idempotent. May be called from within a notification.
    void stopObservingScheduleFiring();

    /// Dependencies of the derived keys, read by KeyValue. The schedule depends on the represented
    /// row and on that row's key.
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
    /// Emitted each time the value is set or one that it depends on is announced, even if it stays
    /// equal; all that depend on the schedule also when it fires.
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
    /// Calls the delegate, if there is one.
    void notifyDelegate(const QVSyncSchedulePtr &schedule);
    /// Returns the time of day in local time.
    HourAndMinute hourAndMinuteOf(const QDateTime &date) const;
    /// Returns a date with this time of day, on a day without a change of clocks.
    QDateTime dateOf(const HourAndMinute &hourAndMinute) const;
    /// Announces "schedule".
    void scheduleDidFire();

    /// Never set, so that changing to the daily or weekly mode uses the default time of day of the
    /// schedule's class.
    std::optional<HourAndMinute> m_hourAndMinute;
    QVSyncScheduleEditorDelegate *m_delegate = nullptr;
};
