#include "Engine/Schedules/EngineHourlySchedule.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/KeyValue/KeyValue.h"
#include "Support/TestHost.h"
#include "Support/TestLocation.h"
#include "Support/TestMain.h"

namespace {

const QString DatabaseUUID = QStringLiteral("5c0ba4b5-6d43-4bb9-8f2c-fd3ab4da3f6f");

std::shared_ptr<EngineSyncLocation> newLocation() {
    return locationWithoutEngine(Url::fromString(QStringLiteral("https://host.example/")));
}

}  // namespace

class EngineSyncLocationTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aNewLocationIsInNoList() {
        TestHost host;
        const auto &locations = requiredHostClass<QVSyncLocation::Class>();
        QVERIFY(locations.syncLocationWithURL(Url())->URL().isNil());
        const Url url = Url::fromString(QStringLiteral("velmora://desk.local:8442"));
        QCOMPARE(locations.syncLocationWithURL(url)->URL(), url);
        QCOMPARE(host.locations().countOfSyncLocations(), 0);
    }

    void aNewStateIsDisabledWithoutScheduleAndAnnounced() {
        const auto location = newLocation();
        QSignalSpy announced(location.get(), &QVSyncLocation::synchronizationStatesChanged);
        qsizetype countAtAnnouncement = 0;
        const auto observation = KeyValue::observe(location.get(), "synchronizationStates", [&] {
            countAtAnnouncement = location->synchronizationStates().size();
        });
        const auto state =
            location->addStateForDatabaseWithUUID(DatabaseUUID, QStringLiteral("Projects"));
        QCOMPARE(announced.count(), 1);
        QCOMPARE(countAtAnnouncement, 1);
        QCOMPARE(state->databaseUUID(), DatabaseUUID);
        QCOMPARE(state->databaseName(), QStringLiteral("Projects"));
        QVERIFY(!state->isEnabled() && !state->syncOnOpen() && !state->syncOnClose());
        QVERIFY(!state->schedule());
        QVERIFY(!state->lastSynced().isValid());
        QCOMPARE(location->synchronizationStates(), QVSyncStates{state});
    }

    void addingAStateForAKnownDatabaseReturnsTheExistingOne() {
        const auto location = newLocation();
        const auto state =
            location->addStateForDatabaseWithUUID(DatabaseUUID, QStringLiteral("Projects"));
        QSignalSpy announced(location.get(), &QVSyncLocation::synchronizationStatesChanged);
        QCOMPARE(location->addStateForDatabaseWithUUID(DatabaseUUID, QStringLiteral("Other")),
                 state);
        QCOMPARE(announced.count(), 0);
        QCOMPARE(location->synchronizationStates().size(), 1);
    }

    void findsAStateByItsDatabaseOnly() {
        const auto location = newLocation();
        QVERIFY(!location->stateForDatabaseWithUUID(DatabaseUUID));
        const auto state = location->addStateForDatabaseWithUUID(DatabaseUUID, QString());
        QCOMPARE(location->stateForDatabaseWithUUID(DatabaseUUID), state);
        QVERIFY(!location->stateForDatabaseWithUUID(DatabaseUUID.toUpper()));
        QVERIFY(!location->stateForDatabaseWithUUID(QString()));
        QVERIFY_THROWS_EXCEPTION(AssertionFailure,
                                 location->addStateForDatabaseWithUUID(QString(), QString()));
    }

    void aStateReturnsItsLocationUntilThatIsDestroyed() {
        auto location = newLocation();
        const auto state = location->addStateForDatabaseWithUUID(DatabaseUUID, QString());
        QCOMPARE(state->destination(), location);
        location.reset();
        QVERIFY(!state->destination());
    }

    void everySetterOfAStateAnnouncesEqualValuesToo() {
        const auto location = newLocation();
        location->addStateForDatabaseWithUUID(DatabaseUUID, QString());
        EngineSyncState &state = *location->engineStates().first();
        QSignalSpy enabled(&state, &QVSyncState::enabledChanged);
        QSignalSpy schedule(&state, &QVSyncState::scheduleChanged);
        QSignalSpy syncOnOpen(&state, &QVSyncState::syncOnOpenChanged);
        QSignalSpy syncOnClose(&state, &QVSyncState::syncOnCloseChanged);
        QSignalSpy lastSynced(&state, &QVSyncState::lastSyncedChanged);
        const auto hourly = std::make_shared<EngineHourlySchedule>(5);
        const QDateTime now = QDateTime::currentDateTime();
        for (int times = 1; times <= 2; ++times) {
            state.setEnabled(true);
            QCOMPARE(enabled.count(), times);
            state.setSchedule(hourly);
            QCOMPARE(schedule.count(), times);
            state.setSyncOnOpen(true);
            QCOMPARE(syncOnOpen.count(), times);
            state.setSyncOnClose(true);
            QCOMPARE(syncOnClose.count(), times);
            state.setLastSynced(now);
            QCOMPARE(lastSynced.count(), times);
        }
        QVERIFY(state.isEnabled() && state.syncOnOpen() && state.syncOnClose());
        QCOMPARE(state.schedule(), QVSyncSchedulePtr(hourly));
        QCOMPARE(state.lastSynced(), now);
    }

    void aStateAnnouncesAfterItHasChanged() {
        const auto location = newLocation();
        const auto state = location->addStateForDatabaseWithUUID(DatabaseUUID, QString());
        bool seen = false;
        const auto observation =
            KeyValue::observe(state.get(), "enabled", [&] { seen = state->isEnabled(); });
        state->setEnabled(true);
        QVERIFY(seen);
    }

    void settingTheURLAnnouncesIt() {
        const auto location = newLocation();
        QSignalSpy announced(location.get(), &QVSyncLocation::URLChanged);
        location->setURL(location->URL());
        QCOMPARE(announced.count(), 1);
        location->setURL(Url());
        QCOMPARE(announced.count(), 2);
        QVERIFY(location->URL().isNil());
    }
};

VELMORA_TEST(EngineSyncLocationTest)
#include "EngineSyncLocationTest.moc"
