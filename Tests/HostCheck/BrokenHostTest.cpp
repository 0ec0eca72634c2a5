#include "HostCheck/BrokenHost.h"

#include "HostCheck/HostCheck.h"
#include "Support/TestMain.h"

namespace {

/// What BrokenHost knows to break.
constexpr const char *BrokenPromises[] = {
    "QVSyncStore.location",
    "QVSyncStore.openWithCompletionHandler (once)",
    "QVSyncStore.openWithCompletionHandler (thread)",
    "QVSyncStore.openWithCompletionHandler (after closing)",
    "QVSyncStore.fetchDatabasesWithCompletionHandler (once)",
    "QVSyncStore.fetchDatabasesWithCompletionHandler (thread)",
    "QVSyncStore.fetchDatabasesWithCompletionHandler (cancelled)",
    "QVSyncStore.fetchDatabasesWithCompletionHandler (not open)",
    "QVSyncStore.fetchDatabasesWithCompletionHandler (closed)",
    "QVSyncStore.DatabasesHandler",
    "QVSyncStore.closeWithCompletionHandler (once)",
    "QVSyncStore.closeWithCompletionHandler (thread)",
    "QVSyncStore.closeWithCompletionHandler (cancelled)",
    "QVSyncStore.closeWithCompletionHandler (not open)",
    "QVSyncState.setEnabled",
    "QVSyncState.isEnabled",
    "QVSyncState.setSchedule",
    "QVSyncState.setSyncOnOpen",
    "QVSyncState.setSyncOnClose",
    "QVSyncDispatcher.cleanRemoteStoreWithSynchronizationState",
    "QVSyncDispatcher.cleanRemoteStoreWithSynchronizationState (null)",
    "QVSyncDispatcher.cleanRemoteStoreWithSynchronizationState (disabled)",
    "QVSyncDispatcher.performSynchronizations (once)",
    "QVSyncDispatcher.performSynchronizations (thread)",
    "QVSyncDispatcher.performSynchronizations (later)",
    "QVSyncDispatcher.performSynchronizations (duplicates)",
    "QVSyncDispatcher.performSynchronizations (disabled)",
    "QVSyncDispatcher.performSynchronizations (destroyed)",
    "QVSyncDispatcher.performSynchronizations (foreign)",
    "QVSyncDispatcher.performSynchronizations (waiting)",
    "QVSyncState.lastSynced (announced)",
    "QVSyncDispatcher.activity",
    "PZFuture.cancel",
    "PZFuture.isCancelled",
    "PZFuture.cascadeCancellationToFuture",
    "PZFuture.cascadeCancellationToFuture (cancelled)",
    "PZFuture.cascadeCancellationToFuture (kept)",
    "PZFuture.cascadeCancellationToFuture (ring)",
    "PZFuture.passControlToFuture",
    "PZFuture.passControlToFuture (cancelled)",
    "QVSyncSchedule.newSchedule",
    "QVSyncSchedule.isHourly",
    "QVSyncSchedule.isDaily",
    "QVSyncSchedule.isWeekly",
    "QVSyncSchedule.nextScheduledDate (local)",
    "QVHourlySchedule.newHourlySchedule",
    "QVHourlySchedule.hourlyOffset",
    "QVHourlySchedule.nextScheduledDate (set back)",
    "QVHourlySchedule.nextScheduledDate (set forward)",
    "QVDailySchedule.initWithHourAndMinute",
    "QVDailySchedule.nextScheduledDate (set forward)",
    "QVDailySchedule.nextScheduledDate (set back)",
    "QVWeeklySchedule.initWithHourAndMinute",
    "QVWeeklySchedule.daysOfWeek",
    "QVWeeklySchedule.daysOfWeek (none)",
    "QVWeeklySchedule.nextScheduledDate",
    "QVWeeklySchedule.nextScheduledDate (set forward)",
    "QVWeeklySchedule.nextScheduledDate (set back)",
    "QVSyncLocation.URL (password)",
    "QVSyncLocation.setURL",
    "QVSyncLocation.setURL (stores)",
    "QVSyncLocation.synchronizationStates",
    "QVSyncLocation.stateForDatabaseWithUUID",
    "QVSyncLocation.stateForDatabaseWithUUID (found)",
    "QVSyncLocation.addStateForDatabaseWithUUID",
    "QVSyncLocation.addStateForDatabaseWithUUID (announced)",
    "QVSyncLocation.addStateForDatabaseWithUUID (again)",
    "QVSyncLocation.addStateForDatabaseWithUUID (empty)",
    "QVSyncLocation.createStore",
    "QVSyncLocation.createStore (nil)",
    "QVSyncLocation.createStore (unknown)",
    "QVSyncLocationFormatter.title",
    "QVSyncLocationFormatter.icon",
    "QVSyncLocationFormatter.locationType",
    "QVSyncLocationsController.insertObjectInSyncLocationsAtIndex",
    "QVSyncLocationsController.insertObjectInSyncLocationsAtIndex (null)",
    "QVSyncLocationsController.indexOfObjectInSyncLocations",
    "QVSyncLocationsController.indexOfObjectInSyncLocations (absent)",
    "QVSyncLocationsController.removeObjectFromSyncLocationsAtIndex",
    "QVSyncLocationsController.removeObjectFromSyncLocationsAtIndex (outside)",
    "QVSyncLocationsController.save",
    "QVSyncPlugin.dispatcher",
    "QVSyncPlugin.databaseForUUID",
    "QVSyncPlugin.databaseForUUID (unknown)",
    "QVSyncPlugin.bookmarkURL",
    "QVSyncPlugin.bookmarkURL (other URLs)",
    "QVSyncPlugin.removeBookmarkForURL",
    "QVSyncPlugin.bookmarkDictionaryKeys",
    "QVSyncPlugin.isVolumeMountedAtPath (missing)",
    "QVDatabase.databases",
    "QVDatabase.databases (inbox)",
    "QVDatabase.UUID",
    "QVApplication.inbox",
};

/// Returns "KEY: reason" of each promise that the registered host breaks.
QStringList brokenPromises() {
    QStringList broken;
    for (const HostPromise &promise : HostCheck::promises()) {
        const HostFinding finding = HostCheck::find(promise);
        if (finding.result == HostFinding::Result::Broken) {
            broken.append(finding.key + ": " + finding.reason);
        }
    }
    return broken;
}

/// A future class that raises what no check expects.
struct RaisingFutures : PZFuture::Class {
    Future future() const override { throw std::runtime_error("no memory"); }
};

}  // namespace

class BrokenHostTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { brokenPromise.clear(); }

    void aHostThatBreaksNothingIsSound() {
        const BrokenHost host;
        QCOMPARE(brokenPromises(), QStringList());
    }

    void aBrokenPromiseIsTheOnlyOneReported_data() {
        QTest::addColumn<QString>("key");
        for (const char *key : BrokenPromises) {
            QTest::newRow(key) << QString::fromUtf8(key);
        }
    }
    void aBrokenPromiseIsTheOnlyOneReported() {
        QFETCH(const QString, key);
        brokenPromise = key;
        const BrokenHost host;
        const QStringList broken = brokenPromises();
        QVERIFY2(broken.size() == 1 && broken.first().startsWith(key + ": "),
                 qPrintable(broken.join('\n')));
    }

    void anExceptionIsReportedWithItsMessage() {
        RaisingFutures futures;
        const HostClassRegistration registration("PZFuture", &futures);
        QStringList reasons;
        for (const HostPromise &promise : HostCheck::promises()) {
            if (qstrcmp(promise.key, "PZFuture.future") == 0) {
                reasons.append(HostCheck::find(promise).reason);
            }
        }
        QCOMPARE(reasons, QStringList{"it raised an exception: no memory"});
    }
};

VELMORA_TEST(BrokenHostTest)
#include "BrokenHostTest.moc"
