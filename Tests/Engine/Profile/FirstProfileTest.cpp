#include <QtCore/QPluginLoader>

#include "Application/Interface/SyncPlugIn.h"
#include "Host/InboxUUID.h"
#include "Host/QVSyncDispatcher.h"
#include "Host/QVSyncLocationFormatter.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

class FirstProfileTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void holdsTheInboxAndTwoDatabasesWithNotes() {
        TestHost host(FirstContents::Welcome);
        QStringList names;
        for (const auto &database : host.library().knownDatabases()) {
            names.append(database->name());
            QVERIFY(database->isOpen());
            QCOMPARE(database->isInbox(), database == host.inbox());
            QCOMPARE(database->notes().value().isEmpty(), database->isInbox());
        }
        QCOMPARE(names, QStringList({QStringLiteral("Inbox"), QStringLiteral("Projects"),
                                     QStringLiteral("Recipes")}));
    }

    void holdsASyncStoreInItsFolderForOneDatabaseThatNeverSynchronized() {
        TestHost host(FirstContents::Welcome);
        QCOMPARE(host.locations().countOfSyncLocations(), 1);
        const auto location = host.locations().syncLocations().first();
        const QDir package(location->URL().path());
        QCOMPARE(package.path(),
                 host.directory() + QStringLiteral("/Sync Stores/Home.qvSyncStore"));
        QCOMPARE(package.entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList({QStringLiteral("databases"), QStringLiteral("transactions")}));
        QCOMPARE(location->synchronizationStates().size(), 1);
        const auto state = location->synchronizationStates().first();
        const auto projects = host.library().knownDatabases().at(1);
        QCOMPARE(state->databaseUUID(), projects->UUID());
        QCOMPARE(state->databaseName(), projects->name());
        QVERIFY(state->isEnabled());
        QVERIFY(!state->lastSynced().isValid());
        QVERIFY(!state->schedule());
    }

    void containsOnlyTheInboxIfRequested() {
        TestHost host;
        QCOMPARE(host.library().knownDatabases().size(), 1);
        QVERIFY(host.inbox()->isInbox());
        QVERIFY(host.inbox()->UUID() != InboxUUID);
        QCOMPARE(host.locations().countOfSyncLocations(), 0);
    }

    void isTheSameAfterARestart() {
        TestHost host(FirstContents::Welcome);
        const QString recipes = host.library().knownDatabases().at(2)->UUID();
        const QList<Note> notes = host.library().knownDatabases().at(2)->notes().value();
        host.restart();
        QCOMPARE(host.library().knownDatabases().size(), 3);
        QCOMPARE(host.library().knownDatabases().at(2)->UUID(), recipes);
        QCOMPARE(host.library().knownDatabases().at(2)->notes(), notes);
        QCOMPARE(host.locations().syncLocations().first()->synchronizationStates().size(), 1);
    }

    void isOpenedByThePlugInWhichBringsAllHostClasses() {
        const QStringList classes{QStringLiteral("PZFuture"),
                                  QStringLiteral("QVDailySchedule"),
                                  QStringLiteral("QVDatabase"),
                                  QStringLiteral("QVDirectConnectionServer"),
                                  QStringLiteral("QVHourlySchedule"),
                                  QStringLiteral("QVSyncLocation"),
                                  QStringLiteral("QVSyncLocationFormatter"),
                                  QStringLiteral("QVSyncPlugin"),
                                  QStringLiteral("QVSyncSchedule"),
                                  QStringLiteral("QVWeeklySchedule")};
        const QTemporaryDir directory;
        TestApplication application;
        QPluginLoader loader(QStringLiteral(VELMORA_SYNC_PLUG_IN));
        auto *plugIn = qobject_cast<SyncPlugIn *>(loader.instance());
        QVERIFY2(plugIn, qPrintable(loader.errorString()));
        for (const QString &name : classes) {
            QVERIFY2(NSClassFromString(name), qPrintable(name));
        }
        QVERIFY(!plugIn->library());
        QVERIFY(plugIn->openProfile(directory.path(), ProfileUse::Run));
        QCOMPARE(plugIn->library()->knownDatabases().size(), 3);
        QCOMPARE(QVDatabase::databases().size(), 3);
        QVERIFY(!QVSyncLocationFormatter::formatterForLocationWithURL(Url())->icon().isNull());
        QVERIFY(loader.unload());
        for (const QString &name : classes) {
            QVERIFY2(!NSClassFromString(name), qPrintable(name));
        }
    }
};

VELMORA_TEST(FirstProfileTest)
#include "FirstProfileTest.moc"
