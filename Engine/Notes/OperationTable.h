#pragma once

#include <QtCore/QVariant>
#include <functional>

#include "Engine/Notes/Operation.h"
#include "Platform/Foundation/Expected.h"

class ProfileDatabase;
class QSqlQuery;

/// Reads the current operations of one database from the table "operations" of the profile. What it
/// reads may be damaged, see Operation::isSound().
///
/// Must be used on the main thread, or with a ProfileReader; all functions that return Expected
/// block for the profile. Their errors have the code ProfileNotWritten, or Cancelled if the reader
/// is cancelled; a failed read never looks like an empty result.
class OperationTable {
public:
    /// The columns that are read as an operation, and their number.
    static inline const QString Columns = QStringLiteral(
        "digest, note_uuid, CAST(title AS BLOB), CAST(text AS BLOB), modified, supersedes, salt");
    static constexpr int ColumnCount = 7;
    /// Returns the operation in a row that begins with Columns.
    static Operation operationIn(const QSqlQuery &row);
    /// Returns the statement that reads the operations of a database, the first of its values, that
    /// satisfy `condition`, an SQL expression. `order` is a list of columns.
    static QString selection(const QString &condition,
                             const QString &order = QStringLiteral("position, id"));
    /// Returns `identifier` as a value of a column; never null.
    static QByteArray blob(const OperationId &identifier);

    /// `profile` is not owned and must outlive this object. `database` is the id of the database's
    /// row.
    OperationTable(const ProfileDatabase &profile, qint64 database)
        : m_profile(profile), m_database(database) {}

    /// Returns the operations that satisfy `condition`, an SQL expression with these `values`, in
    /// the order in which their notes were added.
    Expected<QList<Operation>> select(const QString &condition, const QVariantList &values) const;
    /// Passes all operations to `use`, in the order in which they arrived. Has no more than one in
    /// memory at a time.
    Expected<void> forEach(const std::function<void(const Operation &)> &use) const;
    /// Returns the operation with this identifier, if it is current.
    Expected<std::optional<Operation>> find(const OperationId &identifier) const;
    /// Returns the operation that shows first among those of `note`, see Operation::comesBefore;
    /// the empty string stands for the name of the database. O(log n).
    Expected<std::optional<Operation>> first(const QString &note) const;

    /// Returns whether an operation has superseded the one with this identifier, which need not
    /// have arrived.
    Expected<bool> isSuperseded(const OperationId &identifier) const;

private:
    const ProfileDatabase &m_profile;
    const qint64 m_database;
};
