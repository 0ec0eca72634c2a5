#include <ctime>

#include "Engine/Schedules/EngineDailySchedule.h"
#include "Engine/Schedules/EngineHourlySchedule.h"
#include "Engine/Schedules/EngineSchedule.h"
#include "Engine/Schedules/EngineWeeklySchedule.h"
#include "Engine/Schedules/ScheduleColumns.h"
#include "Support/TestMain.h"

namespace {

/// Local time.
QDateTime at(const QString &text) {
    return QDateTime::fromString(text, Qt::ISODate);
}

QString shown(const QDateTime &date) {
    return date.toOffsetFromUtc(date.offsetFromUtc()).toString(Qt::ISODate);
}

QString nextHourly(quint32 offset, const QDateTime &now) {
    return shown(EngineHourlySchedule(offset).nextDateAfter(now));
}

QString nextDaily(int hour, int minute, const QDateTime &now) {
    return shown(EngineDailySchedule(HourAndMinute{hour, minute}).nextDateAfter(now));
}

}  // namespace

/// In a zone whose clocks change by an hour at 02:00 on the last Sunday in March (the 29th in 2026)
/// and back at 03:00 on the last in October (the 25th).
class SchedulesTest : public QObject {
    Q_OBJECT
private:
    static void setZone(const char *zone) {
        qputenv("TZ", zone);
        tzset();
    }

private Q_SLOTS:
    void init() { setZone("CET-1CEST,M3.5.0,M10.5.0/3"); }

    void aBaseScheduleNeverFires() {
        const EngineSchedule schedule;
        QVERIFY(!schedule.isHourly() && !schedule.isDaily() && !schedule.isWeekly());
        QVERIFY(!schedule.nextScheduledDate().isValid());
    }

    void eachKindSaysWhatItIs() {
        const EngineHourlySchedule hourly(0);
        QVERIFY(hourly.isHourly() && !hourly.isDaily() && !hourly.isWeekly());
        const EngineDailySchedule daily({});
        QVERIFY(!daily.isHourly() && daily.isDaily() && !daily.isWeekly());
        const EngineWeeklySchedule weekly({}, 62);
        QVERIFY(!weekly.isHourly() && !weekly.isDaily() && weekly.isWeekly());
    }

    void noScheduleFiresAfterAnInvalidDate() {
        QVERIFY(!EngineHourlySchedule(30).nextDateAfter({}).isValid());
        QVERIFY(!EngineDailySchedule(HourAndMinute{1, 2}).nextDateAfter({}).isValid());
        QVERIFY(!EngineWeeklySchedule(HourAndMinute{1, 2}, 127).nextDateAfter({}).isValid());
    }

    void theNextDateOfEachKindIsInTheFuture() {
        const QDateTime now = QDateTime::currentDateTime();
        for (const QDateTime &next : {EngineHourlySchedule(7).nextScheduledDate(),
                                      EngineDailySchedule({}).nextScheduledDate(),
                                      EngineWeeklySchedule({}, 127).nextScheduledDate()}) {
            QVERIFY(next > now);
            QCOMPARE(next.timeSpec(), Qt::LocalTime);
        }
    }

    void anHourlyOffsetIsTakenModuloSixty() {
        QCOMPARE(EngineHourlySchedule(59).hourlyOffset(), 59U);
        QCOMPARE(EngineHourlySchedule(60).hourlyOffset(), 0U);
        QCOMPARE(EngineHourlySchedule(0xffffffffU).hourlyOffset(), 0xffffffffU % 60);
    }

    void hourlyFiresAtTheOffsetAfterNow() {
        const QString nextHour = QStringLiteral("2026-06-01T11:15:00+02:00");
        QCOMPARE(nextHourly(15, at(QStringLiteral("2026-06-01T10:14:59"))),
                 QStringLiteral("2026-06-01T10:15:00+02:00"));
        QCOMPARE(nextHourly(15, at(QStringLiteral("2026-06-01T10:15:00"))), nextHour);
        QCOMPARE(nextHourly(15, at(QStringLiteral("2026-06-01T10:15:30"))), nextHour);
        QCOMPARE(nextHourly(0, at(QStringLiteral("2026-12-31T23:00:00"))),
                 QStringLiteral("2027-01-01T00:00:00+01:00"));
    }

