#include "Engine/Profile/ReadOnlyConnection.h"

#include <sqlite3.h>

#include <QtCore/QUrl>
#include <QtCore/QUuid>
#include <QtCore/QVariant>
#include <QtSql/QSqlDriver>

ReadOnlyConnection::ReadOnlyConnection(const QString &path, Sharing sharing,
                                       const std::atomic_bool *isCancelled)
    : m_name(QUuid::createUuid().toString(QUuid::WithoutBraces)),
      m_database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name)) {
    m_database.setDatabaseName(QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded()) +
                               (sharing == Sharing::Shared
                                    ? QStringLiteral("?mode=ro")
                                    : QStringLiteral("?mode=ro&immutable=1")));
    m_database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_OPEN_READONLY"));
    if (m_database.open() && isCancelled) {
        interruptIf(*isCancelled);
    }
}

void ReadOnlyConnection::interruptIf(const std::atomic_bool &isCancelled) {
    constexpr int steps = 1000;
    const QVariant handle = m_database.driver()->handle();
    auto *const connection = *static_cast<sqlite3 *const *>(handle.constData());
    const auto ask = [](void *flag) -> int {
        return *static_cast<const std::atomic_bool *>(flag) ? 1 : 0;
    };
    sqlite3_progress_handler(connection, steps, ask, const_cast<std::atomic_bool *>(&isCancelled));
}

ReadOnlyConnection::~ReadOnlyConnection() {
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_name);
}

QVariant ReadOnlyConnection::value(const QString &statement) const {
    QSqlQuery query(m_database);
    return query.exec(statement) && query.next() ? query.value(0) : QVariant();
}
