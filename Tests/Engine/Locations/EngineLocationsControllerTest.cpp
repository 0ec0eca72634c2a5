#include <QtCore/QProcess>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Schedules/EngineDailySchedule.h"
#include "Engine/Schedules/EngineHourlySchedule.h"
#include "Engine/Schedules/EngineSchedule.h"
#include "Engine/Schedules/EngineWeeklySchedule.h"
#include "Host/InboxUUID.h"
#include "Support/Failure.h"
#include "Support/TestHost.h"
#include "Support/TestLocation.h"
#include "Support/TestMain.h"

namespace {

const QString SaveUntilKilled = QStringLiteral("--save-until-killed");

QDateTime moment(qint64 seconds) {
    return QDateTime::fromSecsSinceEpoch(seconds);
}

/// What a killed process runs: it saves one number after the other in two states, and tells each
/// one that is saved.
int saveUntilKilled(const QString &directory) {
    TestApplication application;
    SyncEngine engine;
    if (!engine.openProfile(directory)) {
        return 1;
    }
    QVSyncLocationsController *controller = engine.plugin().locationsController();
    const auto location =
        std::dynamic_pointer_cast<EngineSyncLocation>(controller->syncLocations().first());
    location->addStateForDatabaseWithUUID(InboxUUID, QStringLiteral("Inbox"));
    for (qint64 number = 1;; ++number) {
        for (const auto &state : location->engineStates()) {
            state->setLastSynced(moment(number));
        }
        std::optional<Error> error;
        if (!controller->save(&error)) {
            return 2;
        }
        printf("%lld\n", number);
        fflush(stdout);
    }
}

QString shownReason() {
    return QStringLiteral("“Inbox” could not be synchronized with “first.example”: It is closed.");
}

QStringList savedURLTexts(TestHost &host) {
    QStringList texts;
    const Expected<void> read = host.engine().profile().read(
        QStringLiteral("SELECT url FROM locations ORDER BY position"), {},
        [&](const QSqlQuery &row) { texts.append(row.value(0).toString()); });
    return read ? texts : QStringList{read.error().localizedDescription};
}

}  // namespace

class EngineLocationsControllerTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void writesOnlyWhatHasChangedHere() {
        TestHost host;
        const auto removed = host.addLocation(QStringLiteral("https://removed.example"));
        const auto changed = host.addLocation(QStringLiteral("https://first.example"));
        const auto state = host.addState(removed, host.inbox());
        host.save();
        EngineLocationsController other(
            host.engine().profile(),
            std::make_shared<EngineLocationKinds>(std::make_shared<StoreOperations>()));
        QVERIFY(other.load());
        other.syncLocations().at(1)->setURL(Url::fromString(QStringLiteral("https://b.example")));
        other.removeObjectFromSyncLocationsAtIndex(0);
        QVERIFY(other.save(nullptr));
        state->setEnabled(!state->isEnabled());
        host.addState(changed, host.inbox());
        host.save();
        QCOMPARE(savedURLTexts(host), QStringList{QStringLiteral("https://b.example")});
        QCOMPARE(host.engine().profile().value(QStringLiteral("SELECT count(*) FROM states")), 1);
    }

    void keepsTheResultOfTheLastJob() {
        TestHost host;
        const auto location = host.addLocation(QStringLiteral("https://first.example"));
        host.addState(location, host.inbox());
        host.save();
        const auto restarted = [&] {
            host.restart();
            return std::dynamic_pointer_cast<EngineSyncState>(
                host.locations().syncLocations().first()->synchronizationStates().first());
        };
        auto state = restarted();
        QVERIFY(!QVSyncResult::of(state.get()));
        const QVSyncResult failed{
            .date = moment(7),
            .error = Error{.domain = EngineErrorDomain, .localizedDescription = shownReason()},
            .summary = QStringLiteral("wrong password")};
        QSignalSpy announced(state.get(), &EngineSyncState::lastResultChanged);
        state->setLastResult(failed);
        QCOMPARE(announced.count(), 1);
        host.save();
        state = restarted();
        QVERIFY(QVSyncResult::of(state.get()) == failed);

        const QVSyncResult succeeded{
            .date = moment(8), .error = {}, .summary = {}, .received = 3, .sent = 2, .problems = 1};
        state->setLastResult(succeeded);
        host.save();
        state = restarted();
        QVERIFY(QVSyncResult::of(state.get()) == succeeded);
    }

    void anEditOfTheLocationForgetsFailuresOnly() {
        TestHost host;
        const auto location = host.addLocation(QStringLiteral("https://first.example"));
        const auto failed =
            std::dynamic_pointer_cast<EngineSyncState>(host.addState(location, host.inbox()));
        const auto succeeded = std::dynamic_pointer_cast<EngineSyncState>(
            host.addState(location, host.addDatabase(QStringLiteral("Projects"))));
        failed->setLastResult(
            QVSyncResult{.date = moment(7), .error = Error(), .summary = QString()});
        succeeded->setLastResult(
            QVSyncResult{.date = moment(8), .error = {}, .summary = QString()});
        location->setURL(location->URL());
        QVERIFY(!failed->lastResult());
        QVERIFY(succeeded->lastResult());
    }

    void keepsLocationsInTheirOrder() {
        TestHost host;
        const auto first = host.addLocation(QStringLiteral("https://first.example/dav"));
        const auto third = host.addLocation(QStringLiteral("dropbox://ida@third.example"));
        const auto second = locationWithoutEngine(Url::fromString(QStringLiteral("velmora://b")));
        host.locations().insertObjectInSyncLocationsAtIndex(second, 1);
        QCOMPARE(host.locations().countOfSyncLocations(), 3);
        QCOMPARE(host.locations().syncLocations(),
                 (QList<std::shared_ptr<QVSyncLocation>>{first, second, third}));
        QCOMPARE(host.locations().indexOfObjectInSyncLocations(third), 2);
        host.save();
        host.restart();
        QStringList texts;
        for (const auto &location : host.locations().syncLocations()) {
            texts.append(location->URL().absoluteString());
        }
        QCOMPARE(texts, QStringList({QStringLiteral("https://first.example/dav"),
                                     QStringLiteral("velmora://b"),
                                     QStringLiteral("dropbox://ida@third.example")}));
    }

    void knowsALocationByItsObjectAndNotByItsURL() {
        TestHost host;
        const auto location = host.addLocation(QStringLiteral("https://same.example/"));
        const auto twin = host.addLocation(QStringLiteral("https://same.example/"));
        const auto stranger = locationWithoutEngine(location->URL());
        QCOMPARE(host.locations().indexOfObjectInSyncLocations(location), 0);
        QCOMPARE(host.locations().indexOfObjectInSyncLocations(twin), 1);
        QCOMPARE(host.locations().indexOfObjectInSyncLocations(stranger), -1);
        host.save();
        host.restart();
        QCOMPARE(host.locations().countOfSyncLocations(), 2);
    }

    void removesALocationWithItsStates() {
        TestHost host(FirstContents::Welcome);
        host.locations().removeObjectFromSyncLocationsAtIndex(0);
        QCOMPARE(host.locations().countOfSyncLocations(), 0);
        host.save();
        host.restart();
        QCOMPARE(host.locations().countOfSyncLocations(), 0);
        QCOMPARE(host.engine().profile().value(QStringLiteral("SELECT count(*) FROM states")), 0);
    }

    void savesARemovedLocationWholeWhenItComesBack() {
        TestHost host(FirstContents::Welcome);
        const auto location = host.locations().syncLocations().first();
        host.locations().removeObjectFromSyncLocationsAtIndex(0);
        host.save();
        host.locations().insertObjectInSyncLocationsAtIndex(location, 0);
        host.save();
        host.restart();
        QCOMPARE(host.locations().syncLocations().first()->synchronizationStates().size(), 1);
        QVERIFY(
            host.locations().syncLocations().first()->synchronizationStates().first()->isEnabled());
    }

    void savesStatesWithAllTheyHold() {
        TestHost host;
        const auto location = host.addLocation(QStringLiteral("https://host.example/"));
        const QList<QVSyncSchedulePtr> schedules{
            nullptr, std::make_shared<EngineSchedule>(), std::make_shared<EngineHourlySchedule>(45),
            std::make_shared<EngineDailySchedule>(HourAndMinute{23, 59}),
            std::make_shared<EngineWeeklySchedule>(HourAndMinute{6, 30}, 62)};
        for (int i = 0; i < schedules.size(); ++i) {
            const auto state = location->addStateForDatabaseWithUUID(QString::number(i),
                                                                     QStringLiteral("n%1").arg(i));
            state->setEnabled(i % 2 == 1);
            state->setSyncOnOpen(i % 3 == 1);
            state->setSyncOnClose(i % 3 == 2);
            state->setSchedule(schedules.at(i));
            if (i > 0) {
                TestHost::setLastSynced(state, QDateTime::fromMSecsSinceEpoch(1000007 * i));
            }
        }
        host.save();
        host.restart();
        const QVSyncStates states =
            host.locations().syncLocations().first()->synchronizationStates();
        QCOMPARE(states.size(), schedules.size());
        for (int i = 0; i < schedules.size(); ++i) {
            const auto state = states.at(i);
            QCOMPARE(state->databaseUUID(), QString::number(i));
            QCOMPARE(state->databaseName(), QStringLiteral("n%1").arg(i));
            QCOMPARE(state->isEnabled(), i % 2 == 1);
            QCOMPARE(state->syncOnOpen(), i % 3 == 1);
            QCOMPARE(state->syncOnClose(), i % 3 == 2);
            QCOMPARE(state->lastSynced(),
                     i > 0 ? QDateTime::fromMSecsSinceEpoch(1000007 * i) : QDateTime());
            QCOMPARE(state->schedule() != nullptr, i > 0);
            QCOMPARE(state->destination(), host.locations().syncLocations().first());
        }
        QVERIFY(!states.at(1)->schedule()->nextScheduledDate().isValid());
        QCOMPARE(std::dynamic_pointer_cast<const QVHourlySchedule>(states.at(2)->schedule())
                     ->hourlyOffset(),
                 45U);
        QCOMPARE(std::dynamic_pointer_cast<const QVDailySchedule>(states.at(3)->schedule())
                     ->hourAndMinute(),
                 (HourAndMinute{23, 59}));
        QCOMPARE(std::dynamic_pointer_cast<const QVWeeklySchedule>(states.at(4)->schedule())
                     ->daysOfWeek(),
                 62U);
    }

    void aRemovedLocationDoesNotComeBackThroughAnotherProcess() {
        TestHost host(FirstContents::Welcome);
        const QStringList both =
            savedURLTexts(host) + QStringList(QStringLiteral("https://other.example/"));
        host.addLocation(both.last());
        host.save();
        const auto openOther = [&](SyncEngine &other, ProfileUse use) {
            return other.openProfile(host.directory(), FirstContents::Inbox, use);
        };
        SyncEngine reader;
        QVERIFY(openOther(reader, ProfileUse::Snapshot));
        host.locations().removeObjectFromSyncLocationsAtIndex(0);
        host.save();
        // One that wants to save has to wait until the profile is closed, and sees the removal.
        SyncEngine writer;
        QCOMPARE(code(openOther(writer, ProfileUse::Edit)), EngineErrorCode::ProfileInUse);
        // One that has read the location before saves into its own copy.
        auto *stale = reader.plugin().locationsController();
        QCOMPARE(stale->countOfSyncLocations(), both.size());
        stale->syncLocations().first()->synchronizationStates().first()->setEnabled(false);
        std::optional<Error> error;
        stale->save(&error);
        QCOMPARE(savedURLTexts(host), both.mid(1));
        host.restart();
        QCOMPARE(host.locations().countOfSyncLocations(), 1);
    }

    void keepsNothingThatWasNotSaved() {
        TestHost host(FirstContents::Welcome);
        host.locations().syncLocations().first()->synchronizationStates().first()->setEnabled(
            false);
        host.addLocation(QStringLiteral("https://unsaved.example/"));
        host.restart();
        QCOMPARE(host.locations().countOfSyncLocations(), 1);
        QVERIFY(
            host.locations().syncLocations().first()->synchronizationStates().first()->isEnabled());
    }

    void aFailedSaveSaysWhyAndChangesNothing() {
        TestHost host(FirstContents::Welcome);
        const auto state =
            host.locations().syncLocations().first()->synchronizationStates().first();
        state->setEnabled(false);
        host.addLocation(QStringLiteral("https://new.example/"));
        host.makeSavesFail();
        std::optional<Error> error;
        QVERIFY(!host.locations().save(&error));
        QVERIFY(error && error->localizedDescription.contains(host.directory()));
        QVERIFY(!host.locations().save(nullptr));
        host.letSavesPass();
        QCOMPARE(savedURLTexts(host).size(), 1);
        QCOMPARE(host.engine().profile().value(QStringLiteral("SELECT enabled FROM states")), 1);
        // Nothing is forgotten by the failure.
        QVERIFY(host.locations().save(&error));
        host.restart();
        QCOMPARE(host.locations().countOfSyncLocations(), 2);
        QVERIFY(!host.locations()
                     .syncLocations()
                     .first()
                     ->synchronizationStates()
                     .first()
                     ->isEnabled());
    }

    void aSaveThatFailsInItsMiddleLeavesNothingOfItself() {
        TestHost host(FirstContents::Welcome);
        QVERIFY(host.engine().profile().run(QStringLiteral(
            "CREATE TEMP TRIGGER full BEFORE INSERT ON states WHEN new.database_uuid ="
            " 'second' BEGIN SELECT RAISE(ABORT, 'full'); END")));
        const auto location = host.addLocation(QStringLiteral("https://new.example/"));
        location->addStateForDatabaseWithUUID(QStringLiteral("first"), QString());
        location->addStateForDatabaseWithUUID(QStringLiteral("second"), QString());
        std::optional<Error> error;
        QVERIFY(!host.locations().save(&error));
        QCOMPARE(savedURLTexts(host).size(), 1);
        QCOMPARE(host.engine().profile().value(QStringLiteral("SELECT count(*) FROM states")), 1);
    }

    void keepsATextThatIsNoURL() {
        TestHost host(FirstContents::Welcome);
        const QString damaged = QStringLiteral("https://a b:99:99/%zz");
        QVERIFY(
            host.engine().profile().run(QStringLiteral("UPDATE locations SET url = ?"), {damaged}));
        host.restart();
        const auto location = host.locations().syncLocations().first();
        QVERIFY(location->URL().isNil());
        QCOMPARE(location->synchronizationStates().size(), 1);
        host.save();
        QCOMPARE(savedURLTexts(host), QStringList(damaged));
        location->setURL(Url::fromString(QStringLiteral("https://mended.example/")));
        host.save();
        QCOMPARE(savedURLTexts(host), QStringList(QStringLiteral("https://mended.example/")));
    }

    void keepsALocationWithoutURLAndOneOfAnUnknownScheme() {
        TestHost host;
        host.addLocation(QString());
        host.addLocation(QStringLiteral("gopher://old.example/"));
        host.save();
        host.restart();
        QVERIFY(host.locations().syncLocations().at(0)->URL().isNil());
        QCOMPARE(host.locations().syncLocations().at(1)->URL().scheme(), QStringLiteral("gopher"));
    }

    void keepsTheStateOfAnUnknownDatabase() {
        TestHost host(FirstContents::Welcome);
        host.locations().syncLocations().first()->addStateForDatabaseWithUUID(
            QStringLiteral("stranger"), QStringLiteral("Stranger"));
        host.save();
        host.restart();
        const auto state = host.locations().syncLocations().first()->stateForDatabaseWithUUID(
            QStringLiteral("stranger"));
        QVERIFY(state);
        QCOMPARE(state->databaseName(), QStringLiteral("Stranger"));
        QVERIFY(!QVSyncPlugin::databaseForUUID(state->databaseUUID(), false));
        const auto known = QVSyncPlugin::databaseForUUID(state->databaseUUID(), true);
        QVERIFY(known);
        QCOMPARE(known->UUID(), state->databaseUUID());
        QCOMPARE(known->name(), QStringLiteral("Stranger"));
    }

    void writesOnlyWhatHasChanged() {
        TestHost host;
        const int locationCount = 100;
        const int databaseCount = 1000;
        for (int i = 0; i < locationCount; ++i) {
            const auto location =
                host.addLocation(QStringLiteral("https://host%1.example/").arg(i));
            for (int j = 0; j < databaseCount; ++j) {
                location->addStateForDatabaseWithUUID(QString::number(j), QString::number(j))
                    ->setEnabled(j % 2 == 0);
            }
        }
        host.save();
        host.restart();
        QCOMPARE(host.locations().countOfSyncLocations(), locationCount);
        const auto location = host.locations().syncLocations().last();
        QCOMPARE(location->synchronizationStates().size(), databaseCount);
        QVERIFY(location->stateForDatabaseWithUUID(QStringLiteral("998"))->isEnabled());
        QVERIFY(!location->stateForDatabaseWithUUID(QStringLiteral("999"))->isEnabled());

        location->stateForDatabaseWithUUID(QStringLiteral("999"))->setEnabled(true);
        const auto rowsWritten = [&] {
            return host.engine()
                .profile()
                .value(QStringLiteral("SELECT total_changes()"))
                .value()
                .toInt();
        };
        const int before = rowsWritten();
        host.save();
        QVERIFY(rowsWritten() - before <= locationCount + 1);
        QCOMPARE(host.engine()
                     .profile()
                     .value(QStringLiteral("SELECT count(*) FROM states WHERE enabled"))
                     .value()
                     .toInt(),
                 locationCount * databaseCount / 2 + 1);
    }

    void losesNothingThatWasSavedWhenItsProcessIsKilled() {
        const QTemporaryDir folder;
        const QString directory = folder.filePath(QStringLiteral("Profile"));
        for (const int savesBeforeTheKill : {1, 7, 40, 150}) {
            QProcess process;
            process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
            process.start(
                QCoreApplication::applicationFilePath(),
                {QStringLiteral("EngineLocationsControllerTest"), SaveUntilKilled, directory});
            QByteArray reported;
            while (reported.count('\n') < savesBeforeTheKill) {
                QVERIFY(process.waitForReadyRead());
                reported += process.readAll();
            }
            process.kill();
            QVERIFY(process.waitForFinished());
            QCOMPARE(process.exitStatus(), QProcess::CrashExit);
            reported += process.readAll();
            const qint64 lastReported =
                reported.left(reported.lastIndexOf('\n')).split('\n').last().toLongLong();
            QVERIFY(lastReported >= savesBeforeTheKill);

            TestApplication application;
            SyncEngine engine;
            QVERIFY(engine.openProfile(directory));
            const QVSyncStates states = engine.plugin()
                                            .locationsController()
                                            ->syncLocations()
                                            .first()
                                            ->synchronizationStates();
            QCOMPARE(states.size(), 2);
            QVERIFY(states.first()->lastSynced() >= moment(lastReported));
            // Both are of one save.
            QCOMPARE(states.first()->lastSynced(), states.last()->lastSynced());
        }
    }
};

VELMORA_TEST_PROGRAM(EngineLocationsControllerTest)(int argumentCount, char **arguments) {
    prepareTestProcess();
    QApplication application(argumentCount, arguments);
    const QStringList given = QCoreApplication::arguments();
    if (given.size() == 3 && given.at(1) == SaveUntilKilled) {
        return saveUntilKilled(given.at(2));
    }
    EngineLocationsControllerTest test;
    return QTest::qExec(&test, argumentCount, arguments);
}
#include "EngineLocationsControllerTest.moc"
