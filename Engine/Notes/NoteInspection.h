#pragma once

#include <QtCore/QMap>
#include <atomic>

#include "Engine/Notes/NoteLog.h"

/// Finds notes in a profile that are not what was saved, for example because a bit of its file has
/// changed. Thread-safe.
namespace NoteInspection {

/// The damaged operations by the id of their database's row.
using Damage = QMap<qint64, QList<NoteLog::Damage>>;

/// Checks all notes in the database file at `path`, which may be a copy of a profile. The result
/// only has the databases with damaged notes. Reads the whole file, so it may block for some
/// seconds; fails soon after `isCancelled` has become true. Errors have the codes of
/// ReadOnlyConnection, ProfileNotWritten or Cancelled.
Expected<Damage> check(const QString &path, const std::atomic_bool &isCancelled);

/// Returns the titles of the damaged notes as text for the user: the first ones, each in quotation
/// marks and cut if it is long, and the number of the others. `name`, the name of the database,
/// stands for its own operations.
QString titles(const QList<NoteLog::Damage> &damaged, const QString &name);

}  // namespace NoteInspection
