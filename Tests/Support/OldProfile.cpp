#include "Support/OldProfile.h"

#include <QtCore/QFileInfo>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>
#include <functional>
#include <stdexcept>

#include "Engine/Notes/NoteConversion.h"
#include "Engine/Profile/ProfileDatabase.h"
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

void execute(const QString &file, const std::function<void(QSqlQuery &)> &statements) {
    {
        auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), OldConnection);
        database.setDatabaseName(file);
        database.open();
        QSqlQuery query(database);
        statements(query);
    }
    QSqlDatabase::removeDatabase(OldConnection);
}

void writeOldest(const QString &file, int notes, const QString &text) {
    execute(file, [&](QSqlQuery &query) {
        for (const QString &statement : oldSchema()) {
            execute(query, statement);
        }
        execute(query, QStringLiteral("INSERT INTO databases (uuid, name) VALUES (?, 'Plans')"),
                {OldProfile::UUID});
        execute(query, QStringLiteral("BEGIN"));
        for (int i = 0; i < notes; ++i) {
            const QString note = OldProfile::UUID.first(24) + QString::number(111111111111 + i);
            execute(query,
                    QStringLiteral("INSERT INTO notes (database_uuid, uuid, title, text, modified)"
                                   " VALUES (?, ?, ?, ?, ?)"),
                    {OldProfile::UUID, note, QString::number(i), text, OldProfile::Modified + i});
        }
        execute(query, QStringLiteral("COMMIT"));
    });
}

/// Opens the oldest profile, which makes it a current one.
void upgrade(const QString &file) {
    ProfileDatabase profile;
    const Expected<void> upgraded = profile.open(
        QFileInfo(file).path(), [] { return Expected<void>(); },
        [&] { return convertOldNotes(profile); });
    if (!upgraded) {
        throw std::runtime_error("cannot upgrade the old profile");
    }
}

/// Returns the statements that remove from a current profile what `version` did not have.
QStringList removals(int version) {
    const QStringList mark(QStringLiteral("PRAGMA user_version = %1").arg(version));
    QStringList statements{QStringLiteral("DROP INDEX sizes_of_known_transactions")};
    if (version == 6) {
        return statements + mark;
    }
    statements +=
        {QStringLiteral("DROP INDEX places_of_notes"),
         QStringLiteral("CREATE INDEX order_of_notes ON operations (database, position)")};
    if (version == 5) {
        return statements + mark;
    }
    for (const char *column : {"date", "reason", "summary", "received", "sent", "problems"}) {
        statements.append(QStringLiteral("ALTER TABLE states DROP COLUMN result_%1")
                              .arg(QLatin1StringView(column)));
    }
    if (version == 2) {
        statements +=
            {QStringLiteral("DROP TABLE versions"), QStringLiteral("DROP TABLE size_of_versions")};
    }
    return statements + mark;
}

}  // namespace

void OldProfile::write(const QString &file, int notes, const QString &text, int version) {
    writeOldest(file, notes, text);
    if (version == ProfileInspection::OldestSchemaVersion) {
        return;
    }
    upgrade(file);
    execute(file, [&](QSqlQuery &query) {
        for (const QString &statement : removals(version)) {
            execute(query, statement);
        }
    });
}