    void hourlyFiresInBothHoursThatTheClockShowsTwice() {
        const QDateTime first =
            QDateTime::fromString(QStringLiteral("2026-10-25T02:30:00+02:00"), Qt::ISODate)
                .toLocalTime();
        QCOMPARE(nextHourly(30, first.addSecs(-1)), QStringLiteral("2026-10-25T02:30:00+02:00"));
        QCOMPARE(nextHourly(30, first), QStringLiteral("2026-10-25T02:30:00+01:00"));
    }

    void hourlyKeepsToTheMinuteWhereTheClockChangesByHalfAnHour() {
        setZone("LHST-10:30LHDT-11,M10.1.0,M4.1.0");
        // At 02:00 it becomes 02:30.
        QCOMPARE(nextHourly(45, at(QStringLiteral("2026-10-04T01:50:00"))),
                 QStringLiteral("2026-10-04T02:45:00+11:00"));
        QCOMPARE(nextHourly(15, at(QStringLiteral("2026-10-04T01:50:00"))),
                 QStringLiteral("2026-10-04T03:15:00+11:00"));
    }

    void aTimeOfDayHasADefault() {
        QCOMPARE(EngineDailySchedule({}).hourAndMinute(), (HourAndMinute{9, 0}));
        QCOMPARE(EngineWeeklySchedule({}, 62).hourAndMinute(), (HourAndMinute{9, 0}));
        QCOMPARE(EngineDailySchedule(HourAndMinute{24, 0}).hourAndMinute(), (HourAndMinute{9, 0}));
        QCOMPARE(EngineDailySchedule(HourAndMinute{0, 0}).hourAndMinute(), (HourAndMinute{0, 0}));
    }

    void dailyFiresTodayOrTomorrow() {
        QCOMPARE(nextDaily(9, 0, at(QStringLiteral("2026-06-01T08:59:59"))),
                 QStringLiteral("2026-06-01T09:00:00+02:00"));
        QCOMPARE(nextDaily(9, 0, at(QStringLiteral("2026-06-01T09:00:00"))),
                 QStringLiteral("2026-06-02T09:00:00+02:00"));
        QCOMPARE(nextDaily(0, 0, at(QStringLiteral("2026-12-31T12:00:00"))),
                 QStringLiteral("2027-01-01T00:00:00+01:00"));
    }

    void dailyKeepsTheWallClockOverClockChanges() {
        QCOMPARE(nextDaily(9, 0, at(QStringLiteral("2026-03-28T10:00:00"))),
                 QStringLiteral("2026-03-29T09:00:00+02:00"));
        QCOMPARE(nextDaily(9, 0, at(QStringLiteral("2026-10-24T10:00:00"))),
                 QStringLiteral("2026-10-25T09:00:00+01:00"));
        QCOMPARE(nextDaily(1, 0, at(QStringLiteral("2026-03-28T10:00:00"))),
                 QStringLiteral("2026-03-29T01:00:00+01:00"));
    }

    void dailyFiresOnceWhereTheClockSkipsItsTime() {
        QCOMPARE(nextDaily(2, 30, at(QStringLiteral("2026-03-28T10:00:00"))),
                 QStringLiteral("2026-03-29T03:30:00+02:00"));
        QCOMPARE(nextDaily(2, 30, at(QStringLiteral("2026-03-29T03:30:00"))),
                 QStringLiteral("2026-03-30T02:30:00+02:00"));
    }

