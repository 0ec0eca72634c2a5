#include "Controller/Preferences/QVSyncScheduleEditor.h"

#include "Controller/Preferences/QVSyncScheduleEditorDelegate.h"
#include "Host/Notifications.h"
#include "Host/SyncLog.h"
#include "Platform/Foundation/NotificationCenter.h"

namespace {

/// Monday to Friday, as a mask of the weekly schedule.
constexpr quint64 workdays = 62;

// A schedule of a class that the host lacks is null.

QVSyncSchedulePtr newHourlySchedule() {
    const auto *scheduleClass = optionalHostClass<QVHourlySchedule::Class>();
    return scheduleClass ? scheduleClass->newHourlySchedule() : nullptr;
}

QVSyncSchedulePtr hourlyScheduleAt(qint32 offset) {
    const auto *scheduleClass = optionalHostClass<QVHourlySchedule::Class>();
    return scheduleClass ? scheduleClass->initWithHourlyOffset(static_cast<quint32>(offset))
                         : nullptr;
}

QVSyncSchedulePtr dailyScheduleAt(const std::optional<HourAndMinute> &hourAndMinute) {
    const auto *scheduleClass = optionalHostClass<QVDailySchedule::Class>();
    return scheduleClass ? scheduleClass->initWithHourAndMinute(hourAndMinute) : nullptr;
}

QVSyncSchedulePtr weeklyScheduleAt(const std::optional<HourAndMinute> &hourAndMinute,
                                   quint64 daysOfWeek) {
    const auto *scheduleClass = optionalHostClass<QVWeeklySchedule::Class>();
    return scheduleClass ? scheduleClass->initWithHourAndMinute(hourAndMinute, daysOfWeek)
                         : nullptr;
}

}  // namespace

QVSyncScheduleEditor::QVSyncScheduleEditor()
    : ViewController(QStringLiteral("QVSyncScheduleEditor")) {
    KeyValue::followDependencies(this);
}

void QVSyncScheduleEditor::setDelegate(QVSyncScheduleEditorDelegate *delegate) {
    m_delegate = delegate;
    KeyValue::announce<&QVSyncScheduleEditor::delegateChanged>(this);
}

std::shared_ptr<QVStandInDatabase> QVSyncScheduleEditor::database() const {
    return representedObject().value<std::shared_ptr<QVStandInDatabase>>();
}

QVSyncSchedulePtr QVSyncScheduleEditor::schedule() const {
    const auto row = database();
    const QVSyncSchedulePtr current = row ? row->schedule() : nullptr;
    return current ? current : QVSyncSchedule::newSchedule();
}

void QVSyncScheduleEditor::setSchedule(const QVSyncSchedulePtr &schedule) {
    if (const auto row = database()) {
        row->setSchedule(schedule);
    }
    notifyDelegate(schedule);
}

void QVSyncScheduleEditor::notifyDelegate(const QVSyncSchedulePtr &schedule) {
    if (m_delegate) {
        m_delegate->editorDidChangeSchedule(this, schedule);
    }
}

std::shared_ptr<const QVHourlySchedule> QVSyncScheduleEditor::hourlySchedule() const {
    return std::dynamic_pointer_cast<const QVHourlySchedule>(schedule());
}

std::shared_ptr<const QVDailySchedule> QVSyncScheduleEditor::dailySchedule() const {
    return std::dynamic_pointer_cast<const QVDailySchedule>(schedule());
}

std::shared_ptr<const QVWeeklySchedule> QVSyncScheduleEditor::weeklySchedule() const {
    return std::dynamic_pointer_cast<const QVWeeklySchedule>(schedule());
}

bool QVSyncScheduleEditor::isDisabled() const {
    return schedule() == nullptr;
}

void QVSyncScheduleEditor::setDisabled(bool disabled) {
    if (disabled) {
        setSchedule(nullptr);
    }
}

bool QVSyncScheduleEditor::isHourly() const {
    return schedule()->isHourly();
}

// The delegate is called three times; hosts rely on that.
void QVSyncScheduleEditor::setHourly(bool hourly) {
    if (!hourly) {
        return;
    }
    setSchedule(newHourlySchedule());
    syncLog().verbose(QStringLiteral("1Setting hourly with hourlyOffset: %1")
                          .arg(static_cast<quint32>(hourlyOffset())));
    setSchedule(hourlyScheduleAt(hourlyOffset()));
    notifyDelegate(schedule());
}

bool QVSyncScheduleEditor::isDaily() const {
    return schedule()->isDaily();
}

void QVSyncScheduleEditor::setDaily(bool daily) {
    if (daily) {
        setSchedule(dailyScheduleAt(m_hourAndMinute));
    }
}

bool QVSyncScheduleEditor::isWeekly() const {
    return schedule()->isWeekly();
}

void QVSyncScheduleEditor::setWeekly(bool weekly) {
    if (weekly) {
        setSchedule(weeklyScheduleAt(m_hourAndMinute, workdays));
    }
}

QDateTime QVSyncScheduleEditor::nextScheduledDate() const {
    return schedule()->nextScheduledDate();
}

qint32 QVSyncScheduleEditor::hourlyOffset() const {
    const auto hourly = hourlySchedule();
    return hourly ? static_cast<qint32>(hourly->hourlyOffset()) : 0;
}

void QVSyncScheduleEditor::setHourlyOffset(qint32 offset) {
    if (!isHourly()) {
        return;
    }
    syncLog().verbose(
        QStringLiteral("2Setting hourly with hourlyOffset: %1").arg(static_cast<quint32>(offset)));
    setSchedule(hourlyScheduleAt(offset));
    notifyDelegate(schedule());
}

