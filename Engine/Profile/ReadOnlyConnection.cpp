#include "Engine/Profile/ReadOnlyConnection.h"

#include <QtCore/QUrl>
#include <QtCore/QUuid>
#include <QtCore/QVariant>

ReadOnlyConnection::ReadOnlyConnection(const QString &path, Sharing sharing)
    : m_name(QUuid::createUuid().toString(QUuid::WithoutBraces)),
      m_database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name)) {
    m_database.setDatabaseName(QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded()) +
                               (sharing == Sharing::Shared
                                    ? QStringLiteral("?mode=ro")
                                    : QStringLiteral("?mode=ro&immutable=1")));
    m_database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_OPEN_READONLY"));
    m_database.open();
}

ReadOnlyConnection::~ReadOnlyConnection() {
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_name);
}

QVariant ReadOnlyConnection::value(const QString &statement) const {
    QSqlQuery query(m_database);
    return query.exec(statement) && query.next() ? query.value(0) : QVariant();
}
