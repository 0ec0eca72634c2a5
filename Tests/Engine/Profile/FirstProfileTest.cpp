#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QPluginLoader>
#include <climits>
#include <filesystem>

#include "Application/Interface/SyncPlugIn.h"
#include "Engine/Profile/ProfileFolder.h"
#include "Host/InboxUUID.h"
#include "Host/QVSyncDispatcher.h"
#include "Host/QVSyncLocationFormatter.h"
#include "Support/Failure.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

/// Creates folders in each other, below `path`. Returns the path of the last one, which is so long
/// that the path of what `ProfileFolder::SyncStoresName` names in it is too long for the system.
QString makeLongFolder(QString path) {
    const auto most = static_cast<qsizetype>(PATH_MAX) - 1 - ProfileFolder::SyncStoresName.size();
    int folder = open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY);
    while (folder >= 0 && path.size() < most) {
        const QByteArray name(std::min<qsizetype>(NAME_MAX, PATH_MAX - 3 - path.size()), 'x');
        mkdirat(folder, name.constData(), 0700);
        path += u'/' + QString::fromLatin1(name);
        const int next = openat(folder, name.constData(), O_RDONLY | O_DIRECTORY);
        close(folder);
        folder = next;
    }
    mkdirat(folder, QFile::encodeName(ProfileFolder::SyncStoresName).constData(), 0700);
    close(folder);
    return path;
}

}  // namespace

class FirstProfileTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aFolderThatCannotBeReadIsNotAUsedOne() {
        const QTemporaryDir parent;
        const QString folder = makeLongFolder(parent.path());
        const Expected<bool> isUnused = ProfileFolder::isUnusedSinceCreation(folder);
        // Qt does not remove what has such a path.
        std::filesystem::remove_all(parent.path().toStdString());
        QVERIFY(!isUnused);
        QCOMPARE(code(isUnused), EngineErrorCode::ProfileUnusable);
        QVERIFY(description(isUnused).contains(qt_error_string(ENAMETOOLONG)));
    }

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

    void theExamplesOfTwoComputersAreTheSame() {
        TestHost here(FirstContents::Welcome);
        const QTemporaryDir folder;
        SyncEngine there;
        QVERIFY(there.openProfile(folder.filePath(QStringLiteral("Profile"))));
        const QString URL = here.makeSyncStore(QStringLiteral("Shared"));
        const auto synchronizeAll = [&](SyncEngine &engine) {
            auto *locations = engine.plugin().locationsController();
            if (locations->countOfSyncLocations() == 1) {
                locations->insertObjectInSyncLocationsAtIndex(
                    engine.plugin().newLocation(Url::fromString(URL)), 1);
            }
            const auto location = locations->syncLocations().last();
            QVSyncStates states;
            for (const auto &database : engine.library()->knownDatabases()) {
                states.append(location->addStateForDatabaseWithUUID(
                    database->isInbox() ? InboxUUID : database->UUID(), database->name()));
                states.last()->setEnabled(true);
            }
            bool isDone = false;
            engine.plugin().dispatcher()->performSynchronizationsWithSynchronizationStates(
                states, [&] { isDone = true; });
            QTRY_VERIFY(isDone);
        };
        Note bookshelf = here.library().knownDatabases().at(1)->notes().value().first();
        bookshelf.text += QStringLiteral("\nEdited here");
        QVERIFY(here.library().knownDatabases().at(1)->saveNote(bookshelf));
        const Note garden = there.library()->knownDatabases().at(1)->notes().value().at(1);
        QVERIFY(there.library()->knownDatabases().at(1)->removeNote(garden));
        QVERIFY(there.library()->renameDatabase(there.library()->knownDatabases().at(2),
                                                QStringLiteral("Kitchen")));
        synchronizeAll(here.engine());
        synchronizeAll(there);
        synchronizeAll(here.engine());
        for (SyncEngine *engine : {&here.engine(), &there}) {
            const auto databases = engine->library()->knownDatabases();
            QCOMPARE(databases.size(), 3);
            QCOMPARE(databases.at(1)->notes().value(), QList{bookshelf});
            QCOMPARE(databases.at(2)->notes().value().size(), 3);
            QCOMPARE(databases.at(2)->name(), QStringLiteral("Kitchen"));
        }
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
        QVERIFY(plugIn->openProfile(directory.path(), ProfileUse::Run, FirstContents::Welcome));
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
