#pragma once

#include <QtCore/QHash>
#include <QtCore/QSet>

#include "Engine/Notes/Transaction.h"
#include "Platform/Foundation/Expected.h"

class ProfileDatabase;

/// Determines which notes of a database disappear if transactions are merged, in any order. A note
/// disappears if all its current operations are superseded and none of the transactions has a
/// current one. Must be used on the main thread or on one with a ProfileReader; blocks for the
/// profile.
class RemovalForecast {
public:
    /// A note that disappears, with a title for the user.
    struct Note {
        QString UUID;
        QString title;
    };

    /// Adds a transaction that will be merged together with the others. Keeps the identifiers only.
    void add(const Transaction &transaction);
    /// Returns the identifiers that the transactions supersede.
    const QSet<OperationId> &superseded() const { return m_superseded; }
    /// Returns the notes that disappear if all transactions are merged into `database`, the id of
    /// its row, in the order of the notes. Errors have the code ProfileNotWritten.
    Expected<QList<Note>> removedNotes(const ProfileDatabase &profile, qint64 database) const;

private:
    /// Returns whether `note` has a current operation after it has lost `lost` of them.
    Expected<bool> keeps(const QString &note, qint64 lost, const ProfileDatabase &profile,
                         qint64 database) const;

    /// The identifiers of all superseded operations.
    QSet<OperationId> m_superseded;
    /// The new operations by note.
    QHash<QString, QList<OperationId>> m_added;
};