    void dailyFiresOnceWhereTheClockShowsItsTimeTwice() {
        QCOMPARE(nextDaily(2, 30, at(QStringLiteral("2026-10-24T10:00:00"))),
                 QStringLiteral("2026-10-25T02:30:00+02:00"));
        const QDateTime first =
            QDateTime::fromString(QStringLiteral("2026-10-25T02:30:00+02:00"), Qt::ISODate)
                .toLocalTime();
        QCOMPARE(nextDaily(2, 30, first), QStringLiteral("2026-10-26T02:30:00+01:00"));
    }

    void weeklyFiresOnTheDaysOfItsMask() {
        // 2026-06-01 is a Monday; bit 0 is Sunday.
        const QDateTime monday = at(QStringLiteral("2026-06-01T12:00:00"));
        for (int bit = 0; bit < 7; ++bit) {
            const EngineWeeklySchedule schedule(HourAndMinute{9, 0}, 1ULL << bit);
            const QDateTime next = schedule.nextDateAfter(monday);
            QCOMPARE(next.date().dayOfWeek() % 7, bit);
            QVERIFY(next > monday && monday.daysTo(next) <= 7);
            QCOMPARE(next.time(), QTime(9, 0));
        }
    }

    void weeklyOnWorkingDaysSkipsTheWeekend() {
        const EngineWeeklySchedule schedule(HourAndMinute{9, 0}, 62);
        QCOMPARE(shown(schedule.nextDateAfter(at(QStringLiteral("2026-06-05T09:00:00")))),
                 QStringLiteral("2026-06-08T09:00:00+02:00"));
    }

    void weeklyFiresNextWeekWhereTodaysTimeHasPassed() {
        const EngineWeeklySchedule schedule(HourAndMinute{9, 0}, 1ULL << 1);
        QCOMPARE(shown(schedule.nextDateAfter(at(QStringLiteral("2026-06-01T08:00:00")))),
                 QStringLiteral("2026-06-01T09:00:00+02:00"));
        QCOMPARE(shown(schedule.nextDateAfter(at(QStringLiteral("2026-06-01T09:00:00")))),
                 QStringLiteral("2026-06-08T09:00:00+02:00"));
    }

    void weeklyWithoutADayNeverFires() {
        QVERIFY(!EngineWeeklySchedule({}, 0).nextScheduledDate().isValid());
        QVERIFY(!EngineWeeklySchedule({}, ~127ULL).nextScheduledDate().isValid());
        QCOMPARE(EngineWeeklySchedule({}, ~0ULL).daysOfWeek(), ~0ULL);
    }

    void everyScheduleSurvivesItsColumns() {
        const auto restored = [](const QVSyncSchedulePtr &schedule) {
            return ScheduleColumns::fromSchedule(schedule).schedule();
        };
        QVERIFY(!restored(nullptr));
        const auto base = restored(std::make_shared<EngineSchedule>());
        QVERIFY(base && !base->isHourly() && !base->isDaily() && !base->isWeekly());
        const auto hourly = std::dynamic_pointer_cast<const QVHourlySchedule>(
            restored(std::make_shared<EngineHourlySchedule>(17)));
        QCOMPARE(hourly->hourlyOffset(), 17U);
        const auto daily = std::dynamic_pointer_cast<const QVDailySchedule>(
            restored(std::make_shared<EngineDailySchedule>(HourAndMinute{14, 37})));
        QCOMPARE(daily->hourAndMinute(), (HourAndMinute{14, 37}));
        const auto weekly = std::dynamic_pointer_cast<const QVWeeklySchedule>(
            restored(std::make_shared<EngineWeeklySchedule>(HourAndMinute{0, 1}, ~0ULL)));
        QCOMPARE(weekly->hourAndMinute(), (HourAndMinute{0, 1}));
        QCOMPARE(weekly->daysOfWeek(), ~0ULL);
        QVERIFY(!(ScheduleColumns{QStringLiteral("yearly"), 1, 1}.schedule()));
    }
};

VELMORA_TEST(SchedulesTest)
#include "SchedulesTest.moc"
