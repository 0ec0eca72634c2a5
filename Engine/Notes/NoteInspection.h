#pragma once

#include <QtCore/QMap>
#include <atomic>

#include "Engine/Notes/NoteLog.h"

/// Finds notes in a profile that are not what was saved, for example because a bit of its file has
/// changed, or that it has lost. Thread-safe.
namespace NoteInspection {

/// The damaged operations by the id of their database's row.
using Damage = QMap<qint64, QList<NoteLog::Damage>>;

/// What an inspection has found.
struct Findings {
    Damage damaged;
    /// The number of lost operations, see LostOperations.
    qsizetype lost = 0;
};

/// Checks all notes in the database file at `path`, which may be a copy of a profile. `damaged`
/// only has the databases with damaged notes. Reads the whole file, so it may block for some
/// seconds; fails soon after `isCancelled` has become true. Errors have the codes of
/// ReadOnlyConnection, ProfileNotWritten or Cancelled.
Expected<Findings> check(const QString &path, const std::atomic_bool &isCancelled);

/// Returns the titles of the damaged notes as text for the user: the first ones, each in quotation
/// marks and cut if it is long, and the number of the others. `name`, the name of the database,
/// stands for its own operations.
QString titles(const QList<NoteLog::Damage> &damaged, const QString &name);
/// Returns the titles of all damaged notes and the number of lost changes as text for the user, or
/// an empty string if nothing was found.
QString text(const Findings &findings);

}  // namespace NoteInspection
