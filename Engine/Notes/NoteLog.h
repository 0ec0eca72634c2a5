#pragma once

#include <QtCore/QSet>

#include "Application/Interface/NoteDatabase.h"
#include "Engine/Notes/Transaction.h"

class ProfileDatabase;
class QSqlQuery;

/// The operations of one database of the profile, and the notes that follow from them. Keeps those
/// that nothing supersedes, and the bare identifiers of those that something does: that set only
/// ever grows, so that nothing superseded comes back, in whatever order operations arrive. Main
/// thread.
///
/// An operation that has not left the profile for any store is not superseded by the next edit of
/// its note but gives way to it altogether.
class NoteLog {
public:
    /// The database `databaseUUID` must be in `profile`, which must outlive this.
    NoteLog(const ProfileDatabase &profile, const QString &databaseUUID);

    /// In the order in which they were added; of a note with conflicting edits each of them, one
    /// after the other.
    QList<Note> notes() const;
    /// As NoteDatabase says, within the caller's transaction.
    std::optional<Error> save(Note &note) const;
    std::optional<Error> remove(const QString &noteUUID) const;

    /// Empty while no operation gives the database a name.
    QString name() const;
    /// Gives it one, within the caller's transaction.
    std::optional<Error> setName(const QString &name) const;

    /// Takes over what others have done, within the caller's transaction. What is known already
    /// changes nothing.
    std::optional<Error> merge(const Transaction &transaction) const;
    /// From now on whatever is there counts as having left the profile; within the caller's
    /// transaction.
    std::optional<Error> markAllSent() const;
    /// Those that nothing supersedes, in the order in which they came.
    QList<OperationId> operationIds() const;
    QSet<OperationId> supersededIds() const;
    /// nothing where it is not there any more.
    std::optional<Operation> operation(const OperationId &identifier) const;
    /// Takes from the beginning of `identifiers` as many as fill a transaction, and answers those
    /// operations of them that are there still.
    QList<Operation> takeOperations(QList<OperationId> &identifiers) const;
    /// Of the row of the database.
    qint64 database() const { return m_database; }

private:
    /// An operation under the UUID under which it shows.
    struct Row {
        QString UUID;
        Operation operation;
    };

    QList<Row> rows() const;
    /// That which shows first of those of `note`, which is empty for those of the name.
    std::optional<Operation> first(const QString &note) const;
    /// The operation that shows under `noteUUID`; empty where none does.
    OperationId shownUnder(const QString &noteUUID) const;
    QSqlQuery prepareSelection(const QString &condition) const;
    QList<Operation> select(const QString &condition, const QVariantList &values) const;
    /// What an operation supersedes that replaces `seen`.
    QList<OperationId> predecessors(const QList<OperationId> &seen) const;
    bool isUnsent(const OperationId &identifier) const;
    /// Puts `operation` into the place of `seen`.
    std::optional<Error> replace(const QList<OperationId> &seen, const Operation &operation) const;
    QSqlQuery prepareInsertion() const;
    std::optional<Error> insert(QSqlQuery &insertion, const Operation &operation,
                                const OperationId &seen) const;
    std::optional<Error> erase(const QList<OperationId> &identifiers) const;
    std::optional<Error> supersede(const QList<OperationId> &identifiers) const;

    const ProfileDatabase &m_profile;
    const qint64 m_database;
};
