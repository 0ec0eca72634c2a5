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

/// The entry to all sync services: one shared object, which outlives the pane. Main thread.
class HOST_EXPORT QVSyncPlugin : public QObject {
    Q_OBJECT
    Q_PROPERTY(QVSyncDispatcher *dispatcher READ dispatcher CONSTANT)
    Q_PROPERTY(bool usesSandboxedAccess READ usesSandboxedAccess)
public:
    /// Registered as "QVSyncPlugin".
    class HOST_EXPORT Class : public HostClass {
    public:
        /// Whether synchronization can run on this system.
        virtual bool isAvailable() const = 0;
        /// Never nullptr, and the same each time.
        virtual QVSyncPlugin *plugin() const = 0;
        /// The database of that UUID that is open or, where asked for, known to the profile; or
        /// nullptr.
        virtual std::shared_ptr<QVDatabase> databaseForUUID(
            const QString &UUID, bool lookingUpAllKnownDatabases) const = 0;
    };
    static bool isAvailable();
    static QVSyncPlugin *plugin();
    static std::shared_ptr<QVDatabase> databaseForUUID(const QString &UUID,
                                                       bool lookingUpAllKnownDatabases);

    ~QVSyncPlugin() override;

    /// These belong to the plug-in and are the same each time.
    virtual QVSyncLocationsController *locationsController() const = 0;
    virtual QVSyncDispatcher *dispatcher() const = 0;
    /// nullptr where the host has no server.
    virtual QVDirectConnectionServer *server() const = 0;
    /// The store of the databases on this computer; every local database is contained in its
    /// location.
    virtual std::shared_ptr<QVSyncStore> localStore() const = 0;

    /// Whether folders can be reached only after the person has granted it.
    virtual bool usesSandboxedAccess() const = 0;
    /// Keeps the grant for a folder, given by its file URL; a nil or other URL is ignored.
    virtual void bookmarkURL(const Url &URL) = 0;
    /// Withdraws it; harmless where there is none.
    virtual void removeBookmarkForURL(const Url &URL) = 0;
    /// The paths of the folders granted, in the order in which they were.
    virtual QStringList bookmarkDictionaryKeys() const = 0;

    /// Whether the volume that holds `path` is mounted.
    virtual bool isVolumeMountedAtPath(const QString &path) const = 0;
};
