#include "Support/OldProfile.h"

#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>
#include <stdexcept>

#include "Engine/Profile/ProfileInspection.h"

namespace {

const QString OldConnection = QStringLiteral("old-profile");

QStringList oldSchema() {
    return {QStringLiteral("CREATE TABLE settings (key TEXT PRIMARY KEY NOT NULL, value NOT NULL)"),
            QStringLiteral("CREATE TABLE databases (id INTEGER PRIMARY KEY AUTOINCREMENT, uuid"
                           " TEXT NOT NULL UNIQUE, name TEXT NOT NULL, is_inbox INTEGER NOT NULL"
                           " DEFAULT 0, is_open INTEGER NOT NULL DEFAULT 1)"),
            QStringLiteral("CREATE UNIQUE INDEX one_inbox ON databases (is_inbox) WHERE is_inbox"),
            QStringLiteral("CREATE TABLE notes (id INTEGER PRIMARY KEY AUTOINCREMENT,"
                           " database_uuid TEXT NOT NULL REFERENCES databases (uuid) ON DELETE"
                           " CASCADE, uuid TEXT NOT NULL, title TEXT NOT NULL, text TEXT NOT NULL,"
                           " modified INTEGER, UNIQUE (database_uuid, uuid))"),
            QStringLiteral("PRAGMA application_id = %1").arg(ProfileInspection::ApplicationId),
            QStringLiteral("PRAGMA user_version = %1").arg(ProfileInspection::OldestSchemaVersion),
            QStringLiteral("INSERT INTO databases (uuid, name, is_inbox) VALUES"
                           " ('22222222-2222-4222-8222-222222222222', 'Inbox', 1)")};
}

void execute(QSqlQuery &query, const QString &statement, const QVariantList &values = {}) {
    bool isDone = query.prepare(statement);
    for (const QVariant &value : values) {
        query.addBindValue(value);
    }
    isDone = isDone && query.exec();
    if (!isDone) {
        throw std::runtime_error("cannot write the old profile");
    }
}

}  // namespace

void OldProfile::write(const QString &file, int notes, const QString &text) {
    {
        auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), OldConnection);
        database.setDatabaseName(file);
        database.open();
        QSqlQuery query(database);
        for (const QString &statement : oldSchema()) {
            execute(query, statement);
        }
        execute(query, QStringLiteral("INSERT INTO databases (uuid, name) VALUES (?, 'Plans')"),
                {UUID});
        execute(query, QStringLiteral("BEGIN"));
        for (int i = 0; i < notes; ++i) {
            const QString note = UUID.first(24) + QString::number(111111111111 + i);
            execute(query,
                    QStringLiteral("INSERT INTO notes (database_uuid, uuid, title, text, modified)"
                                   " VALUES (?, ?, ?, ?, ?)"),
                    {UUID, note, QString::number(i), text, Modified + i});
        }
        execute(query, QStringLiteral("COMMIT"));
    }
    QSqlDatabase::removeDatabase(OldConnection);
}
