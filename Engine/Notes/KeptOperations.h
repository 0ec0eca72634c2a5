#pragma once

#include <QtCore/QSet>

#include "Engine/Notes/Operation.h"
#include "Platform/Foundation/Expected.h"

class ProfileDatabase;

/// The operations of one database that the user keeps although records of a store supersede them:
/// the answers to questions about removals, in the profile until they are carried out. Each store
/// may have the same records, so that a session with any of them carries them out. An operation
/// that was renewed has another identifier, so that an answer which is not carried out any more
/// keeps a note at most once.
///
/// Must be used on the main thread; all() also on a thread with a ProfileReader. All errors have
/// the code ProfileNotWritten, or Cancelled if the ProfileReader is cancelled.
class KeptOperations {
public:
    /// `profile` is not owned and must outlive this object. `database` is the id of the database's
    /// row.
    KeptOperations(const ProfileDatabase &profile, qint64 database);

    /// Returns what is remembered.
    Expected<QSet<OperationId>> all() const;
    /// Remembers `operations` instead of those of `previous`. Others that are remembered stay: a
    /// session with another store may have added them. Must be called within a transaction of the
    /// profile.
    Expected<void> replace(const QSet<OperationId> &previous,
                           const QSet<OperationId> &operations) const;

    /// Removes what is remembered of the database `database`. Must be called within a transaction
    /// of the profile.
    static Expected<void> forgetDatabase(const ProfileDatabase &profile, qint64 database);

private:
    const ProfileDatabase &m_profile;
    /// The key of the setting. That of an earlier version begins with it, and ends with a store.
    const QString m_key;
};
