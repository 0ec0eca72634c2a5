#pragma once

#include <QtCore/QtPlugin>
#include <optional>

#include "Host/NoteLibrary.h"

/// The root object of the sync plug-in, as the application loads it. It registers the host classes
/// for as long as it lives. Main thread.
class SyncPlugIn {
public:
    virtual ~SyncPlugIn() = default;

    /// Opens the profile in the folder `directory`, which is made and filled with a first inbox,
    /// two databases and a folder location if it is not there or empty. Called once, after NSApp is
    /// set. An error says what is wrong and where, and leaves the folder as it was.
    virtual std::optional<Error> openProfile(const QString &directory) = 0;
    /// Changes the open profile's setting, see QVSyncPlugin::usesSandboxedAccess.
    virtual std::optional<Error> setUsesSandboxedAccess(bool usesSandboxedAccess) = 0;
    /// Closes it; the host classes are gone then, and so must be everything that shares their
    /// objects. Called before the application object goes.
    virtual void closeProfile() = 0;
    /// Belongs to the plug-in; nullptr while no profile is open.
    virtual NoteLibrary *library() const = 0;
};

#define SyncPlugIn_iid "velmora.SyncPlugIn/2"
Q_DECLARE_INTERFACE(SyncPlugIn, SyncPlugIn_iid)
