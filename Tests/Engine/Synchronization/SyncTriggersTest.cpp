#include "Engine/Schedules/EngineDailySchedule.h"
#include "Engine/Schedules/EngineHourlySchedule.h"
#include "Engine/Schedules/EngineSchedule.h"
#include "Host/Notifications.h"
#include "Platform/Foundation/NotificationCenter.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

class SyncTriggersTest : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<TestHost> m_host;
    QList<QObject *> m_fired;

    /// The state of a new database.
    std::shared_ptr<QVSyncState> scheduled(const QVSyncSchedulePtr &schedule) {
        const auto state =
            m_host->addState(m_host->addLocation(), m_host->addDatabase(QStringLiteral("Plans")));
        state->setEnabled(true);
        state->setSchedule(schedule);
        return state;
    }
    /// Adds a state that is due once a day, but not soon.
    void addDailyState() {
        const QTime later = QTime::currentTime().addSecs(12 * 60 * 60);
        scheduled(
            std::make_shared<EngineDailySchedule>(HourAndMinute{later.hour(), later.minute()}));
        m_host->save();
    }
    std::shared_ptr<QVSyncState> state() {
        return m_host->locations().syncLocations().first()->synchronizationStates().first();
    }
    /// Lets the next end of the program be two days ago.
    void leaveTwoDaysAgo() {
        look(QDate::currentDate().addDays(-2), QTime::currentTime());
        m_fired.clear();
    }
    void look(const QDate &date, const QTime &time) {
        m_fired.clear();
        m_host->engine().triggers().checkSchedules(QDateTime(date, time));
    }

private Q_SLOTS:
    void init() {
        m_host = std::make_unique<TestHost>();
        NotificationCenter::defaultCenter().addObserver(
            this, QVSyncScheduleDidFireNotification,
            [this](const Notification &notification) { m_fired.append(notification.object); });
    }
    void cleanup() {
        NotificationCenter::defaultCenter().removeObserver(this);
        m_host.reset();
    }

    void aScheduleThatFiresIsPostedAndSynchronizes() {
        const auto state = scheduled(std::make_shared<EngineHourlySchedule>(15));
        const QDate date(2030, 3, 4);
        look(date, QTime(10, 0));
        look(date, QTime(10, 14, 59));
        QVERIFY(m_fired.isEmpty());
        look(date, QTime(10, 15));
        QCOMPARE(m_fired, QList<QObject *>{state.get()});
        look(date, QTime(10, 16));
        QVERIFY(m_fired.isEmpty());
        QTRY_VERIFY(state->lastSynced().isValid());
    }

    void aScheduleMissedDuringSleepFiresOnce() {
        const auto state = scheduled(std::make_shared<EngineDailySchedule>(HourAndMinute{3, 0}));
        look(QDate(2030, 3, 4), QTime(22, 0));
        look(QDate(2030, 3, 9), QTime(7, 30));
        QCOMPARE(m_fired, QList<QObject *>{state.get()});
        look(QDate(2030, 3, 9), QTime(7, 31));
        QVERIFY(m_fired.isEmpty());
    }

    void aClockSetBackFiresNothingUntilItsTimeComesAgain() {
        const auto state = scheduled(std::make_shared<EngineDailySchedule>(HourAndMinute{12, 0}));
        const QDate date(2030, 3, 4);
        look(date, QTime(13, 0));
        look(date, QTime(11, 0));
        QVERIFY(m_fired.isEmpty());
        look(date, QTime(11, 59));
        QVERIFY(m_fired.isEmpty());
        look(date, QTime(12, 0));
        QCOMPARE(m_fired, QList<QObject *>{state.get()});
    }

    void aScheduleMissedWhileTheProgramWasClosedFiresOnceAtTheStart() {
        addDailyState();
        leaveTwoDaysAgo();
        m_host->restart();
        QCOMPARE(m_fired, QList<QObject *>{state().get()});
        QVERIFY(m_host->application().logEntries().last().info.startsWith(
            QStringLiteral("A schedule of “Plans” was missed")));
        QTRY_VERIFY(state()->lastSynced().isValid());
        m_fired.clear();
        m_host->restart();
        QVERIFY(m_fired.isEmpty());
    }

    void aScheduleFollowedByASynchronizationWasNotMissed() {
        addDailyState();
        m_host->setLastSynced(state(), QDateTime::currentDateTime());
        m_host->save();
        leaveTwoDaysAgo();
        m_host->restart();
        QVERIFY(m_fired.isEmpty());
    }

    void aDatabaseThatCouldNotBeSynchronizedAtTheEndIsAtTheStart() {
        addDailyState();
        state()->setSyncOnClose(true);
        m_host->save();
        m_host->restart();
        QTRY_VERIFY(state()->lastSynced().isValid());
        const QDateTime synchronized = state()->lastSynced();
        m_host->restart();
        QVERIFY(m_host->engine().plugin().dispatcher()->activity().isEmpty());
        QCOMPARE(state()->lastSynced(), synchronized);
    }

    void aScheduleDueDuringAPauseFiresOnceAfterwards() {
        const auto state = scheduled(std::make_shared<EngineHourlySchedule>(15));
        const QDate date(2030, 3, 4);
        look(date, QTime(10, 0));
        m_host->engine().triggers().pauseUntil(QDateTime(date, QTime(13, 0)));
        look(date, QTime(10, 15));
        look(date, QTime(12, 59));
        QVERIFY(m_fired.isEmpty());
        look(date, QTime(13, 0));
        QCOMPARE(m_fired, QList<QObject *>{state.get()});
        QTRY_VERIFY(state->lastSynced().isValid());
        look(date, QTime(13, 15));
        QCOMPARE(m_fired.size(), 1);
    }

    void aPauseAlsoHoldsBackWhatADatabaseRequestsAndCanBeEnded() {
        const auto state = scheduled(nullptr);
        state->setSyncOnClose(true);
        SyncTriggers &triggers = m_host->engine().triggers();
        const auto database = m_host->library().knownDatabases().last();
        const auto reopen = [&] {
            m_host->openDatabase(database);
            m_host->closeDatabase(database);
        };
        triggers.pauseUntil(QDateTime::currentDateTime().addDays(1));
        m_host->closeDatabase(database);
        QVERIFY(m_host->engine().plugin().dispatcher()->activity().isEmpty());
        triggers.pauseUntil({});
        reopen();
        QTRY_VERIFY(state->lastSynced().isValid());
    }

    void closingTheInboxSynchronizesIt() {
        const auto state = m_host->addState(m_host->addLocation(), m_host->inbox());
        state->setEnabled(true);
        state->setSyncOnClose(true);
        m_host->closeDatabase(m_host->inbox());
        QVERIFY(!m_host->engine().plugin().dispatcher()->activity().isEmpty());
        QTRY_VERIFY(state->lastSynced().isValid());
    }

    void disabledStatesAndEmptySchedulesNeverFire() {
        scheduled(std::make_shared<EngineHourlySchedule>(0))->setEnabled(false);
        scheduled(std::make_shared<EngineSchedule>());
        scheduled(nullptr);
        look(QDate(2030, 3, 4), QTime(10, 30));
        look(QDate(2030, 3, 4), QTime(11, 30));
        QVERIFY(m_fired.isEmpty());
    }
};

VELMORA_TEST(SyncTriggersTest)
#include "SyncTriggersTest.moc"
