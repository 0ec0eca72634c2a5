#pragma once

#include <QtCore/QSet>

#include "Engine/Notes/Operation.h"
#include "Platform/Foundation/Expected.h"

class ProfileDatabase;

/// The operations of one database that the user keeps although records of a store supersede them:
/// the answer to a question about a removal, in the profile until it is carried out. An operation
/// that was renewed has another identifier, so that an answer which is not carried out any more
/// keeps a note at most once.
///
/// Must be used on the main thread; all() also on a thread with a ProfileReader. All errors have
/// the code ProfileNotWritten, or Cancelled if the ProfileReader is cancelled.
class KeptOperations {
public:
    /// `profile` is not owned and must outlive this object. `store` identifies the store in the
    /// profile; `database` is the id of the database's row.
    KeptOperations(const ProfileDatabase &profile, const QString &store, qint64 database);

    /// Returns what is remembered of the database, with regard to every store: another one may have
    /// the same records.
    Expected<QSet<OperationId>> all() const;
    /// Remembers only `operations` with regard to this store. Must be called within a transaction
    /// of the profile.
    Expected<void> remember(const QList<OperationId> &operations) const;

    /// Removes what is remembered for the store `store` and all databases. Must be called within a
    /// transaction of the profile.
    static Expected<void> forgetStore(const ProfileDatabase &profile, const QString &store);
    /// The same for the database `database` and all stores.
    static Expected<void> forgetDatabase(const ProfileDatabase &profile, qint64 database);

private:
    const ProfileDatabase &m_profile;
    const qint64 m_database;
    /// The key of the setting.
    const QString m_key;
};
