#pragma once

#include <QtCore/QString>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>
#include <atomic>

/// A connection to an SQLite database that changes neither the database nor its folder. Must be
/// used on the thread that has created it; several can exist at a time. Every call blocks for the
/// disk.
class ReadOnlyConnection {
public:
    /// How other connections use the file meanwhile.
    enum class Sharing {
        /// No connection writes. SQLite creates no files beside the database.
        Immutable,
        /// Other connections may write. SQLite may create its "-wal" and "-shm" files.
        Shared,
    };

    /// Opens the database file at `path`. If `isCancelled` is not null, statements fail soon after
    /// it has become true; it is not owned and must outlive this object.
    ReadOnlyConnection(const QString &path, Sharing sharing,
                       const std::atomic_bool *isCancelled = nullptr);
    /// Closes the database. The queries must have been destroyed.
    ~ReadOnlyConnection();
    ReadOnlyConnection(const ReadOnlyConnection &) = delete;
    ReadOnlyConnection &operator=(const ReadOnlyConnection &) = delete;

    /// Returns whether the file could be opened. SQLite reads it only with the first statement, so
    /// that it may be damaged all the same.
    bool isOpen() const { return m_database.isOpen(); }
    /// Returns a query on this connection.
    QSqlQuery query() const { return QSqlQuery(m_database); }
    /// Returns the first column of the first row; an invalid QVariant if the statement fails or has
    /// no row.
    QVariant value(const QString &statement) const;

private:
    void interruptIf(const std::atomic_bool &isCancelled);

    const QString m_name;
    QSqlDatabase m_database;
};
