#pragma once

#include <QtCore/QMap>
#include <atomic>

#include "Engine/Notes/Operation.h"
#include "Platform/Foundation/Expected.h"

class ProfileDatabase;

/// Finds notes in a profile that are not what was saved, for example because a bit of its file has
/// changed, or that it has lost. Thread-safe except damagedOperations().
namespace NoteInspection {

/// A current operation that is not what was saved.
struct DamagedOperation {
    OperationId id;
    /// The title of the note, which may be damaged itself; empty for the name of the database.
    QString title;
    /// Whether the identifier is not the digest of the contents. Otherwise the operation is
    /// superseded.
    bool isOfContents = false;
};

/// Returns all damaged operations of the database whose row has the id `database`. Reads all
/// operations, so it may block for some seconds. Must be called on the main thread, or with a
/// ProfileReader. Errors have the code ProfileNotWritten, or Cancelled if a reader is cancelled.
Expected<QList<DamagedOperation>> damagedOperations(const ProfileDatabase &profile,
                                                    qint64 database);

/// The damaged operations by the id of their database's row.
using Damage = QMap<qint64, QList<DamagedOperation>>;

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
QString titles(const QList<DamagedOperation> &damaged, const QString &name);
/// Returns the titles of all damaged notes and the number of lost changes as text for the user, or
/// an empty string if nothing was found.
QString text(const Findings &findings);

}  // namespace NoteInspection
