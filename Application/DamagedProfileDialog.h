#pragma once

#include <QtCore/QString>

#include "Platform/Foundation/Error.h"

class SyncPlugIn;

/// The window that a damaged or unreadable profile opens instead of the main window. Must be used
/// on the main thread.
namespace DamagedProfileDialog {

/// Shows `error`, for which SyncPlugIn::canReplaceProfile() returns true for the folder
/// `directory`, and offers to restore its newest backup, to start from the sync locations, and to
/// show the folder. Runs a nested event loop; looking for the backup, each time the dialog is
/// shown, and replacing the profile block for the disk. If replacing fails, the dialog is shown
/// again with that error. Returns true if the profile was replaced, so that it can be opened again,
/// and false if the user quits or closes the dialog, which changes nothing. `sync` must have no
/// open profile.
bool run(SyncPlugIn &sync, const QString &directory, const Error &error);

}  // namespace DamagedProfileDialog
