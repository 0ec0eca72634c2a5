#pragma once

#include <QtCore/QDateTime>

#include "Application/Interface/NoteDatabase.h"
#include "Application/Interface/NoteLibrary.h"
#include "Engine/Notes/Operation.h"

class ProfileDatabase;
class QSqlQuery;

/// The notes of one database that were replaced or deleted, here or by a synchronization. They stay
/// in the profile only, and are never sent to a store.
///
/// Must be used on the main thread; all functions block for the database. Functions that write must
/// be called within a transaction of the profile. Errors have the code ProfileNotWritten unless
/// stated otherwise.
class NoteHistory {
public:
    /// `profile` is not owned and must outlive this object. `database` is the id of the database's
    /// row.
    NoteHistory(const ProfileDatabase &profile, qint64 database);

    /// Returns the statement for add().
    Expected<QSqlQuery> prepareAddition() const;
    /// Adds the current operation `identifier`, which is about to be removed, by the statement that
    /// prepareAddition() has returned. `place` is the title of the location whose synchronization
    /// removes it, or empty if the user does. An operation that is not there, or is not one of a
    /// note, is ignored.
    Expected<void> add(QSqlQuery &addition, const OperationId &identifier,
                       const QString &place) const;

    /// See NoteDatabase::deletedNotes.
    Expected<QList<NoteVersion>> deletedNotes(const VersionsPart &part) const;
    /// Returns a part of the versions of the notes `UUIDs`, the last one to be replaced first.
    Expected<QList<NoteVersion>> versions(const QStringList &UUIDs, const VersionsPart &part) const;
    /// Returns whether a version of the same note has the title and the text of the current
    /// operation `identifier`.
    Expected<bool> contains(const OperationId &identifier) const;
    /// See NoteDatabase::noteOfVersion. Fails with the code InvalidDatabase if the version is no
    /// longer kept.
    Expected<Note> note(const NoteVersion &version) const;

    /// Returns how long the profile keeps versions. A setting that is not a valid number counts as
    /// no limit, so that nothing is removed because of it.
    static Expected<HistoryLimits> limits(const ProfileDatabase &profile);
    static Expected<void> setLimits(const ProfileDatabase &profile, const HistoryLimits &limits);
    /// Moves the time up to which versions have aged to `now`, but by one day at most, so that a
    /// clock that is ahead once removes nothing. Called at each start and twice a day.
    static Expected<void> advanceTime(const ProfileDatabase &profile, const QDateTime &now);
    /// Returns whether the versions of all databases exceed the limits at the time `now`, or at the
    /// one up to which they have aged if that is earlier. Writes nothing.
    static Expected<bool> exceedsLimits(const ProfileDatabase &profile, const QDateTime &now);
    /// Returns how many versions of all databases prune() would remove in all if the limits were
    /// `limits`. Writes nothing.
    static Expected<qint64> countBeyond(const ProfileDatabase &profile, const HistoryLimits &limits,
                                        const QDateTime &now);
    /// Removes versions of all databases for which exceedsLimits() returns true, oldest first, but
    /// not more at once than takes a small part of a second.
    static Expected<void> prune(const ProfileDatabase &profile, const QDateTime &now);

private:
    /// Returns a part of the versions for which the SQL expression `condition` is true.
    Expected<QList<NoteVersion>> read(const QString &condition, const QVariantList &values,
                                      const VersionsPart &part) const;

    const ProfileDatabase &m_profile;
    const qint64 m_database;
};
