#pragma once

#include <QtCore/QDate>
#include <QtCore/QString>
#include <optional>

#include "Platform/Foundation/Error.h"
#include "Platform/Foundation/Expected.h"

class SyncPlugIn;

/// The window that a damaged or unreadable profile opens instead of the main window. Must be used
/// on the main thread.
namespace DamagedProfileDialog {

enum class Choice { Restore, Begin, Quit };

/// Shows `text`, and what can be done with the profile in the folder `directory`, depending on the
/// date of the copy that can be restored, if there is one or it is known. Runs a nested event loop
/// until the user decides.
Choice ask(const QString &directory, const QString &text,
           const Expected<std::optional<QDate>> &found);

/// Shows `error`, for which SyncPlugIn::canReplaceProfile() returns true for the folder
/// `directory`, and offers to restore its newest backup, to start from the sync locations, and to
/// show the folder. Runs a nested event loop; looking for the backup, each time the dialog is
/// shown, and replacing the profile block for the disk. If replacing fails, the dialog is shown
/// again with that error. Returns true if the profile was replaced, so that it can be opened again,
/// and false if the user quits or closes the dialog, which changes nothing. `sync` must have no
/// open profile.
bool run(SyncPlugIn &sync, const QString &directory, const Error &error);

}  // namespace DamagedProfileDialog
