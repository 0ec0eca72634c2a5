#pragma once

#include <QtCore/QString>
#include <QtCore/QVariantList>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>
#include <functional>
#include <memory>
#include <optional>

#include "Platform/Foundation/Error.h"

/// The SQLite file of a profile, "profile.sqlite" in its folder. Main thread.
///
/// Whatever answers no error is on disk: the write-ahead log is flushed at each commit, so that
/// killing the process at any moment loses nothing.
class ProfileDatabase {
public:
    /// Opens the profile in `folder`. A folder or file that is not there is made, with the tables
    /// empty. A file that is damaged, from a newer version, or cannot be written gives nullptr and
    /// an error that says what and where, and keeps every byte.
    static std::unique_ptr<ProfileDatabase> open(const QString &folder,
                                                 std::optional<Error> *error);
    ~ProfileDatabase();
    ProfileDatabase(const ProfileDatabase &) = delete;
    ProfileDatabase &operator=(const ProfileDatabase &) = delete;

    const QString &folder() const { return m_folder; }
    /// Whether `open` has just made the tables.
    bool isFresh() const { return m_isFresh; }

    /// Runs `statements` in one transaction, which is committed if they answer true. They use
    /// `execute` and answer false when one fails; then nothing has changed, and the error says why.
    std::optional<Error> transaction(const std::function<bool()> &statements);
    /// Runs one statement. False on failure.
    bool execute(const QString &statement, const QVariantList &values = {});
    /// Runs a query; `row` is called for each row.
    bool select(const QString &query, const QVariantList &values,
                const std::function<void(const QSqlQuery &)> &row);
    /// The key of the row that the last insertion made.
    qint64 lastInsertId() const { return m_lastInsertId; }

private:
    ProfileDatabase(const QString &folder, const QString &connectionName);
    std::optional<Error> openFile();
    std::optional<Error> checkHeader() const;
    std::optional<Error> prepare();
    bool makeTables();
    Error unusable() const;
    QString file() const;

    const QString m_folder;
    const QString m_connectionName;
    QSqlDatabase m_database;
    QString m_lastError;
    qint64 m_lastInsertId = 0;
    bool m_isFresh = false;
};
