#include "Controller/Preferences/QVSyncScheduleEditor.h"

#include "Controller/Preferences/QVSyncScheduleEditorDelegate.h"
#include "Host/Notifications.h"
#include "Host/QVSyncLocation.h"
#include "Platform/Foundation/NotificationCenter.h"
#include "Support/AnnouncementRecorder.h"
#include "Support/HostShortcuts.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

class Delegate : public QVSyncScheduleEditorDelegate {
public:
    void editorDidChangeSchedule(QVSyncScheduleEditor *editor,
                                 const QVSyncSchedulePtr &schedule) override {
        m_editor = editor;
        m_schedules.append(schedule);
    }

    QVSyncScheduleEditor *m_editor = nullptr;
    QList<QVSyncSchedulePtr> m_schedules;
};

}  // namespace

class QVSyncScheduleEditorTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;
    std::unique_ptr<QVSyncScheduleEditor> m_editor;
    Delegate m_delegate;
    std::shared_ptr<QVStandInDatabase> m_row;
    QList<std::shared_ptr<QVSyncState>> m_states;

    std::shared_ptr<QVStandInDatabase> makeRow(const QString &UUID, int states) {
        auto row = std::make_shared<QVStandInDatabase>();
        row->setUUID(UUID);
        for (int i = 0; i < states; ++i) {
            m_states.append(m_host->addLocation()->addStateForDatabaseWithUUID(UUID, UUID));
            row->addSynchronizationStatesObject(m_states.last());
        }
        return row;
    }

    static QDateTime timeOfDay(int hour, int minute) {
        return {QDate(2026, 7, 1), QTime(hour, minute)};
    }

