#pragma once

#include <QtCore/QVariant>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <functional>
#include <memory>

#include "Platform/Foundation/Expected.h"

class QSqlQuery;

/// A connection to an SQLite database that is no open profile, such as a copy that is repaired. Its
/// errors are those of SQLite, by which callers distinguish damage from other failures. Must be
/// used on the thread that has opened it; several can be open at the same time. Every call blocks
/// for the disk.
class WritableConnection {
public:
    template <class Value>
    using Result = tl::expected<Value, QSqlError>;
    /// Receives one row of a result. `row` is valid only during the call.
    using RowVisitor = std::function<void(const QSqlQuery &row)>;

    /// Opens the database file at `path`, which is created if it does not exist; the result is not
    /// null. SQLite reads the file only with the first statement.
    static Result<std::unique_ptr<const WritableConnection>> open(const QString &path);
    /// Rolls an open transaction back.
    ~WritableConnection();
    WritableConnection(const WritableConnection &) = delete;
    WritableConnection &operator=(const WritableConnection &) = delete;

    /// Executes `statement` with `values` for its placeholders, and calls `visit` with each row. If
    /// it returns an error, `visit` may have been called with some of the rows.
    Result<void> run(
        const QString &statement, const QVariantList &values = {},
        const RowVisitor &visit = [](const QSqlQuery & /*row*/) {}) const;
    /// Executes `statements` in order, until one fails.
    Result<void> runAll(const QStringList &statements) const;

private:
    explicit WritableConnection(const QString &path);

    const QString m_name;
    QSqlDatabase m_database;
};
