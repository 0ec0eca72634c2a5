#pragma once

#include <functional>
#include <optional>

#include "Engine/Profile/ProfileBackups.h"

/// Repairs or replaces the database of a profile that is damaged or missing. Damaged files are
/// moved into a folder "Damaged Profiles" with the date in its name, and never deleted. Must be
/// used on the main thread; the functions block for the disk.
///
/// A failure leaves the profile as it was: its files are moved together or not at all, unless the
/// error states where they are. If the process ends while they are moved, the profile counts as
/// missing, and the functions can be called again.
/// Errors have the code ProfileInUse if another process uses the profile, and otherwise
/// BackupFailed, or that of ProfileLock::acquire(), ProfileBackups::verify() or the failed
/// callback.
namespace ProfileRecovery {

/// The name of the folder within the profile folder.
inline const QString FolderName = QStringLiteral("Damaged Profiles");

/// Returns whether the profile folder `directory` contains traces of a profile that can be
/// recovered: backups, damaged profiles, or the log of a missing database. The error has the code
/// ProfileUnusable.
Expected<bool> hasTraces(const QString &directory);

/// Adds to the closed profile in the folder `folder`, which is to replace the damaged one, what can
/// be read from the copy `damaged` of the damaged database. An error prevents the recovery.
using Amendment = std::function<Expected<void>(const QString &folder, const QString &damaged)>;
/// Adds nothing.
inline Expected<void> addNothing(const QString & /*folder*/, const QString & /*damaged*/) {
    return {};
}

/// Replaces the database by the newest backup that is sound, to which `amend` adds what it lacks.
Expected<void> restoreBackup(const QString &directory, const Amendment &amend = addNothing);

/// What begin() has found.
struct Beginning {
    /// Whether the locations were copied.
    bool hasLocations = false;
    /// Why the backups could not be searched for the locations; empty unless that failed.
    std::optional<Error> backupFailure;
};
/// Replaces the database by a new one. `create` makes a profile in the empty folder that it is
/// given and closes it. The locations and their states are copied from the damaged profile or, if
/// they cannot be read, from its newest sound backup; `amend` adds other things. Backups that
/// cannot be read do not prevent that.
Expected<Beginning> begin(const QString &directory,
                          const std::function<Expected<void>(const QString &folder)> &create,
                          const Amendment &amend = addNothing);

/// Rebuilds the indexes of the notes and of their versions, in one transaction, if this makes the
/// damaged profile sound, which is tried with a copy. Returns whether they were rebuilt. The notes
/// themselves may still be damaged, see NoteInspection. Other indexes are not rebuilt, because
/// nothing shows whether they or their tables are damaged. The caller must have locked the profile,
/// and no connection be open.
Expected<bool> rebuildIndexes(const QString &directory);

/// Removes the copies that an interrupted call of the functions above has left in the folder of a
/// profile that is locked and sound. Their originals are the backups and the damaged profiles.
/// Fails if some remain, which harms nothing but takes up space.
Expected<void> removeUnfinished(const QString &directory);

}  // namespace ProfileRecovery