private Q_SLOTS:
    void init() {
        m_host = std::make_unique<TestHost>();
        setDebugging(Debugging::Off);
        m_delegate = {};
        m_states.clear();
        m_row = makeRow(QStringLiteral("D"), 2);
        m_editor = std::make_unique<QVSyncScheduleEditor>();
        m_editor->setRepresentedObject(QVariant::fromValue(m_row));
        m_editor->setDelegate(&m_delegate);
    }

    void cleanup() {
        m_editor.reset();
        m_row.reset();
        m_states.clear();
        m_host.reset();
    }

    void aRowWithoutScheduleIsInNoMode() {
        QVERIFY(!m_editor->isDisabled());
        QVERIFY(!m_editor->isHourly());
        QVERIFY(!m_editor->isDaily());
        QVERIFY(!m_editor->isWeekly());
        QCOMPARE(m_editor->hourlyOffset(), 0);
        QCOMPARE(m_editor->weeklyDays(), quint64{0});
        QVERIFY(!m_editor->dailyDate().isValid());
        QVERIFY(!m_editor->weeklyDate().isValid());
        QCOMPARE(m_editor->nextScheduledDate(), QVSyncSchedule::newSchedule()->nextScheduledDate());
        QVERIFY(m_editor->schedule());
        QVERIFY(!m_editor->hourlySchedule());
        QVERIFY(!m_editor->dailySchedule());
        QVERIFY(!m_editor->weeklySchedule());
        QVERIFY(m_editor->canSchedule());
    }

    void choosingHourlySetsTheDefaultOffsetAndCallsTheDelegateThreeTimes() {
        m_editor->setHourly(true);
        QVERIFY(m_editor->isHourly());
        const auto fresh = dynamic_cast<QVHourlySchedule::Class *>(
                               NSClassFromString(QStringLiteral("QVHourlySchedule")))
                               ->newHourlySchedule();
        QCOMPARE(m_editor->hourlyOffset(), static_cast<qint32>(fresh->hourlyOffset()));
        QCOMPARE(m_delegate.m_schedules.size(), 3);
        QCOMPARE(m_delegate.m_editor, m_editor.get());
        QVERIFY(m_delegate.m_schedules[0] != m_delegate.m_schedules[1]);
        QCOMPARE(m_delegate.m_schedules[1], m_delegate.m_schedules[2]);
        QCOMPARE(m_delegate.m_schedules[2], m_row->schedule());
    }

    void choosingDailyCallsTheDelegateOnce() {
        m_editor->setDaily(true);
        QVERIFY(m_editor->isDaily());
        QVERIFY(m_editor->dailyDate().isValid());
        QCOMPARE(m_delegate.m_schedules, QList<QVSyncSchedulePtr>{m_row->schedule()});
    }

    void choosingWeeklyMeansMondayToFriday() {
        m_editor->setWeekly(true);
        QVERIFY(m_editor->isWeekly());
        QCOMPARE(m_editor->weeklyDays(), quint64{62});
        QCOMPARE(m_delegate.m_schedules.size(), 1);
    }

    void aTimeChosenBeforeIsNotTakenOver() {
        m_editor->setDaily(true);
        const QTime defaultTime = m_editor->dailyDate().time();
        m_editor->setDailyDate(timeOfDay(3, 21));
        m_editor->setWeekly(true);
        QCOMPARE(m_editor->weeklyDate().time(), defaultTime);
    }

    void turningAModeOffDoesNothing_data() {
        QTest::addColumn<QByteArray>("mode");
        for (const char *mode : {"disabled", "hourly", "daily", "weekly"}) {
            QTest::newRow(mode) << QByteArray(mode);
        }
    }

    void turningAModeOffDoesNothing() {
        QFETCH(QByteArray, mode);
        const auto schedule = dailySchedule(5, 0);
        m_row->setSchedule(schedule);
        KeyValue::setValue(m_editor.get(), mode, false);
        QCOMPARE(m_row->schedule(), schedule);
        QVERIFY(m_delegate.m_schedules.isEmpty());
    }

    void disablingClearsAllStatesAndStillReadsFalse() {
        m_editor->setDaily(true);
        m_delegate = {};
        m_editor->setDisabled(true);
        for (const auto &state : m_states) {
            QVERIFY(!state->schedule());
        }
        QCOMPARE(m_delegate.m_schedules, QList<QVSyncSchedulePtr>{nullptr});
        QVERIFY(!m_editor->isDisabled());
        QVERIFY(!m_editor->isHourly());
        QVERIFY(!m_editor->isDaily());
        QVERIFY(!m_editor->isWeekly());
    }

    void anEditReachesAllStatesOfTheRow() {
        m_editor->setWeekly(true);
        for (const auto &state : m_states) {
            QCOMPARE(state->schedule(), m_editor->schedule());
        }
    }

    void theHourlyOffsetCanBeSetWhileHourly() {
        m_editor->setHourly(true);
        m_delegate = {};
        m_editor->setHourlyOffset(25);
        QCOMPARE(m_editor->hourlyOffset(), 25);
        QCOMPARE(m_editor->hourlySchedule()->hourlyOffset(), 25U);
        QCOMPARE(m_delegate.m_schedules,
                 QList<QVSyncSchedulePtr>({m_row->schedule(), m_row->schedule()}));
    }

    void parametersOfAnotherModeAreIgnored_data() {
        QTest::addColumn<QByteArray>("mode");
        QTest::addColumn<QByteArray>("key");
        QTest::addColumn<QVariant>("value");
        const QVariant time = timeOfDay(14, 37);
        QTest::newRow("offset while daily")
            << QByteArray("daily") << QByteArray("hourlyOffset") << QVariant(5);
        QTest::newRow("offset while weekly")
            << QByteArray("weekly") << QByteArray("hourlyOffset") << QVariant(5);
        QTest::newRow("daily time while hourly")
            << QByteArray("hourly") << QByteArray("dailyDate") << time;
        QTest::newRow("daily time while weekly")
            << QByteArray("weekly") << QByteArray("dailyDate") << time;
        QTest::newRow("weekly time while daily")
            << QByteArray("daily") << QByteArray("weeklyDate") << time;
        QTest::newRow("days while daily")
            << QByteArray("daily") << QByteArray("weeklyDays") << QVariant(quint64{3});
        QTest::newRow("days without schedule")
            << QByteArray("disabled") << QByteArray("weeklyDays") << QVariant(quint64{3});
    }

    void parametersOfAnotherModeAreIgnored() {
        QFETCH(QByteArray, mode);
        QFETCH(QByteArray, key);
        QFETCH(QVariant, value);
        KeyValue::setValue(m_editor.get(), mode, true);
        const auto schedule = m_row->schedule();
        m_delegate = {};
        KeyValue::setValue(m_editor.get(), key, value);
        QCOMPARE(m_row->schedule(), schedule);
        QVERIFY(m_delegate.m_schedules.isEmpty());
    }

    void theDailyTimeIsHourAndMinute() {
        m_editor->setDaily(true);
        m_delegate = {};
        m_editor->setDailyDate(timeOfDay(14, 37));
        QCOMPARE(m_editor->dailySchedule()->hourAndMinute(), HourAndMinute({14, 37}));
        QCOMPARE(m_editor->dailyDate().time(), QTime(14, 37));
        QCOMPARE(m_delegate.m_schedules.size(), 2);
    }

    void aTimeIsConvertedToLocalTimeFromAnyZone() {
        qputenv("TZ", "Asia/Tokyo");
        tzset();
        const QDateTime date(QDate(2026, 1, 15), QTime(3, 21), Qt::UTC);
        m_editor->setDaily(true);
        m_editor->setDailyDate(date);
        const HourAndMinute daily = m_editor->dailySchedule()->hourAndMinute();
        m_editor->setWeekly(true);
        m_editor->setWeeklyDate(date);
        const HourAndMinute weekly = m_editor->weeklySchedule()->hourAndMinute();
        qunsetenv("TZ");
        tzset();
        QCOMPARE(daily, HourAndMinute({12, 21}));
        QCOMPARE(weekly, HourAndMinute({12, 21}));
    }

    void theWeeklyTimeKeepsTheDays() {
        m_editor->setWeekly(true);
        m_editor->setWeeklyDays(5);
        m_delegate = {};
        m_editor->setWeeklyDate(timeOfDay(14, 37));
        QCOMPARE(m_editor->weeklySchedule()->hourAndMinute(), HourAndMinute({14, 37}));
        QCOMPARE(m_editor->weeklyDays(), quint64{5});
        QCOMPARE(m_delegate.m_schedules.size(), 2);
    }

    void theWeeklyDaysKeepTheTime() {
        m_editor->setWeekly(true);
        m_editor->setWeeklyDate(timeOfDay(14, 37));
        m_delegate = {};
        m_editor->setWeeklyDays(64);
        QCOMPARE(m_editor->weeklyDate().time(), QTime(14, 37));
        QCOMPARE(m_editor->weeklyDays(), quint64{64});
        QCOMPARE(m_delegate.m_schedules.size(), 2);
    }

    void syncOnOpenAndCloseReachTheRowAndNotTheDelegate() {
        m_editor->setSyncOnOpen(true);
        m_editor->setSyncOnClose(true);
        QVERIFY(m_row->syncOnOpen());
        QVERIFY(m_row->syncOnClose());
        QVERIFY(m_editor->syncOnOpen());
        QVERIFY(m_editor->syncOnClose());
        QVERIFY(m_delegate.m_schedules.isEmpty());
    }

    void withoutARowOnlyTheDelegateIsCalled() {
        m_editor->setRepresentedObject({});
        m_editor->setDaily(true);
        m_editor->setSyncOnOpen(true);
        QCOMPARE(m_delegate.m_schedules.size(), 1);
        QVERIFY(!m_editor->isDaily());
        QVERIFY(!m_editor->syncOnOpen());
        QVERIFY(!m_row->schedule());
    }

    void theLastOfSeveralSelectedRowsIsEdited() {
        const auto last = makeRow(QStringLiteral("E"), 1);
        m_editor->setRepresentedObjects({QVariant::fromValue(m_row), QVariant::fromValue(last)});
        QCOMPARE(m_editor->database(), last);
        QCOMPARE(m_editor->representedObjects(), QVariantList{QVariant::fromValue(last)});
        m_editor->setRepresentedObjects({});
        QVERIFY(!m_editor->database());
        QVERIFY(m_editor->representedObjects().isEmpty());
    }

    void anotherRowAnnouncesEverythingOnceAndSourcesFirst() {
        AnnouncementRecorder recorder(m_editor.get());
        m_editor->setRepresentedObject(QVariant::fromValue(makeRow(QStringLiteral("E"), 1)));
        for (const char *key :
             {"representedObject", "schedule", "canSchedule", "disabled", "hourly", "hourlyOffset",
              "daily", "weekly", "nextScheduledDate", "dailyDate", "weeklyDate", "weeklyDays",
              "syncOnOpen", "syncOnClose"}) {
            QCOMPARE(recorder.count(key), 1);
        }
        QCOMPARE(recorder.announced().size(), 14);
        const QByteArrayList order = recorder.announced();
        QVERIFY(order.indexOf("schedule") < order.indexOf("hourly"));
        for (const char *source : {"weeklyDate", "dailyDate", "weeklyDays", "hourlyOffset"}) {
            QVERIFY(order.indexOf(source) < order.indexOf("nextScheduledDate"));
        }
    }

    void aChangeOfTheRowsScheduleAnnouncesWhatDependsOnIt() {
        AnnouncementRecorder recorder(m_editor.get());
        m_row->setSchedule(dailySchedule(4, 0));
        QByteArrayList keys = recorder.announced();
        std::sort(keys.begin(), keys.end());
        QCOMPARE(keys, QByteArrayList({"daily", "dailyDate", "disabled", "hourly", "hourlyOffset",
                                       "nextScheduledDate", "schedule", "weekly", "weeklyDate",
                                       "weeklyDays"}));
    }

    void aChangeOfTheRowsAbilityAnnouncesThatItCanBeScheduled() {
        AnnouncementRecorder recorder(m_editor.get());
        m_row->setCanSynchronize(true);
        QCOMPARE(recorder.announced(), QByteArrayList{"canSchedule"});
        QVERIFY(m_editor->canSchedule());
    }

    void theRowsFlagsAreAnnounced() {
        AnnouncementRecorder recorder(m_editor.get());
        m_row->setSyncOnOpen(true);
        m_row->setSyncOnClose(true);
        QCOMPARE(recorder.announced(), QByteArrayList({"syncOnOpen", "syncOnClose"}));
    }

    void aReplacedRowIsNoLongerObserved() {
        m_editor->setRepresentedObject(QVariant::fromValue(makeRow(QStringLiteral("E"), 1)));
        AnnouncementRecorder recorder(m_editor.get());
        m_row->setSyncOnOpen(true);
        m_row->setSchedule(nullptr);
        QVERIFY(recorder.announced().isEmpty());
    }

    void aFiringAnnouncesTheScheduleWhileItIsObserved() {
        AnnouncementRecorder recorder(m_editor.get());
        const auto fire = [] {
            NotificationCenter::defaultCenter().post(QVSyncScheduleDidFireNotification, nullptr);
        };
        fire();
        QVERIFY(recorder.announced().isEmpty());
        m_editor->startObservingScheduleFiring();
        fire();
        QCOMPARE(recorder.count("schedule"), 1);
        QCOMPARE(recorder.count("nextScheduledDate"), 1);
        m_editor->stopObservingScheduleFiring();
        fire();
        QCOMPARE(recorder.count("schedule"), 1);
    }

    void offsetsAreLoggedUnderBothDefaults() {
        setDebugging(Debugging::High);
        QTest::ignoreMessage(QtInfoMsg, "1Setting hourly with hourlyOffset: 0");
        m_editor->setHourly(true);
        QTest::ignoreMessage(QtInfoMsg, "2Setting hourly with hourlyOffset: 17");
        m_editor->setHourlyOffset(17);
    }

    void itsDelegateSchedulesAndCalendarAreKeys() {
        AnnouncementRecorder recorder(m_editor.get());
        m_editor->setDelegate(m_editor->delegate());
        QCOMPARE(recorder.count("delegate"), 1);
        m_editor->setWeekly(true);
        QVERIFY(KeyValue::value(m_editor.get(), "weeklySchedule")
                    .value<std::shared_ptr<const QVWeeklySchedule>>());
        QVERIFY(!KeyValue::value(m_editor.get(), "dailySchedule")
                     .value<std::shared_ptr<const QVDailySchedule>>());
        QVERIFY(!KeyValue::value(m_editor.get(), "hourlySchedule")
                     .value<std::shared_ptr<const QVHourlySchedule>>());
        QVERIFY(
            KeyValue::value(m_editor.get(), "gregorianCalendar").value<QCalendar>().isGregorian());
    }

    void theCalendarIsGregorian() { QVERIFY(m_editor->gregorianCalendar().isGregorian()); }
};

VELMORA_TEST(QVSyncScheduleEditorTest)
#include "QVSyncScheduleEditorTest.moc"
