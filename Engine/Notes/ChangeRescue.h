#pragma once

#include "Engine/Notes/NoteInspection.h"

/// Adds to a restored backup, or to a new profile, what only the damaged profile contains. The
/// contents of each change show whether it is intact, so that it does not matter what else is
/// damaged. Must be used on the main thread.
namespace ChangeRescue {

/// What run() has found.
struct Findings {
    /// The number of changes that were added.
    qsizetype added = 0;
    /// The changes that are damaged.
    QList<NoteInspection::DamagedOperation> damaged;
    /// Whether no error has prevented reading.
    bool isComplete = true;
};

/// Adds the current operations in the database file `damaged`, and the databases that contain them,
/// to the open profile `restored`, in one transaction. What is superseded there is superseded only
/// if a later operation of the note can be read, so that damage deletes no note. Former versions
/// are not added. Blocks for the disk, in proportion to the file. Errors are those of `restored`,
/// and ProfileDiskFull.
Expected<Findings> run(const QString &damaged, const ProfileDatabase &restored);

}  // namespace ChangeRescue
