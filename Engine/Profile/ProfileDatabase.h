#pragma once

#include <QtCore/QString>
#include <QtCore/QVariant>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>
#include <functional>
#include <optional>

#include "Platform/Foundation/Error.h"

/// The file "profile.sqlite" in which a profile keeps everything. Main thread.
///
/// It is an SQLite 3 database with a write-ahead log. What was committed survives the end of the
/// process at any moment, and of the machine as far as its disk keeps what it was told to.
class ProfileDatabase {
public:
    /// Puts the first rows into a new profile; called inside the transaction that makes its tables.
    using Filler = std::function<std::optional<Error>()>;

    ProfileDatabase();
    ~ProfileDatabase();
    ProfileDatabase(const ProfileDatabase &) = delete;
    ProfileDatabase &operator=(const ProfileDatabase &) = delete;

    /// Opens the profile in the folder `directory`. A folder that is not there or empty becomes a
    /// new profile, filled by `fill`. An error says what is wrong and where; the folder is then as
    /// it was. Called once.
    std::optional<Error> open(const QString &directory, const Filler &fill);

    /// The absolute path of the folder; empty while none is open.
    QString directory() const { return m_directory; }
    /// The absolute path of the file.
    QString path() const;

    /// A statement ready to bind and execute; forward only.
    QSqlQuery prepare(const QString &statement) const;
    /// Executes `statement` with `values` for its placeholders.
    std::optional<Error> run(const QString &statement, const QVariantList &values = {}) const;
    /// `string` as a value; an absent one as "", since no text column holds NULL.
    static QVariant text(const QString &string);
    /// The first column of the first row, or an invalid variant.
    QVariant value(const QString &statement, const QVariantList &values = {}) const;
    /// What went wrong with `query`.
    Error errorOf(const QSqlQuery &query) const;
    /// Commits all that `changes` writes, or nothing where it answers an error or the commit fails.
    std::optional<Error> write(const std::function<std::optional<Error>()> &changes) const;

private:
    std::optional<Error> openFolder(const QString &directory, const Filler &fill);
    std::optional<Error> openFile(const Filler &fill);
    /// Those that are not there yet.
    std::optional<Error> makeTables() const;
    void clearFolder(bool removingIt);
    void close();

    const QString m_connectionName;
    QSqlDatabase m_database;
    QString m_directory;
};
