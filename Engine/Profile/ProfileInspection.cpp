#include "Engine/Profile/ProfileInspection.h"

#include <QtCore/QFileInfo>
#include <QtCore/QUrl>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>

#include "Engine/Foundation/EngineError.h"

namespace {

const QString InspectionConnection = QStringLiteral("velmora-profile-inspection");

/// Where nothing is in the log, SQLite is told not to make one; else it needs the log to see the
/// latest state, and a read-only connection leaves it alone.
QString addressForReading(const QString &path) {
    const bool hasLog = QFileInfo(path + QStringLiteral("-wal")).size() > 0;
    return QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded()) +
           (hasLog ? QStringLiteral("?mode=ro") : QStringLiteral("?mode=ro&immutable=1"));
}

std::optional<Error> obstacleInContents(const QString &path, const QSqlDatabase &database) {
    QSqlQuery query(database);
    const auto value = [&](const QString &statement) {
        return query.exec(statement) && query.next() ? query.value(0) : QVariant();
    };
    const QVariant version = value(QStringLiteral("PRAGMA user_version"));
    const QVariant tables = value(QStringLiteral("SELECT count(*) FROM sqlite_schema"));
    if (!version.isValid() || !tables.isValid()) {
        return engineError(EngineErrorCode::ProfileUnusable,
                           "The profile “%1” is damaged and cannot be opened. Restore it from a "
                           "backup or use another profile.",
                           path);
    }
    if (version.toInt() > ProfileInspection::SchemaVersion) {
        return engineError(EngineErrorCode::ProfileUnusable,
                           "The profile “%1” was created by a newer version of Velmora. Update "
                           "Velmora to open it.",
                           path);
    }
    if (value(QStringLiteral("PRAGMA quick_check(1)")) != QStringLiteral("ok")) {
        return engineError(EngineErrorCode::ProfileUnusable,
                           "The profile “%1” is damaged and cannot be opened. Restore it from a "
                           "backup or use another profile.",
                           path);
    }
    const bool isEmpty = tables == 0 && version == 0;
    const bool isOurs =
        value(QStringLiteral("PRAGMA application_id")) == ProfileInspection::ApplicationId &&
        version.toInt() >= ProfileInspection::OldestSchemaVersion;
    if (!isEmpty && !isOurs) {
        return engineError(
            EngineErrorCode::ProfileUnusable,
            "“%1” is a database of another program, not a profile. Choose another folder.", path);
    }
    return {};
}

}  // namespace

std::optional<Error> ProfileInspection::obstacle(const QString &path) {
    const QFileInfo file(path);
    if (!file.isFile()) {
        return engineError(
            EngineErrorCode::ProfileUnusable,
            "“%1” is not a file, so it cannot be opened as a profile. Choose another folder.",
            path);
    }
    if (!file.isReadable()) {
        return engineError(EngineErrorCode::ProfileUnusable,
                           "You do not have permission to read the profile “%1”. Change its "
                           "permissions or use another profile.",
                           path);
    }
    if (!file.isWritable()) {
        return engineError(
            EngineErrorCode::ProfileUnusable,
            "The profile “%1” is read-only. Change its permissions or use another profile.", path);
    }
    if (!QFileInfo(file.path()).isWritable()) {
        return engineError(
            EngineErrorCode::ProfileUnusable,
            "The profile folder “%1” is read-only. Change its permissions or use another profile.",
            file.path());
    }
    std::optional<Error> result;
    {
        QSqlDatabase database =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), InspectionConnection);
        database.setDatabaseName(addressForReading(path));
        database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_OPEN_READONLY"));
        result = database.open() ? obstacleInContents(path, database)
                                 : engineError(EngineErrorCode::ProfileUnusable,
                                               "The profile “%1” is damaged and cannot be opened. "
                                               "Restore it from a backup or use another profile.",
                                               path);
    }
    QSqlDatabase::removeDatabase(InspectionConnection);
    return result;
}
