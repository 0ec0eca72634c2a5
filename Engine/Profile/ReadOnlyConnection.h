#pragma once

#include <QtCore/QString>
#include <QtCore/QVariant>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>
#include <atomic>
#include <functional>
#include <memory>

#include "Platform/Foundation/Expected.h"

/// A connection to an SQLite database that cannot change the database. Must be used on the thread
/// that has opened it; several can be open at the same time. Every call blocks for the disk.
///
/// All errors have the code ProfileDamaged if the file is not a sound SQLite database or lacks a
/// table, ProfileDiskFull if there is no room for what SQLite writes while it reads,
/// ProfileUnreadable if the disk reports an error, and otherwise ProfileUnusable, for example if it
/// cannot be opened, another connection has locked it, or memory is short.
class ReadOnlyConnection {
public:
    /// Receives one row of a result. `row` is valid only during the call.
    using RowVisitor = std::function<void(const QSqlQuery &row)>;

    /// How other connections use the file meanwhile.
    enum class Sharing {
        /// No connection writes. SQLite creates no files beside the database.
        Immutable,
        /// Other connections may write. SQLite may create its "-wal" and "-shm" files.
        Shared,
    };

    /// Opens the database file at `path`; the result is not null. SQLite reads the file only with
    /// the first statement, which may find that it is damaged. If `isCancelled` is not null,
    /// statements fail soon after it has become true; it is not owned and must outlive the
    /// connection.
    static Expected<std::unique_ptr<const ReadOnlyConnection>> open(
        const QString &path, Sharing sharing, const std::atomic_bool *isCancelled = nullptr);
    ~ReadOnlyConnection();
    ReadOnlyConnection(const ReadOnlyConnection &) = delete;
    ReadOnlyConnection &operator=(const ReadOnlyConnection &) = delete;

    /// Executes `statement` and calls `visit` with each row. If it returns an error, `visit` may
    /// have been called with some of the rows.
    Expected<void> read(const QString &statement, const RowVisitor &visit) const;
    /// Returns the first column of the first row, or an invalid QVariant if there is no row. A NULL
    /// in that column gives a null QVariant.
    Expected<QVariant> value(const QString &statement) const;
    /// Copies what the database contains now to the file `path`, which must be empty or absent. The
    /// error is that of SQLite: unlike those of the other functions, it may concern the copy.
    tl::expected<void, QSqlError> copyTo(const QString &path) const;

private:
    friend class ProfileReader;

    ReadOnlyConnection(const QString &path, Sharing sharing);

    QSqlQuery query() const { return QSqlQuery(m_database); }
    Error error(const QSqlError &reason) const;
    void interruptIf(const std::atomic_bool &isCancelled);

    const QString m_path;
    const QString m_name;
    QSqlDatabase m_database;
};
