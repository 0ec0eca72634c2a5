#include "Engine/Profile/ProfileInspection.h"

#include <QtCore/QFileInfo>
#include <QtCore/QUrl>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>

#include "Engine/Foundation/EngineError.h"

namespace {

const QString InspectionConnection = QStringLiteral("velmora-profile-inspection");

/// SQLite must not create a log if there is none. Otherwise it needs the log to see the latest
/// state; a read-only connection does not change it.
QString addressForReading(const QString &path) {
    const bool hasLog = QFileInfo(path + QStringLiteral("-wal")).size() > 0;
    return QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded()) +
           (hasLog ? QStringLiteral("?mode=ro") : QStringLiteral("?mode=ro&immutable=1"));
}

tl::unexpected<Error> unusable(const char *text, const QString &path) {
    return failure(engineError(EngineErrorCode::ProfileUnusable, text, path));
}

tl::unexpected<Error> damaged(const QString &path) {
    return unusable(
        "The profile “%1” is damaged and cannot be opened. Restore it from a backup or use another "
        "profile.",
        path);
}

Expected<void> checkContents(const QString &path, const QSqlDatabase &database) {
    QSqlQuery query(database);
    // An invalid variant stands for a failed read. None of these statements has an empty result.
    const auto value = [&](const QString &statement) {
        return query.exec(statement) && query.next() ? query.value(0) : QVariant();
    };
    const QVariant version = value(QStringLiteral("PRAGMA user_version"));
    const QVariant tables = value(QStringLiteral("SELECT count(*) FROM sqlite_schema"));
    const QVariant application = value(QStringLiteral("PRAGMA application_id"));
    if (!version.isValid() || !tables.isValid() || !application.isValid()) {
        return damaged(path);
    }
    if (version.toInt() > ProfileInspection::SchemaVersion) {
        return unusable(
            "The profile “%1” was created by a newer version of Velmora. Update Velmora to open "
            "it.",
            path);
    }
    if (value(QStringLiteral("PRAGMA quick_check(1)")) != QStringLiteral("ok")) {
        return damaged(path);
    }
    const bool isEmpty = tables == 0 && version == 0;
    const bool isOurs = application == ProfileInspection::ApplicationId &&
                        version.toInt() >= ProfileInspection::OldestSchemaVersion;
    if (!isEmpty && !isOurs) {
        return unusable(
            "“%1” is a database of another program, not a profile. Choose another folder.", path);
    }
    return {};
}

Expected<void> checkAccess(const QString &path) {
    const QFileInfo file(path);
    if (!file.isFile()) {
        return unusable(
            "“%1” is not a file, so it cannot be opened as a profile. Choose another folder.",
            path);
    }
    if (!file.isReadable()) {
        return unusable(
            "You do not have permission to read the profile “%1”. Change its permissions or use "
            "another profile.",
            path);
    }
    if (!file.isWritable()) {
        return unusable(
            "The profile “%1” is read-only. Change its permissions or use another profile.", path);
    }
    if (!QFileInfo(file.path()).isWritable()) {
        return unusable(
            "The profile folder “%1” is read-only. Change its permissions or use another profile.",
            file.path());
    }
    return {};
}

}  // namespace

Expected<void> ProfileInspection::check(const QString &path) {
    Expected<void> result = checkAccess(path);
    if (!result) {
        return result;
    }
    {
        QSqlDatabase database =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), InspectionConnection);
        database.setDatabaseName(addressForReading(path));
        database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_OPEN_READONLY"));
        result = database.open() ? checkContents(path, database) : damaged(path);
    }
    QSqlDatabase::removeDatabase(InspectionConnection);
    return result;
}
