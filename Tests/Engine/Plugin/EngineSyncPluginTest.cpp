#include <sys/syscall.h>

#include <cerrno>

#include "Engine/Stores/Folder/MountedVolumes.h"
#include "Host/QVDailySchedule.h"
#include "Host/QVDirectConnectionServer.h"
#include "Host/QVHourlySchedule.h"
#include "Host/QVSyncDispatcher.h"
#include "Host/QVWeeklySchedule.h"
#include "Support/FailingSystemCall.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

Url folder(const char *path) {
    return Url::fileURL(QString::fromUtf8(path));
}

bool contain(const char *path) {
    static const QStringList mountPoints{QStringLiteral("/"),
                                         QStringLiteral("/run"),
                                         QStringLiteral("/home"),
                                         QStringLiteral("/media/ida/Stick"),
                                         QStringLiteral("/run/media/ida/Disk"),
                                         QStringLiteral("/mnt/nas")};
    return MountedVolumes::contain(QString::fromUtf8(path),
                                   [] { return Expected<QStringList>(mountPoints); })
        .value();
}

}  // namespace

class EngineSyncPluginTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void thePlugInAndItsPartsAlwaysAreTheSameObjects() {
        TestHost host;
        QVERIFY(QVSyncPlugin::isAvailable());
        QVSyncPlugin *plugin = QVSyncPlugin::plugin();
        QCOMPARE(plugin, &host.engine().plugin());
        QCOMPARE(QVSyncPlugin::plugin(), plugin);
        QVSyncLocationsController *locations = plugin->locationsController();
        QVSyncDispatcher *dispatcher = plugin->dispatcher();
        QVDirectConnectionServer *server = plugin->server();
        QVERIFY(locations);
        QVERIFY(dispatcher);
        QVERIFY(server);
        QCOMPARE(plugin->locationsController(), locations);
        QCOMPARE(plugin->dispatcher(), dispatcher);
        QCOMPARE(plugin->server(), server);
    }

    void keepsGrantsInTheOrderInWhichTheyWereGiven() {
        TestHost host;
        QVSyncPlugin *plugin = QVSyncPlugin::plugin();
        QVERIFY(plugin->bookmarkDictionaryKeys().isEmpty());
        plugin->bookmarkURL(folder("/b"));
        plugin->bookmarkURL(folder("/a b"));
        plugin->bookmarkURL(folder("/b/"));
        plugin->bookmarkURL(Url());
        plugin->bookmarkURL(Url::fromString(QStringLiteral("https://host.example/x")));
        const QStringList granted{QStringLiteral("/b"), QStringLiteral("/a b")};
        QCOMPARE(plugin->bookmarkDictionaryKeys(), granted);
        host.restart();
        plugin = QVSyncPlugin::plugin();
        QCOMPARE(plugin->bookmarkDictionaryKeys(), granted);
        plugin->removeBookmarkForURL(folder("/none"));
        plugin->removeBookmarkForURL(Url());
        plugin->removeBookmarkForURL(folder("/b"));
        QCOMPARE(plugin->bookmarkDictionaryKeys(), QStringList(QStringLiteral("/a b")));
        plugin->bookmarkURL(folder("/b"));
        QCOMPARE(plugin->bookmarkDictionaryKeys(),
                 QStringList({QStringLiteral("/a b"), QStringLiteral("/b")}));
    }

    void sandboxedAccessIsASettingOfTheProfile() {
        TestHost host;
        QVERIFY(!QVSyncPlugin::plugin()->usesSandboxedAccess());
        QVERIFY(host.engine().plugin().setUsesSandboxedAccess(true));
        host.restart();
        QVERIFY(QVSyncPlugin::plugin()->usesSandboxedAccess());
        QVERIFY(host.engine().plugin().setUsesSandboxedAccess(false));
        QVERIFY(!QVSyncPlugin::plugin()->usesSandboxedAccess());
    }

    void aPathOnTheSystemsOwnVolumesIsMounted() {
        QVERIFY(contain("/"));
        QVERIFY(contain("/home/ida/a.qvSyncStore"));
        QVERIFY(contain("/home/nobody/not/there.qvSyncStore"));
        QVERIFY(contain("/media"));
        QVERIFY(contain("/mediathek/a.qvSyncStore"));
        QVERIFY(contain(""));
    }

    void aPathOnARemovableVolumeIsMountedWhileTheVolumeIs() {
        QVERIFY(contain("/media/ida/Stick"));
        QVERIFY(contain("/media/ida/Stick/deep/a.qvSyncStore"));
        QVERIFY(contain("/run/media/ida/Disk/a.qvSyncStore/"));
        QVERIFY(contain("/mnt/nas/../nas/a.qvSyncStore"));
        QVERIFY(!contain("/media/ida/Other/a.qvSyncStore"));
        QVERIFY(!contain("/media/ida/Stick 2/a.qvSyncStore"));
        QVERIFY(!contain("/media/ida"));
        QVERIFY(!contain("/run/media/ida/Gone"));
        QVERIFY(!contain("/mnt/data/a.qvSyncStore"));
        QVERIFY(!contain("/home/../mnt/data"));
    }

    void aVolumeMountedOnTheWholeFolderHoldsAllBelow() {
        QVERIFY(MountedVolumes::contain(QStringLiteral("/mnt/a"), [] {
                    return Expected<QStringList>({QStringLiteral("/"), QStringLiteral("/mnt")});
                }).value());
    }

    void aListOfVolumesThatCannotBeReadIsAnError() {
        const Error error{.localizedDescription = QStringLiteral("unreadable")};
        const Expected<bool> isMounted = MountedVolumes::contain(
            QStringLiteral("/mnt/a"), [&]() -> Expected<QStringList> { return failure(error); });
        QVERIFY(!isMounted);
        QCOMPARE(isMounted.error(), error);
    }

    void aListOfVolumesThatCannotBeReadToItsEndIsAnError() {
        Expected<QStringList> mountPoints;
        runWithFailingSystemCall(SYS_read, EIO,
                                 [&] { mountPoints = MountedVolumes::mountPoints(); });
        QVERIFY(!mountPoints);
        QVERIFY(mountPoints.error().localizedDescription.startsWith(
            QStringLiteral("The list of mounted volumes cannot be read: ")));
    }

    void aListOfVolumesThatCannotBeReadIsLogged() {
        TestHost host;
        const QVSyncPlugin *plugin = QVSyncPlugin::plugin();
        bool isMounted = false;
        // The test waits meanwhile, as the main thread would.
        runWithFailingSystemCall(SYS_read, EIO, [&] {
            isMounted = plugin->isVolumeMountedAtPath(QStringLiteral("/media/nobody/Volume"));
        });
        QVERIFY(isMounted);
        const auto entries = host.application().logEntries();
        QCOMPARE(entries.size(), 1);
        QVERIFY(entries.first().info.contains(QStringLiteral("mounted volumes cannot be read")));
    }

    void aGrantThatCannotBeSavedIsPresented() {
        TestHost host;
        host.makeSavesFail();
        QVSyncPlugin::plugin()->bookmarkURL(folder("/a"));
        QCOMPARE(host.application().presentedErrors().size(), 1);
        QVERIFY(QVSyncPlugin::plugin()->bookmarkDictionaryKeys().isEmpty());
        host.letSavesPass();
    }

    void asksTheSystemWhatIsMounted() {
        TestHost host;
        const QVSyncPlugin *plugin = QVSyncPlugin::plugin();
        QVERIFY(MountedVolumes::mountPoints().value().contains(QStringLiteral("/")));
        QVERIFY(plugin->isVolumeMountedAtPath(host.directory()));
        QVERIFY(!plugin->isVolumeMountedAtPath(
            QStringLiteral("/media/nobody/No Such Volume/a.qvSyncStore")));
    }

    void theClassesMakeSchedulesWithTheirDefaults() {
        TestHost host;
        QVERIFY(!QVSyncSchedule::newSchedule()->isHourly());
        const auto &hourly = requiredHostClass<QVHourlySchedule::Class>();
        QCOMPARE(hourly.newHourlySchedule()->hourlyOffset(), 0U);
        QCOMPARE(hourly.initWithHourlyOffset(75)->hourlyOffset(), 15U);
        const auto &daily = requiredHostClass<QVDailySchedule::Class>();
        QCOMPARE(daily.initWithHourAndMinute({})->hourAndMinute(), (HourAndMinute{9, 0}));
        const auto &weekly = requiredHostClass<QVWeeklySchedule::Class>();
        QCOMPARE(weekly.initWithHourAndMinute(HourAndMinute{14, 37}, 62)->hourAndMinute(),
                 (HourAndMinute{14, 37}));
        QCOMPARE(weekly.initWithHourAndMinute({}, 62)->daysOfWeek(), 62U);
    }

    void theServersClassNamesDirectConnections() {
        TestHost host;
        QCOMPARE(QVDirectConnectionServer::URLScheme(), QStringLiteral("velmora"));
        QCOMPARE(QVDirectConnectionServer::defaultPort(), 8442);
        QCOMPARE(QVDirectConnectionServer::bonjourServiceType(), QStringLiteral("_velmora._tcp"));
        QCOMPARE(QVDirectConnectionClientAuthorizationServiceName(),
                 QStringLiteral("Velmora Direct Connection Clients"));
    }
};

VELMORA_TEST(EngineSyncPluginTest)
#include "EngineSyncPluginTest.moc"
