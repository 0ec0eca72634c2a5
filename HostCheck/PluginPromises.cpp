#include "HostCheck/PluginPromises.h"

#include <QtCore/QSet>

#include "Host/QVApplication.h"
#include "Host/QVDirectConnectionServer.h"
#include "Host/QVSyncStore.h"
#include "HostCheck/Checking.h"

using namespace Checking;

namespace PluginPromises {
namespace {

constexpr char Plugin[] = "Host/QVSyncPlugin.h";
constexpr char Database[] = "Host/QVDatabase.h";

QVSyncPlugin &plugin() {
    return *QVSyncPlugin::plugin();
}

void pluginIsOneObject() {
    require(QVSyncPlugin::plugin() != nullptr, "there is no plug-in");
    require(QVSyncPlugin::plugin() == QVSyncPlugin::plugin(), "each call returns another object");
}

void listIsOneObject() {
    require(&list() == plugin().locationsController(), "each call returns another object");
}

void dispatcherIsOneObject() {
    require(&dispatcher() == plugin().dispatcher(), "each call returns another object");
}

void serverIsOneObject() {
    const QVDirectConnectionServer *server = plugin().server();
    requireOffer(server != nullptr);
    require(server == plugin().server(), "each call returns another object");
}

void localStoreExists() {
    require(plugin().localStore() != nullptr, "it is null");
}

std::shared_ptr<QVSyncLocation> localLocation() {
    const auto store = plugin().localStore();
    requireOffer(store != nullptr);
    return store->location();
}

void localLocationIsOneObject() {
    require(localLocation() == localLocation(), "each call returns the store of another location");
    require(!list().syncLocations().contains(localLocation()), "its location is in the list");
}

void unknownDatabasesAreNull() {
    for (const bool isLookingUpAll : {false, true}) {
        require(!QVSyncPlugin::databaseForUUID(QString(), isLookingUpAll),
                "an empty UUID gives a database");
        require(!QVSyncPlugin::databaseForUUID(newUUID(), isLookingUpAll),
                "an unknown UUID gives a database");
    }
}

void openDatabasesAreFound() {
    for (const auto &database : openDatabases()) {
        const auto found = QVSyncPlugin::databaseForUUID(database->UUID(), false);
        require(found && found->UUID() == database->UUID(), "an open database is not found");
    }
}

/// A new folder that is granted, which the promises about grants begin with.
struct Grant {
    Grant() {
        plugin().bookmarkURL(URL);
        requireOffer(plugin().usesSandboxedAccess() ||
                     !plugin().bookmarkDictionaryKeys().isEmpty());
    }
    ~Grant() { plugin().removeBookmarkForURL(URL); }
    Grant(const Grant &) = delete;
    Grant &operator=(const Grant &) = delete;
    qsizetype count() const { return plugin().bookmarkDictionaryKeys().count(URL.path()); }