QDateTime QVSyncScheduleEditor::dailyDate() const {
    const auto daily = dailySchedule();
    return daily ? dateOf(daily->hourAndMinute()) : QDateTime();
}

void QVSyncScheduleEditor::setDailyDate(const QDateTime &date) {
    if (!isDaily()) {
        return;
    }
    setSchedule(dailyScheduleAt(hourAndMinuteOf(date)));
    notifyDelegate(schedule());
}

QDateTime QVSyncScheduleEditor::weeklyDate() const {
    const auto weekly = weeklySchedule();
    return weekly ? dateOf(weekly->hourAndMinute()) : QDateTime();
}

void QVSyncScheduleEditor::setWeeklyDate(const QDateTime &date) {
    const auto weekly = weeklySchedule();
    if (!weekly) {
        return;
    }
    setSchedule(weeklyScheduleAt(hourAndMinuteOf(date), weekly->daysOfWeek()));
    notifyDelegate(schedule());
}

quint64 QVSyncScheduleEditor::weeklyDays() const {
    const auto weekly = weeklySchedule();
    return weekly ? weekly->daysOfWeek() : 0;
}

void QVSyncScheduleEditor::setWeeklyDays(quint64 days) {
    const auto weekly = weeklySchedule();
    if (!weekly) {
        return;
    }
    setSchedule(weeklyScheduleAt(weekly->hourAndMinute(), days));
    notifyDelegate(schedule());
}

bool QVSyncScheduleEditor::syncOnOpen() const {
    const auto row = database();
    return row && row->syncOnOpen();
}

void QVSyncScheduleEditor::setSyncOnOpen(bool syncOnOpen) {
    if (const auto row = database()) {
        row->setSyncOnOpen(syncOnOpen);
    }
}

bool QVSyncScheduleEditor::syncOnClose() const {
    const auto row = database();
    return row && row->syncOnClose();
}

void QVSyncScheduleEditor::setSyncOnClose(bool syncOnClose) {
    if (const auto row = database()) {
        row->setSyncOnClose(syncOnClose);
    }
}

QVariantList QVSyncScheduleEditor::representedObjects() const {
    return representedObject().isValid() ? QVariantList{representedObject()} : QVariantList();
}

void QVSyncScheduleEditor::setRepresentedObjects(const QVariantList &objects) {
    setRepresentedObject(objects.isEmpty() ? QVariant() : objects.last());
    KeyValue::announce<&QVSyncScheduleEditor::representedObjectsChanged>(this);
}

QCalendar QVSyncScheduleEditor::gregorianCalendar() const {
    return QCalendar(QCalendar::System::Gregorian);
}

HourAndMinute QVSyncScheduleEditor::hourAndMinuteOf(const QDateTime &date) const {
    const QTime time = date.toLocalTime().time();
    return {time.hour(), time.minute()};
}

QDateTime QVSyncScheduleEditor::dateOf(const HourAndMinute &hourAndMinute) const {
    // No clock changes on this date, so every time of day exists.
    return {gregorianCalendar().dateFromParts(2001, 1, 1),
            QTime(hourAndMinute.hour, hourAndMinute.minute)};
}

void QVSyncScheduleEditor::startObservingScheduleFiring() {
    NotificationCenter::defaultCenter().addObserver(
        this, QVSyncScheduleDidFireNotification,
        [this](const Notification &) { scheduleDidFire(); });
}

void QVSyncScheduleEditor::stopObservingScheduleFiring() {
    NotificationCenter::defaultCenter().removeObserver(this, QVSyncScheduleDidFireNotification);
}

void QVSyncScheduleEditor::scheduleDidFire() {
    KeyValue::announce<&QVSyncScheduleEditor::scheduleChanged>(this);
}

using KeyValue::KeyPaths;

KeyPaths QVSyncScheduleEditor::keyPathsForValuesAffectingSchedule() {
    return {"representedObject", "representedObject.schedule"};
}

KeyPaths QVSyncScheduleEditor::keyPathsForValuesAffectingCanSchedule() {
    return {"representedObject.canSynchronize"};
}

KeyPaths QVSyncScheduleEditor::keyPathsForValuesAffectingDisabled() {
    return {"schedule"};
}

KeyPaths QVSyncScheduleEditor::keyPathsForValuesAffectingHourly() {
    return {"schedule"};
}

KeyPaths QVSyncScheduleEditor::keyPathsForValuesAffectingHourlyOffset() {
    return {"schedule"};
}

KeyPaths QVSyncScheduleEditor::keyPathsForValuesAffectingDaily() {
    return {"schedule"};
}

KeyPaths QVSyncScheduleEditor::keyPathsForValuesAffectingWeekly() {
    return {"schedule"};
}

KeyPaths QVSyncScheduleEditor::keyPathsForValuesAffectingNextScheduledDate() {
    return {"schedule", "weeklyDate", "dailyDate", "weeklyDays", "hourlyOffset"};
}

KeyPaths QVSyncScheduleEditor::keyPathsForValuesAffectingDailyDate() {
    return {"schedule"};
}

KeyPaths QVSyncScheduleEditor::keyPathsForValuesAffectingWeeklyDate() {
    return {"schedule"};
}

KeyPaths QVSyncScheduleEditor::keyPathsForValuesAffectingWeeklyDays() {
    return {"schedule"};
}

KeyPaths QVSyncScheduleEditor::keyPathsForValuesAffectingSyncOnOpen() {
    return {"representedObject", "representedObject.syncOnOpen"};
}

KeyPaths QVSyncScheduleEditor::keyPathsForValuesAffectingSyncOnClose() {
    return {"representedObject", "representedObject.syncOnClose"};
}
