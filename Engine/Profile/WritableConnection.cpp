#include "Engine/Profile/WritableConnection.h"

#include <QtCore/QUuid>
#include <QtSql/QSqlQuery>

WritableConnection::Result<std::unique_ptr<const WritableConnection>> WritableConnection::open(
    const QString &path) {
    std::unique_ptr<WritableConnection> connection(new WritableConnection(path));
    if (!connection->m_database.open()) {
        return tl::make_unexpected(connection->m_database.lastError());
    }
    return connection;
}

WritableConnection::WritableConnection(const QString &path)
    : m_name(QUuid::createUuid().toString(QUuid::WithoutBraces)),
      m_database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name)) {
    m_database.setDatabaseName(path);
}

WritableConnection::~WritableConnection() {
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_name);
}

WritableConnection::Result<void> WritableConnection::run(const QString &statement,
                                                         const QVariantList &values,
                                                         const RowVisitor &visit) const {
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    bool isDone = query.prepare(statement);
    for (const QVariant &value : values) {
        query.addBindValue(value);
    }
    isDone = isDone && query.exec();
    while (isDone && query.next()) {
        visit(query);
    }
    // Reading can fail at any row, which ends the loop like the last one.
    if (query.lastError().isValid()) {
        return tl::make_unexpected(query.lastError());
    }
    return {};
}

WritableConnection::Result<void> WritableConnection::runAll(const QStringList &statements) const {
    Result<void> done;
    for (const QString &statement : statements) {
        done = done.and_then([&] { return run(statement); });
    }
    return done;
}