    const QTemporaryDir folder;
    const Url URL = Url::fileURL(folder.path());
};

void grantIsSavedOnce() {
    const Grant grant;
    require(grant.count() > 0, "the folder is not granted");
    plugin().bookmarkURL(grant.URL);
    require(grant.count() == 1, "a folder that is granted again is listed twice");
}

void otherURLsAreNotGranted() {
    const Grant grant;
    const QStringList before = plugin().bookmarkDictionaryKeys();
    plugin().bookmarkURL(Url());
    plugin().bookmarkURL(Url::fromString(QStringLiteral("https://localhost/folder")));
    require(plugin().bookmarkDictionaryKeys() == before, "a URL that is no folder is granted");
}

void grantIsWithdrawn() {
    const Grant grant;
    plugin().removeBookmarkForURL(grant.URL);
    require(grant.count() == 0, "the folder is still granted");
    const QStringList before = plugin().bookmarkDictionaryKeys();
    plugin().removeBookmarkForURL(grant.URL);
    plugin().removeBookmarkForURL(Url());
    require(plugin().bookmarkDictionaryKeys() == before, "withdrawing nothing changes the grants");
}

void grantsKeepTheirOrder() {
    const Grant first;
    const Grant second;
    const Grant third;
    const QStringList keys = plugin().bookmarkDictionaryKeys();
    const qsizetype index = keys.indexOf(first.URL.path());
    require(index >= 0 && keys.mid(index) ==
                              QStringList{first.URL.path(), second.URL.path(), third.URL.path()},
            "the folders are not in the order in which they were granted");
}

void plainFoldersAreMounted() {
    const QTemporaryDir folder;
    require(plugin().isVolumeMountedAtPath(QStringLiteral("/")), "the root is not mounted");
    require(plugin().isVolumeMountedAtPath(folder.path()), "a plain folder is not mounted");
}

void missingFoldersAreMounted() {
    const QTemporaryDir folder;
    require(plugin().isVolumeMountedAtPath(folder.filePath(newUUID())),
            "a folder that does not exist, on no removable volume, is not mounted");
}

void databasesAreNotNull() {
    classObject<QVDatabase::Class>();
    require(!QVDatabase::databases().contains(nullptr), "an entry is null");
}

QStringList openUUIDs() {
    QStringList UUIDs;
    for (const auto &database : openDatabases()) {
        UUIDs.append(database->UUID());
    }
    return UUIDs;
}

void databasesKeepTheirOrder() {
    require(openUUIDs() == openUUIDs(), "two calls in succession return other databases");
}

void inboxIsOpen() {
    const auto inbox = NSApp()->inbox();
    requireOffer(inbox != nullptr);
    require(openUUIDs().contains(inbox->UUID()), "the inbox is not among them");
}

void UUIDsAreConstant() {
    QSet<QString> UUIDs;
    for (const auto &database : openDatabases()) {
        require(!database->UUID().isEmpty(), "a UUID is empty");
        require(database->UUID() == database->UUID(), "a UUID is not constant");
        require(!UUIDs.contains(database->UUID()), "two open databases have the same UUID");
        UUIDs.insert(database->UUID());
    }
}

void inboxExists() {
    require(NSApp() != nullptr, "there is no application object");
    require(NSApp()->inbox() != nullptr, "there is no inbox");
}

constexpr char Opened[] =
    "Returns the open databases, including the inbox, in the order in which the host shows them.";

constexpr HostPromise Promises[] = {
    {"QVSyncPlugin.plugin", Plugin,
     "Returns the plug-in. Never null, and the same object in every call.", &pluginIsOneObject},
    {"QVSyncPlugin.locationsController", Plugin,
     "Returns the list of locations. Owned by the plug-in, never null, the same in every call.",
     &listIsOneObject},
    {"QVSyncPlugin.dispatcher", Plugin,
     "Returns the dispatcher. Owned by the plug-in, never null, the same in every call.",
     &dispatcherIsOneObject},
    {"QVSyncPlugin.server", Plugin,
     "Returns the server for direct connections, or nullptr if the host has none. Owned by the "
     "plug-in, the same in every call.",
     &serverIsOneObject},
    {"QVSyncPlugin.localStore", Plugin, "Never null; shared ownership.", &localStoreExists},
    {"QVSyncPlugin.localStore (location)", Plugin,
     "is the same object in every call, and not in the list of locations.",
     &localLocationIsOneObject},
    {"QVSyncPlugin.databaseForUUID", Plugin,
     "Returns the database with this UUID on this computer, open or closed, or nullptr if there is "
     "none.",
     &openDatabasesAreFound},
    {"QVSyncPlugin.databaseForUUID (unknown)", Plugin, "An empty or unknown UUID gives nullptr.",
     &unknownDatabasesAreNull},
    {"QVSyncPlugin.bookmarkURL", Plugin,
     "Saves a grant for the folder with this `file` URL. Idempotent.", &grantIsSavedOnce},
    {"QVSyncPlugin.bookmarkURL (other URLs)", Plugin, "Any other URL, also nil, is ignored.",
     &otherURLsAreNotGranted},
    {"QVSyncPlugin.removeBookmarkForURL", Plugin,
     "Withdraws the grant for the folder. Has no effect if there is none.", &grantIsWithdrawn},
    {"QVSyncPlugin.bookmarkDictionaryKeys", Plugin,
     "Returns the paths of the granted folders in the order in which they were granted.",
     &grantsKeepTheirOrder},
    {"QVSyncPlugin.isVolumeMountedAtPath", Plugin, "true for a path that is on no such volume.",
     &plainFoldersAreMounted},
    {"QVSyncPlugin.isVolumeMountedAtPath (missing)", Plugin, "`path` need not exist.",
     &missingFoldersAreMounted},
    {"QVDatabase.databases", Database, "No entry is null.", &databasesAreNotNull},
    {"QVDatabase.databases (inbox)", Database, Opened, &inboxIsOpen},
    {"QVDatabase.databases (order)", Database, Opened, &databasesKeepTheirOrder},
    {"QVDatabase.UUID", Database,
     "Never empty, constant, and compared as text: two objects with equal identifiers represent "
     "the same database.",
     &UUIDsAreConstant},
    {"QVApplication.inbox", "Host/QVApplication.h",
     "Returns the inbox of the profile; nullptr only while no profile is open.", &inboxExists},
};

}  // namespace

QList<HostPromise> all() {
    return {std::begin(Promises), std::end(Promises)};
}

}  // namespace PluginPromises
