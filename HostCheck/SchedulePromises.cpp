#include "HostCheck/SchedulePromises.h"

#include "Host/QVDailySchedule.h"
#include "Host/QVHourlySchedule.h"
#include "Host/QVWeeklySchedule.h"
#include "HostCheck/Checking.h"
#include "HostCheck/ClockChange.h"

using namespace Checking;

namespace SchedulePromises {
namespace {

constexpr char Schedule[] = "Host/QVSyncSchedule.h";
constexpr char Hourly[] = "Host/QVHourlySchedule.h";
constexpr char Daily[] = "Host/QVDailySchedule.h";
constexpr char Weekly[] = "Host/QVWeeklySchedule.h";
constexpr quint64 EveryDay = 0x7f;

std::shared_ptr<const QVHourlySchedule> hourly(quint32 offset) {
    auto made = classObject<QVHourlySchedule::Class>().initWithHourlyOffset(offset);
    require(made != nullptr, "no hourly schedule was made");
    return made;
}

std::shared_ptr<const QVDailySchedule> daily(const std::optional<HourAndMinute> &time) {
    auto made = classObject<QVDailySchedule::Class>().initWithHourAndMinute(time);
    require(made != nullptr, "no daily schedule was made");
    return made;
}

std::shared_ptr<const QVWeeklySchedule> weekly(const std::optional<HourAndMinute> &time,
                                               quint64 days) {
    auto made = classObject<QVWeeklySchedule::Class>().initWithHourAndMinute(time, days);
    require(made != nullptr, "no weekly schedule was made");
    return made;
}

HourAndMinute timeOf(const QDateTime &date) {
    return {date.time().hour(), date.time().minute()};
}

const QList<std::optional<HourAndMinute>> &invalidTimes() {
    static const QList<std::optional<HourAndMinute>> times{
        std::nullopt,         HourAndMinute{24, 0},  HourAndMinute{-1, 0},
        HourAndMinute{0, 60}, HourAndMinute{12, -1}, HourAndMinute{1000000, 1000000}};
    return times;
}

bool isValid(const HourAndMinute &time) {
    return QTime::isValid(time.hour, time.minute, 0);
}

void plainScheduleNeverFires() {
    const auto schedule = QVSyncSchedule::newSchedule();
    require(schedule != nullptr, "no schedule was made");
    require(!schedule->isHourly() && !schedule->isDaily() && !schedule->isWeekly(),
            "it is hourly, daily or weekly");
    require(!schedule->nextScheduledDate().isValid(), "it fires");
}

void hourlyScheduleIsOne() {
    const auto made = hourly(0);
    require(made->isHourly() && !made->isDaily() && !made->isWeekly(), "it is of another kind");
}

void dailyScheduleIsOne() {
    const auto made = daily(HourAndMinute{});
    require(!made->isHourly() && made->isDaily() && !made->isWeekly(), "it is of another kind");
}

void weeklyScheduleIsOne() {
    const auto made = weekly(HourAndMinute{}, EveryDay);
    require(!made->isHourly() && !made->isDaily() && made->isWeekly(), "it is of another kind");
}

void defaultOffsetIsValid() {
    const auto made = classObject<QVHourlySchedule::Class>().newHourlySchedule();
    require(made != nullptr, "no schedule was made");
    require(made->hourlyOffset() < 60, "its offset is above 59");
}

void offsetsAreReduced() {
    for (const quint32 offset : {0U, 59U, 60U, 61U, 4294967295U}) {
        require(hourly(offset)->hourlyOffset() == offset % 60,
                "the offset is not reduced modulo 60");
    }
}

void hourlyDateIsNext() {
    for (const quint32 offset : {0U, 1U, 29U, 59U}) {
        const QDateTime before = QDateTime::currentDateTime();
        const QDateTime next = hourly(offset)->nextScheduledDate();
        require(next > before && next <= QDateTime::currentDateTime().addSecs(3600),
                "the next date is not within an hour");
        require(next.time().minute() == static_cast<int>(offset),
                "the next date has other minutes");
    }
}

/// A moment some minutes away, in the middle of which the clock is changed.
void requireHourlyDateAcross(ClockChange::Kind kind) {
    hourly(0);
    const QDateTime now = QDateTime::currentDateTimeUtc();
    const QDateTime moment = now.addSecs(600 - now.time().second()).addMSecs(-now.time().msec());
    const QDateTime expected = moment.addSecs(1200);
    const ClockChange change = ClockChange::at(moment, kind);
    requireOffer(change.isInEffect());
    const QDateTime next =
        hourly(static_cast<quint32>(expected.time().minute()))->nextScheduledDate();
    require(next == expected, "the next date is another one if the clock is changed before it");
}

void hourlyDateIsNextWhenClockIsSetBack() {
    requireHourlyDateAcross(ClockChange::Kind::Back);
}

void hourlyDateIsNextWhenClockIsSetForward() {
    requireHourlyDateAcross(ClockChange::Kind::Forward);
}

void invalidDailyTimesAreReplaced() {
    const HourAndMinute usual = daily(std::nullopt)->hourAndMinute();
    require(isValid(usual), "the default time is not a time of day");
    for (const auto &time : invalidTimes()) {
        require(daily(time)->hourAndMinute() == usual, "an invalid time is not the default time");
    }
}

void dailyTimeIsKept() {
    for (const HourAndMinute time : {HourAndMinute{0, 0}, HourAndMinute{23, 59}}) {
        require(daily(time)->hourAndMinute() == time, "the time is another one");
    }
}

void weeklyTimeIsKept() {
    for (const HourAndMinute time : {HourAndMinute{0, 0}, HourAndMinute{23, 59}}) {
        require(weekly(time, EveryDay)->hourAndMinute() == time, "the time is another one");
    }
}

void dailyDateIsNext() {
    for (const int hours : {-1, 0, 1}) {
        const QDateTime before = QDateTime::currentDateTime();
        const HourAndMinute time = timeOf(before.addSecs(hours * 3600));
        const QDateTime next = daily(time)->nextScheduledDate();
        const bool isClockChanged =
            before.addDays(2).offsetFromUtc() != before.addDays(-1).offsetFromUtc();
        const QDateTime last = isClockChanged ? before.addDays(2)
                               : hours > 0    ? before.addSecs(hours * 3600)
                                              : before.addDays(1);
        require(next > before, "the next date is not after the current time");
        require(next <= last, "the next date is later than the first one");
        require(timeOf(next) == time || next.offsetFromUtc() != before.offsetFromUtc(),
                "the next date has another time of day");
    }
}

void datesAreLocal() {
    const QDateTime next = daily(HourAndMinute{})->nextScheduledDate();
    require(next.timeSpec() == Qt::LocalTime, "the next date is not in local time");
}

/// 2:30 on the day on which the clock is changed.
constexpr HourAndMinute HalfPastTwo{2, 30};

void requireTimeAfterGap(const std::function<QDateTime()> &nextDate) {
    const ClockChange change = ClockChange::tomorrow(ClockChange::Kind::Forward);
    requireOffer(change.isInEffect());
    const QDateTime next = nextDate();
    require(next.date() == QDate::currentDate().addDays(1), "it does not fire on that day");
    require(next.time() >= QTime(3, 0) && next.time() < QTime(4, 0),
            "it does not fire in the hour after the gap");
}

void requireFirstOfEqualTimes(const std::function<QDateTime()> &nextDate) {
    const ClockChange change = ClockChange::tomorrow(ClockChange::Kind::Back);
    requireOffer(change.isInEffect());
    const QDateTime now = QDateTime::currentDateTime();
    const QDateTime expected =
        QDateTime(now.date().addDays(1), QTime(2, 30), Qt::UTC).addSecs(-now.offsetFromUtc());
    require(nextDate() == expected, "it does not fire at the first of two equal times");
}

/// Requires that a schedule, which is made for a time that was five minutes ago and comes again
/// within the hour, does not fire a second time on this day.
void requireOneOfEqualTimes(
    const std::function<std::shared_ptr<const QVSyncSchedule>(const HourAndMinute &)> &make) {
    const QDateTime now = QDateTime::currentDateTimeUtc();
    const QDateTime moment = now.addSecs(600 - now.time().second()).addMSecs(-now.time().msec());
    const ClockChange change = ClockChange::at(moment, ClockChange::Kind::Back);
    requireOffer(change.isInEffect());
    const HourAndMinute time = timeOf(QDateTime::currentDateTime().addSecs(-300));
    const QDateTime next = make(time)->nextScheduledDate();
    require(next.date() == QDate::currentDate().addDays(1) && timeOf(next) == time,
            "it fires at the second of two equal times too");
}

void dailyTimeFiresOnce() {
    daily(HalfPastTwo);
    requireOneOfEqualTimes([](const HourAndMinute &time) { return daily(time); });
}

void weeklyTimeFiresOnce() {
    weekly(HalfPastTwo, EveryDay);
    requireOneOfEqualTimes([](const HourAndMinute &time) { return weekly(time, EveryDay); });
}

void dailyTimeIsSkipped() {
    const auto made = daily(HalfPastTwo);
    requireTimeAfterGap([&] { return made->nextScheduledDate(); });
}

void dailyTimeComesTwice() {
    const auto made = daily(HalfPastTwo);
    requireFirstOfEqualTimes([&] { return made->nextScheduledDate(); });
}

void weeklyTimeIsSkipped() {
    const auto made = weekly(HalfPastTwo, EveryDay);
    requireTimeAfterGap([&] { return made->nextScheduledDate(); });
}

void weeklyTimeComesTwice() {
    const auto made = weekly(HalfPastTwo, EveryDay);
    requireFirstOfEqualTimes([&] { return made->nextScheduledDate(); });
}

void invalidWeeklyTimesAreReplaced() {
    const HourAndMinute usual = weekly(std::nullopt, EveryDay)->hourAndMinute();
    require(isValid(usual), "the default time is not a time of day");
    for (const auto &time : invalidTimes()) {
        require(weekly(time, EveryDay)->hourAndMinute() == usual,
                "an invalid time is not the default time");
    }
}

void noDayNeverFires() {
    for (const quint64 days : {quint64(0), ~EveryDay}) {
        require(!weekly(HourAndMinute{}, days)->nextScheduledDate().isValid(),
                "it fires although no day is set");
    }
}

void otherBitsAreKept() {
    for (const quint64 days : {quint64(0), EveryDay, ~quint64(0), ~EveryDay | 1U}) {
        require(weekly(HourAndMinute{}, days)->daysOfWeek() == days, "the days are other ones");
    }
}

void daysCountFromSunday() {
    for (int day = 0; day < 7; ++day) {
        const QDateTime before = QDateTime::currentDateTime();
        const QDateTime next = weekly(timeOf(before), quint64(1) << day)->nextScheduledDate();
        require(next.date().dayOfWeek() % 7 == day, "it fires on another day");
        require(next > before && next <= before.addDays(8), "the next date is not within a week");
    }
}

constexpr char OneKind[] =
    "At most one of this, isDaily() and isWeekly() is true. The schedule can then be cast to the "
    "class of that name with dynamic_cast or std::dynamic_pointer_cast.";
constexpr char Next[] =
    "Returns the next date after the current time at which the schedule fires, in local time, or "
    "an invalid date if it never fires.";
constexpr char Default[] =
    "If `hourAndMinute` is std::nullopt or not a valid time of day, the host's default time is "
    "used.";
constexpr char DayOfChange[] =
    "On a day on which the clock is changed it still fires once: at the first of two equal times, "
    "and after the gap for a time that is skipped.";
constexpr char TimeOfDay[] = "Returns the time of day at which the schedule fires. Always valid.";
constexpr char AsDaily[] = "Clock changes are treated as by QVDailySchedule.";

constexpr HostPromise Promises[] = {
    {"QVSyncSchedule.newSchedule", Schedule,
     "Returns a new schedule that never fires and is neither hourly, daily nor weekly. Never null.",
     &plainScheduleNeverFires},
    {"QVSyncSchedule.isHourly", Schedule, OneKind, &hourlyScheduleIsOne},
    {"QVSyncSchedule.isDaily", Schedule, OneKind, &dailyScheduleIsOne},
    {"QVSyncSchedule.isWeekly", Schedule, OneKind, &weeklyScheduleIsOne},
    {"QVSyncSchedule.nextScheduledDate", Schedule, Next, &dailyDateIsNext},
    {"QVSyncSchedule.nextScheduledDate (local)", Schedule, Next, &datesAreLocal},
    {"QVHourlySchedule.newHourlySchedule", Hourly,
     "Returns a new schedule with the host's default offset. Never null.", &defaultOffsetIsValid},
    {"QVHourlySchedule.initWithHourlyOffset", Hourly,
     "Returns a new schedule that fires `hourlyOffset` minutes past each full hour of the local "
     "clock.",
     &hourlyDateIsNext},
    {"QVHourlySchedule.hourlyOffset", Hourly, "Values above 59 are reduced modulo 60. Never null.",
     &offsetsAreReduced},
    {"QVHourlySchedule.nextScheduledDate (set back)", Hourly,
     "At the end of daylight saving time it fires in both of the equal hours.",
     &hourlyDateIsNextWhenClockIsSetBack},
    {"QVHourlySchedule.nextScheduledDate (set forward)", Hourly,
     "A schedule that fires once an hour, by the local clock.",
     &hourlyDateIsNextWhenClockIsSetForward},
    {"QVDailySchedule.initWithHourAndMinute", Daily, Default, &invalidDailyTimesAreReplaced},
    {"QVDailySchedule.hourAndMinute", Daily, TimeOfDay, &dailyTimeIsKept},
    {"QVDailySchedule.nextScheduledDate (set forward)", Daily, DayOfChange, &dailyTimeIsSkipped},
    {"QVDailySchedule.nextScheduledDate (set back)", Daily, DayOfChange, &dailyTimeComesTwice},
    {"QVDailySchedule.nextScheduledDate (fired)", Daily, DayOfChange, &dailyTimeFiresOnce},
    {"QVWeeklySchedule.initWithHourAndMinute", Weekly, Default, &invalidWeeklyTimesAreReplaced},
    {"QVWeeklySchedule.hourAndMinute", Weekly, TimeOfDay, &weeklyTimeIsKept},
    {"QVWeeklySchedule.daysOfWeek", Weekly,
     "Bits of `daysOfWeek` above 6 are kept but have no effect.", &otherBitsAreKept},
    {"QVWeeklySchedule.daysOfWeek (none)", Weekly,
     "If none of these bits is set, the schedule never fires.", &noDayNeverFires},
    {"QVWeeklySchedule.nextScheduledDate", Weekly,
     "Returns the days as a bit mask: bit 0 is Sunday, bit 6 is Saturday.", &daysCountFromSunday},
    {"QVWeeklySchedule.nextScheduledDate (set forward)", Weekly, AsDaily, &weeklyTimeIsSkipped},
    {"QVWeeklySchedule.nextScheduledDate (set back)", Weekly, AsDaily, &weeklyTimeComesTwice},
    {"QVWeeklySchedule.nextScheduledDate (fired)", Weekly, AsDaily, &weeklyTimeFiresOnce},
};

}  // namespace

QList<HostPromise> all() {
    return {std::begin(Promises), std::end(Promises)};
}

}  // namespace SchedulePromises
