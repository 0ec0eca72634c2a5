#pragma once

#include <QtCore/QtPlugin>
#include <optional>

#include "Application/Interface/NoteLibrary.h"

/// The root object of the sync plug-in, as the application loads it. It registers the host classes
/// until closeProfile() is called. Must be used on the main thread.
class INTERFACE_EXPORT SyncPlugIn {
public:
    virtual ~SyncPlugIn();

    /// Opens the profile in the folder `directory`. A folder that does not exist or is empty
    /// becomes a new profile with an inbox, two databases and a folder location. Must be called
    /// once, after NSApp() is set. A failure leaves the folder as it was; the error names what is
    /// wrong and where.
    virtual std::optional<Error> openProfile(const QString &directory) = 0;
    /// Changes the setting QVSyncPlugin::usesSandboxedAccess of the open profile.
    virtual std::optional<Error> setUsesSandboxedAccess(bool usesSandboxedAccess) = 0;
    /// Closes the profile and removes the host classes. Must be called before the application
    /// object is destroyed, after everything that shares the profile's objects has released them.
    virtual void closeProfile() = 0;
    /// Returns the databases of the open profile, owned by the plug-in; nullptr while no profile is
    /// open.
    virtual NoteLibrary *library() const = 0;
};

#define SyncPlugIn_iid "velmora.SyncPlugIn/2"
Q_DECLARE_INTERFACE(SyncPlugIn, SyncPlugIn_iid)
