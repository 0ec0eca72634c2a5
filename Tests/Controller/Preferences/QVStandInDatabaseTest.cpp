#include "Controller/Preferences/QVStandInDatabase.h"

#include "Host/Notifications.h"
#include "Host/QVSyncLocation.h"
#include "Platform/Foundation/NotificationCenter.h"
#include "Support/AnnouncementRecorder.h"
#include "Support/HostShortcuts.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

class QVStandInDatabaseTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;

    /// A state of one database at a new location.
    std::shared_ptr<QVSyncState> makeState(bool isEnabled = false,
                                           const QDateTime &lastSynced = {}) {
        auto state = m_host->addLocation()->addStateForDatabaseWithUUID(QStringLiteral("D"),
                                                                        QStringLiteral("Data"));
        state->setEnabled(isEnabled);
        m_host->setLastSynced(state, lastSynced);
        return state;
    }

    static QDateTime at(int hour) { return {QDate(2026, 5, 4), QTime(hour, 0)}; }

private Q_SLOTS:
    void init() {
        m_host = std::make_unique<TestHost>();
        setDebugging(Debugging::Off);
    }
    void cleanup() { m_host.reset(); }

    void aNewRowHasNothing() {
        const QVStandInDatabase row;
        QVERIFY(!row.canSynchronize());
        QVERIFY(!row.dateOfLastSynchronization().isValid());
        QVERIFY(!row.schedule());
        QVERIFY(!row.syncOnOpen());
        QVERIFY(!row.syncOnClose());
        QVERIFY(!row.existsLocally());
        QVERIFY(row.synchronizationStates().isEmpty());
        QVERIFY(row.containingLocations().empty());
        QCOMPARE(row.localizedSyncButtonTitle(), QStringLiteral("Sync Now"));
    }

    void addingAnEnabledStateMakesItSynchronizableWithinTheCall() {
        QVStandInDatabase row;
        row.addSynchronizationStatesObject(makeState(true));
        QVERIFY(row.canSynchronize());
    }

    void severalStatesAreAddedAsOneAfterTheOther() {
        const QVSyncStates states = {makeState(false, at(10)), makeState(true, at(12)),
                                     makeState(false, at(11))};
        QVStandInDatabase row;
        row.addSynchronizationStates(states);
        QCOMPARE(row.synchronizationStates(), states);
        QVERIFY(row.canSynchronize());
        QCOMPARE(row.dateOfLastSynchronization(), at(12));
        states.at(1)->setEnabled(false);
        QVERIFY(!row.canSynchronize());
        setDebugging(Debugging::High);
        for (int i = 0; i < 1 + 2; ++i) {
            QTest::ignoreMessage(QtInfoMsg,
                                 QRegularExpression(QStringLiteral("^Contemplating state ")));
        }
        QVStandInDatabase logged;
        logged.addSynchronizationStates({states.at(0), states.at(2)});
    }

    void addingADisabledStateLeavesItUnsynchronizable() {
        QVStandInDatabase row;
        row.addSynchronizationStatesObject(makeState(false));
        QVERIFY(!row.canSynchronize());
    }

    void disablingTheOnlyEnabledStateMakesItUnsynchronizable() {
        QVStandInDatabase row;
        const auto state = makeState(true);
        row.addSynchronizationStatesObject(state);
        row.addSynchronizationStatesObject(makeState(false));
        state->setEnabled(false);
        QVERIFY(!row.canSynchronize());
    }

    void oneEnabledStateAmongOthersSuffices() {
        QVStandInDatabase row;
        const auto first = makeState(true);
        row.addSynchronizationStatesObject(first);
        row.addSynchronizationStatesObject(makeState(true));
        first->setEnabled(false);
        QVERIFY(row.canSynchronize());
    }

    void removingTheOnlyEnabledStateLeavesItSynchronizableUntilItIsUpdated() {
        QVStandInDatabase row;
        const auto state = makeState(true);
        row.addSynchronizationStatesObject(state);
        row.removeSynchronizationStatesObject(state);
        QVERIFY(row.canSynchronize());
        row.updateCanSynchronize();
        QVERIFY(!row.canSynchronize());
    }

    void addingADisabledStateAfterARemovalUpdatesTheStaleFlag() {
        QVStandInDatabase row;
        const auto state = makeState(true);
        row.addSynchronizationStatesObject(state);
        row.removeSynchronizationStatesObject(state);
        row.addSynchronizationStatesObject(makeState(false));
        QVERIFY(!row.canSynchronize());
    }

    void removingAStateUpdatesTheDateAtOnce() {
        QVStandInDatabase row;
        const auto later = makeState(true, at(12));
        row.addSynchronizationStatesObject(makeState(true, at(10)));
        row.addSynchronizationStatesObject(later);
        row.removeSynchronizationStatesObject(later);
        QCOMPARE(row.dateOfLastSynchronization(), at(10));
    }

    void aRemovedStateIsNoLongerObserved() {
        QVStandInDatabase row;
        const auto state = makeState(true);
        row.addSynchronizationStatesObject(state);
        row.removeSynchronizationStatesObject(state);
        AnnouncementRecorder recorder(&row);
        state->setEnabled(false);
        m_host->setLastSynced(state, at(9));
        QVERIFY(recorder.announced().isEmpty());
    }

    void removingAStateThatIsNotThereChangesNothing() {
        QVStandInDatabase row;
        const auto state = makeState(true, at(10));
        row.addSynchronizationStatesObject(state);
        row.removeSynchronizationStatesObject(makeState(true, at(12)));
        QCOMPARE(row.synchronizationStates(), QVSyncStates{state});
        QCOMPARE(row.dateOfLastSynchronization(), at(10));
        QVERIFY(row.canSynchronize());
        m_host->setLastSynced(state, at(11));
        QCOMPARE(row.dateOfLastSynchronization(), at(11));
        state->setEnabled(false);
        QVERIFY(!row.canSynchronize());
    }

    void theLatestDateCounts() {
        QVStandInDatabase row;
        row.addSynchronizationStatesObject(makeState(false, at(10)));
        row.addSynchronizationStatesObject(makeState(false, at(12)));
        row.addSynchronizationStatesObject(makeState(false, at(11)));
        QCOMPARE(row.dateOfLastSynchronization(), at(12));
    }

    void absentDatesAreSkipped() {
        QVStandInDatabase row;
        row.addSynchronizationStatesObject(makeState());
        QVERIFY(!row.dateOfLastSynchronization().isValid());
        row.addSynchronizationStatesObject(makeState(false, at(10)));
        row.addSynchronizationStatesObject(makeState());
        QCOMPARE(row.dateOfLastSynchronization(), at(10));
    }

    void theDateFollowsAState() {
        QVStandInDatabase row;
        const auto state = makeState(false, at(10));
        row.addSynchronizationStatesObject(state);
        m_host->setLastSynced(state, at(13));
        QCOMPARE(row.dateOfLastSynchronization(), at(13));
        m_host->setLastSynced(state, at(9));
        QCOMPARE(row.dateOfLastSynchronization(), at(9));
    }

    void removingAllStatesUpdatesNothingAndKeepsObserving() {
        QVStandInDatabase row;
        const auto state = makeState(true, at(10));
        row.addSynchronizationStatesObject(state);
        AnnouncementRecorder recorder(&row);
        row.removeAllSynchronizationStates();
        QVERIFY(row.synchronizationStates().isEmpty());
        QVERIFY(row.canSynchronize());
        QCOMPARE(row.dateOfLastSynchronization(), at(10));
        QVERIFY(recorder.announced().isEmpty());

        state->setEnabled(true);
        QCOMPARE(recorder.announced(), QByteArrayList{"canSynchronize"});
        QVERIFY(!row.canSynchronize());
    }

    void aDroppedStateThatIsAddedAgainIsObservedTwice() {
        QVStandInDatabase row;
        const auto state = makeState(true);
        row.addSynchronizationStatesObject(state);
        row.removeAllSynchronizationStates();
        row.addSynchronizationStatesObject(state);
        QCOMPARE(row.synchronizationStates(), QVSyncStates{state});
        AnnouncementRecorder recorder(&row);
        state->setEnabled(false);
        QCOMPARE(recorder.count("canSynchronize"), 2);
        QVERIFY(!row.canSynchronize());
        row.removeSynchronizationStatesObject(state);
        recorder.clear();
        state->setEnabled(true);
        QCOMPARE(recorder.count("canSynchronize"), 1);
    }

    void theFirstStateKeepsItsScheduleAndGivesItToTheRow() {
        QVStandInDatabase row;
        const auto state = makeState();
        state->setSchedule(dailySchedule(7, 30));
        row.addSynchronizationStatesObject(state);
        QCOMPARE(row.schedule(), state->schedule());
    }

    void aSecondStateGetsTheSchedule() {
        QVStandInDatabase row;
        const auto first = makeState();
        first->setSchedule(dailySchedule(7, 30));
        const auto second = makeState();
        second->setSchedule(dailySchedule(20, 0));
        row.addSynchronizationStatesObject(first);
        row.addSynchronizationStatesObject(second);
        QCOMPARE(second->schedule(), first->schedule());
    }

    void aSecondStateKeepsItsScheduleWhereTheRowHasNone() {
        QVStandInDatabase row;
        const auto second = makeState();
        const auto schedule = dailySchedule(20, 0);
        second->setSchedule(schedule);
        row.addSynchronizationStatesObject(makeState());
        row.addSynchronizationStatesObject(second);
        QCOMPARE(second->schedule(), schedule);
    }

    void aScheduleIsSetOnAllStates() {
        QVStandInDatabase row;
        const auto first = makeState();
        const auto second = makeState();
        row.addSynchronizationStatesObject(first);
        row.addSynchronizationStatesObject(second);
        const auto schedule = dailySchedule(6, 0);
        row.setSchedule(schedule);
        row.setSyncOnOpen(true);
        row.setSyncOnClose(true);
        for (const auto &state : {first, second}) {
            QCOMPARE(state->schedule(), schedule);
            QVERIFY(state->syncOnOpen());
            QVERIFY(state->syncOnClose());
        }
        QVERIFY(row.syncOnOpen());
        QVERIFY(row.syncOnClose());
        row.setSchedule(nullptr);
        QVERIFY(!first->schedule());
        QVERIFY(!second->schedule());
    }

    void aScheduleSetOnARowWithoutStatesIsLost() {
        QVStandInDatabase row;
        row.setSchedule(dailySchedule(6, 0));
        row.setSyncOnOpen(true);
        row.setSyncOnClose(true);
        QVERIFY(!row.schedule());
        QVERIFY(!row.syncOnOpen());
        QVERIFY(!row.syncOnClose());
    }

    void aRenamePostedForItsDatabaseRenamesIt() {
        const auto database = m_host->addDatabase(QStringLiteral("Before"));
        QVStandInDatabase row;
        row.setUUID(database->UUID());
        row.setName(QStringLiteral("Before"));
        m_host->renameDatabase(database, QStringLiteral("After"));
        QCOMPARE(row.name(), QStringLiteral("After"));
    }

    void aRenameOfAnotherDatabaseLeavesItsName() {
        const auto database = m_host->addDatabase(QStringLiteral("Other"));
        QVStandInDatabase row;
        row.setUUID(QStringLiteral("D"));
        row.setName(QStringLiteral("Mine"));
        m_host->renameDatabase(database, QStringLiteral("Changed"));
        QCOMPARE(row.name(), QStringLiteral("Mine"));
    }

    void aRenameOfSomethingElseIsOnlyLogged() {
        QVStandInDatabase row;
        row.setName(QStringLiteral("Mine"));
        QObject noDatabase;
        NotificationCenter::defaultCenter().post(QVDatabaseRenamedNotification, &noDatabase);
        setDebugging(Debugging::Normal);
        QTest::ignoreMessage(
            QtInfoMsg, QRegularExpression(QStringLiteral(
                           "^Received database-renamed notification with non-database object: "
                           "<QObject: 0x[0-9a-f]+>$")));
        NotificationCenter::defaultCenter().post(QVDatabaseRenamedNotification, &noDatabase);
        QCOMPARE(row.name(), QStringLiteral("Mine"));
    }

    void eachStateIsLoggedWhileItIsContemplated() {
        QVStandInDatabase row;
        row.addSynchronizationStatesObject(makeState());
        row.addSynchronizationStatesObject(makeState());
        setDebugging(Debugging::High);
        for (int i = 0; i < 2; ++i) {
            QTest::ignoreMessage(QtInfoMsg,
                                 QRegularExpression(QStringLiteral("^Contemplating state ")));
        }
        row.updateCanSynchronize();
    }

    void itExistsWhereItIsContained() {
        QVStandInDatabase row;
        const auto location = m_host->addLocation();
        QVERIFY(!row.existsInLocation(location));
        row.addContainingLocationsObject(location);
        QVERIFY(row.existsInLocation(location));
        QVERIFY(!row.existsLocally());
        row.removeContainingLocationsObject(location);
        QVERIFY(!row.existsInLocation(location));
        row.addContainingLocationsObject(m_host->localLocation());
        QVERIFY(row.existsLocally());
    }

    void itDescribesItselfByClassAddressAndUUID() {
        QVStandInDatabase row;
        row.setUUID(QStringLiteral("some-uuid"));
        const QString address =
            QString::number(static_cast<quint32>(reinterpret_cast<quintptr>(&row)), 16);
        QCOMPARE(row.description(),
                 QStringLiteral("<QVStandInDatabase: 0x%1 some-uuid>").arg(address));
    }

    void withoutAUUIDItDescribesThatAsThePlatformDoes() {
        QVERIFY(QVStandInDatabase().description().endsWith(QStringLiteral(" (null)>")));
    }

    void aHandlerMayRemoveAStateWhileAnotherIsAdded() {
        QVStandInDatabase row;
        const auto enabled = makeState(true, QDateTime::fromSecsSinceEpoch(1000));
        row.addSynchronizationStatesObject(enabled);
        bool isRemoved = false;
        connect(&row, &QVStandInDatabase::dateOfLastSynchronizationChanged, &row, [&] {
            if (!std::exchange(isRemoved, true)) {
                row.removeSynchronizationStatesObject(enabled);
            }
        });
        row.addSynchronizationStatesObject(makeState(false, QDateTime::fromSecsSinceEpoch(500)));
        QVERIFY(isRemoved);
        QVERIFY(!row.canSynchronize());
        QCOMPARE(row.dateOfLastSynchronization(), QDateTime::fromSecsSinceEpoch(500));
        row.addSynchronizationStatesObject(makeState(false));
        QVERIFY(!row.canSynchronize());
    }

    void itsContainingLocationsAreAnObservableKey() {
        QVStandInDatabase row;
        AnnouncementRecorder recorder(&row);
        const auto location = m_host->addLocation();
        row.addContainingLocationsObject(location);
        row.removeContainingLocationsObject(location);
        QCOMPARE(recorder.count("containingLocations"), 2);
    }

    void addingAStateAnnouncesWhatDependsOnTheStates() {
        QVStandInDatabase row;
        const auto state = makeState();
        AnnouncementRecorder recorder(&row);
        row.addSynchronizationStatesObject(state);
        QCOMPARE(
            recorder.announced(),
            QByteArrayList({"dateOfLastSynchronization", "canSynchronize", "synchronizationStates",
                            "canSynchronize", "schedule", "syncOnOpen", "syncOnClose"}));
    }

    void removingAStateAnnouncesWhatDependsOnTheStates() {
        QVStandInDatabase row;
        const auto state = makeState();
        row.addSynchronizationStatesObject(state);
        AnnouncementRecorder recorder(&row);
        row.removeSynchronizationStatesObject(state);
        QCOMPARE(recorder.announced(),
                 QByteArrayList({"dateOfLastSynchronization", "synchronizationStates",
                                 "canSynchronize", "schedule", "syncOnOpen", "syncOnClose"}));
    }

    void settersAnnounceTheirKeyAloneAndLast_data() {
        QTest::addColumn<QByteArray>("key");
        QTest::addColumn<QVariant>("value");
        QTest::newRow("UUID") << QByteArray("UUID") << QVariant(QStringLiteral("u"));
        QTest::newRow("name") << QByteArray("name") << QVariant(QStringLiteral("n"));
        QTest::newRow("canSynchronize") << QByteArray("canSynchronize") << QVariant(true);
        QTest::newRow("dateOfLastSynchronization")
            << QByteArray("dateOfLastSynchronization") << QVariant(at(3));
        QTest::newRow("syncOnOpen") << QByteArray("syncOnOpen") << QVariant(true);
        QTest::newRow("syncOnClose") << QByteArray("syncOnClose") << QVariant(true);
    }

    void settersAnnounceTheirKeyAloneAndLast() {
        QFETCH(QByteArray, key);
        QFETCH(QVariant, value);
        QVStandInDatabase row;
        row.addSynchronizationStatesObject(makeState());
        QVariant valueWhenAnnounced;
        AnnouncementRecorder recorder(&row);
        const auto observation =
            KeyValue::observe(&row, key, [&] { valueWhenAnnounced = KeyValue::value(&row, key); });
        KeyValue::setValue(&row, key, value);
        QCOMPARE(recorder.announced(), QByteArrayList{key});
        QCOMPARE(valueWhenAnnounced, value);
        KeyValue::setValue(&row, key, value);
        QCOMPARE(recorder.count(key), 2);
    }

    void statesOutliveTheRowUnobserved() {
        const auto state = makeState(true);
        {
            QVStandInDatabase row;
            row.addSynchronizationStatesObject(state);
        }
        state->setEnabled(false);
        QVERIFY(!state->isEnabled());
    }
};

VELMORA_TEST(QVStandInDatabaseTest)
#include "QVStandInDatabaseTest.moc"
