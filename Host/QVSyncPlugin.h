#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <memory>

#include "Host/ClassRegistry.h"
#include "Host/QVSyncDispatcher.h"
#include "Platform/Foundation/Url.h"

class QVDatabase;
class QVDirectConnectionServer;
class QVSyncLocationsController;
class QVSyncStore;

/// The entry point to all sync services. A host has one instance, which outlives the pane. Must be
/// used on the main thread.
class HOST_EXPORT QVSyncPlugin : public QObject {
    Q_OBJECT
    Q_PROPERTY(QVSyncDispatcher *dispatcher READ dispatcher CONSTANT)
    Q_PROPERTY(bool usesSandboxedAccess READ usesSandboxedAccess)
public:
    /// The class object, see HostClass.
    class HOST_EXPORT Class : public HostClass {
    public:
        /// The name under which a host registers the class object.
        static constexpr QLatin1StringView Name{"QVSyncPlugin"};
        /// Implements QVSyncPlugin::isAvailable().
        virtual bool isAvailable() const = 0;
        /// Implements QVSyncPlugin::plugin().
        virtual QVSyncPlugin *plugin() const = 0;
        /// Implements QVSyncPlugin::databaseForUUID().
        virtual std::shared_ptr<QVDatabase> databaseForUUID(
            const QString &UUID, bool lookingUpAllKnownDatabases) const = 0;
    };
    /// Returns whether synchronization can run on this system. Raises an AssertionFailure if the
    /// host has no class "QVSyncPlugin".
    static bool isAvailable();
    /// Returns the plug-in. Never null, and the same object in every call. Raises an
    /// AssertionFailure if the host has no class "QVSyncPlugin".
    static QVSyncPlugin *plugin();
    /// Returns the database with this UUID on this computer, open or closed, or nullptr if there is
    /// none. If `lookingUpAllKnownDatabases` is true, for which the pane does not ask, a host may
    /// also return one that is known only from the locations, with the name last known there. An
    /// empty or unknown UUID gives nullptr. O(number of locations) at most. Raises an
    /// AssertionFailure if the host has no class "QVSyncPlugin".
    static std::shared_ptr<QVDatabase> databaseForUUID(const QString &UUID,
                                                       bool lookingUpAllKnownDatabases);

    ~QVSyncPlugin() override;

    /// Returns the list of locations. Owned by the plug-in, never null, the same in every call.
    virtual QVSyncLocationsController *locationsController() const = 0;
    /// Returns the dispatcher. Owned by the plug-in, never null, the same in every call.
    virtual QVSyncDispatcher *dispatcher() const = 0;
    /// Returns the server for direct connections, or nullptr if the host has none. Owned by the
    /// plug-in, the same in every call.
    virtual QVDirectConnectionServer *server() const = 0;
    /// Returns the store of the databases on this computer. Never null; shared ownership. Its
    /// location, which is all that the pane uses, is the same object in every call, and not in the
    /// list of locations. A host may list no database in it; one that does lists every open one.
    virtual std::shared_ptr<QVSyncStore> localStore() const = 0;

    /// Returns whether the host can use a folder only after the user has granted access to it.
    virtual bool usesSandboxedAccess() const = 0;
    /// Saves a grant for the folder with this `file` URL. Idempotent. Any other URL, also nil, is
    /// ignored. If the grant cannot be saved, it is not in bookmarkDictionaryKeys() afterwards. The
    /// host presents an error of that. Blocks for the time of a disk write.
    virtual void bookmarkURL(const Url &URL) = 0;
    /// Withdraws the grant for the folder. Has no effect if there is none. If that cannot be saved,
    /// the grant stays in effect, and the host presents an error. Blocks for the time of a disk
    /// write.
    virtual void removeBookmarkForURL(const Url &URL) = 0;
    /// Returns the paths of the granted folders in the order in which they were granted.
    virtual QStringList bookmarkDictionaryKeys() const = 0;

    /// Returns whether the removable volume or network share that contains `path` is mounted; true
    /// for a path that is on no such volume. `path` need not exist. True also if the system does
    /// not say which volumes are mounted. Does not block, even if a volume does not respond.
    virtual bool isVolumeMountedAtPath(const QString &path) const = 0;
};
