#pragma once

#include <QtCore/QSet>

#include "Engine/Notes/Operation.h"
#include "Platform/Foundation/Expected.h"

class ProfileDatabase;
class QSqlQuery;

/// The operations of one database that the profile has lost, for example because a page of its file
/// is that of an earlier state: known transactions contain them, but they are neither current nor
/// superseded. Those of transactions that are no longer known are remembered by store, so that they
/// can be reported until they return.
///
/// Must be used on the main thread; functions that read also on a thread with a ProfileReader. All
/// errors have the code ProfileNotWritten, or Cancelled if the ProfileReader is cancelled.
class LostOperations {
public:
    /// `profile` is not owned and must outlive this object. `store` identifies the store in the
    /// profile; `database` is the id of the database's row.
    LostOperations(const ProfileDatabase &profile, const QString &store, qint64 database);

    /// Returns those of `operations` that are neither current nor superseded, in time in proportion
    /// to their number. Of few, those are left out that differ in one bit from one that is: the bit
    /// has flipped where they were recorded, since digests do not resemble each other.
    Expected<QSet<OperationId>> among(const QSet<OperationId> &operations) const;

    /// Returns what remember() was called with last. Some may have returned since.
    Expected<QSet<OperationId>> remembered() const;
    /// Remembers only `operations`. Must be called within a transaction of the profile.
    Expected<void> remember(const QSet<OperationId> &operations) const;

    /// Returns all that are lost of the database `database`, with regard to every store. O(n).
    static Expected<QSet<OperationId>> all(const ProfileDatabase &profile, qint64 database);
    /// Removes what is remembered for the store `store` and all databases. Must be called within a
    /// transaction of the profile.
    static Expected<void> forgetStore(const ProfileDatabase &profile, const QString &store);
    /// The same for the database `database` and all stores.
    static Expected<void> forgetDatabase(const ProfileDatabase &profile, qint64 database);

private:
    /// Returns whether the operation is current or superseded. `query` takes the database and the
    /// identifier, twice.
    Expected<bool> isThere(QSqlQuery &query, const OperationId &identifier) const;
    /// Returns those of `lost` that do not differ in one bit from one that is there.
    Expected<QSet<OperationId>> withoutDamaged(QSqlQuery &query,
                                               const QSet<OperationId> &lost) const;

    const ProfileDatabase &m_profile;
    const qint64 m_database;
    /// Of the setting.
    const QString m_key;
};
