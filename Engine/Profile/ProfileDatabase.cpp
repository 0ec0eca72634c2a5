#include "Engine/Profile/ProfileDatabase.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QUuid>
#include <QtSql/QSqlError>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Profile/ProfileInspection.h"
#include "Engine/Profile/ProfileUpgrade.h"
#include "Host/SyncStrings.h"

namespace {

const QString FileName = QStringLiteral("profile.sqlite");

QStringList connectionSettings() {
    return {
        QStringLiteral("PRAGMA busy_timeout = 1000"),
        QStringLiteral("PRAGMA journal_mode = WAL"),
        QStringLiteral("PRAGMA synchronous = FULL"),
        QStringLiteral("PRAGMA foreign_keys = ON"),
    };
}

// States are loaded in the order of their rowid, which is that in which they were added.
QStringList schema() {
    return {
        QStringLiteral(
            "CREATE TABLE IF NOT EXISTS settings (key TEXT PRIMARY KEY NOT NULL, value NOT NULL)"),
        QStringLiteral("CREATE TABLE IF NOT EXISTS databases (id INTEGER PRIMARY KEY AUTOINCREMENT,"
                       " uuid TEXT NOT NULL UNIQUE, name TEXT NOT NULL,"
                       " is_inbox INTEGER NOT NULL DEFAULT 0, is_open INTEGER NOT NULL DEFAULT 1,"
                       " sent INTEGER NOT NULL DEFAULT 0)"),
        QStringLiteral(
            "CREATE UNIQUE INDEX IF NOT EXISTS one_inbox ON databases (is_inbox) WHERE is_inbox"),
        // An operation has left the profile where its id is at most what its database has "sent".
        QStringLiteral(
            "CREATE TABLE IF NOT EXISTS operations (id INTEGER PRIMARY KEY AUTOINCREMENT,"
            " database INTEGER NOT NULL REFERENCES databases (id) ON DELETE CASCADE,"
            " digest BLOB NOT NULL, note_uuid TEXT NOT NULL, title TEXT NOT NULL,"
            " text TEXT NOT NULL, modified INTEGER, supersedes BLOB NOT NULL,"
            " salt BLOB NOT NULL, position INTEGER NOT NULL,"
            " UNIQUE (database, digest))"),
        QStringLiteral("CREATE INDEX IF NOT EXISTS notes ON operations (database, note_uuid)"),
        QStringLiteral(
            "CREATE INDEX IF NOT EXISTS order_of_notes ON operations (database, position)"),
        QStringLiteral("CREATE TABLE IF NOT EXISTS superseded ("
                       " database INTEGER NOT NULL REFERENCES databases (id) ON DELETE CASCADE,"
                       " digest BLOB NOT NULL, PRIMARY KEY (database, digest)) WITHOUT ROWID"),
        QStringLiteral("CREATE TABLE IF NOT EXISTS known_transactions (place TEXT NOT NULL,"
                       " database INTEGER NOT NULL REFERENCES databases (id) ON DELETE CASCADE,"
                       " name TEXT NOT NULL, operations BLOB NOT NULL, superseded BLOB NOT NULL,"
                       " size INTEGER NOT NULL,"
                       " PRIMARY KEY (place, database, name)) WITHOUT ROWID"),
        QStringLiteral("CREATE TABLE IF NOT EXISTS locations (uuid TEXT PRIMARY KEY NOT NULL,"
                       " position INTEGER NOT NULL, url TEXT NOT NULL)"),
        QStringLiteral("CREATE TABLE IF NOT EXISTS states (id INTEGER PRIMARY KEY AUTOINCREMENT,"
                       " location_uuid TEXT NOT NULL REFERENCES locations (uuid) ON DELETE CASCADE,"
                       " database_uuid TEXT NOT NULL, database_name TEXT NOT NULL,"
                       " enabled INTEGER NOT NULL, sync_on_open INTEGER NOT NULL,"
                       " sync_on_close INTEGER NOT NULL, last_synced INTEGER,"
                       " schedule TEXT, schedule_minutes INTEGER, schedule_days INTEGER,"
                       " UNIQUE (location_uuid, database_uuid))"),
        QStringLiteral("CREATE TABLE IF NOT EXISTS grants (id INTEGER PRIMARY KEY AUTOINCREMENT,"
                       " path TEXT NOT NULL UNIQUE)"),
        QStringLiteral(
            "CREATE TABLE IF NOT EXISTS trusted_certificates (location_uuid TEXT NOT NULL,"
            " fingerprint TEXT NOT NULL, PRIMARY KEY (location_uuid, fingerprint))"),
        QStringLiteral("PRAGMA application_id = %1").arg(ProfileInspection::ApplicationId),
        QStringLiteral("PRAGMA user_version = %1").arg(ProfileInspection::SchemaVersion),
    };
}

}  // namespace

ProfileDatabase::ProfileDatabase()
    : m_connectionName(QUuid::createUuid().toString(QUuid::WithoutBraces)) {}

ProfileDatabase::~ProfileDatabase() {
    close();
}

QString ProfileDatabase::path() const {
    return m_directory + u'/' + FileName;
}

std::optional<Error> ProfileDatabase::open(const QString &directory, const Filler &fill) {
    std::optional<Error> error = openFolder(QDir(directory).absolutePath(), fill);
    if (error) {
        close();
    }
    return error;
}

std::optional<Error> ProfileDatabase::openFolder(const QString &directory, const Filler &fill) {
    m_directory = directory;
    const QFileInfo folder(m_directory);
    if (folder.exists() && !folder.isDir()) {
        return engineError(EngineErrorCode::ProfileUnusable,
                           "“%1” is not a folder. Choose a folder for the profile.", m_directory);
    }
    if (QFileInfo::exists(path())) {
        const std::optional<Error> obstacle = ProfileInspection::obstacle(path());
        return obstacle ? obstacle : openFile(fill);
    }
    const bool isNewFolder = !folder.exists();
    if (isNewFolder && !QDir().mkpath(m_directory)) {
        return engineError(EngineErrorCode::ProfileUnusable,
                           "The profile folder “%1” could not be created. Check the permissions of "
                           "the folder that contains it.",
                           m_directory);
    }
    if (!QDir(m_directory)
             .isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System)) {
        return engineError(
            EngineErrorCode::ProfileUnusable,
            "The folder “%1” contains other files and no profile. Choose an empty folder.",
            m_directory);
    }
    if (!QFileInfo(m_directory).isWritable()) {
        return engineError(
            EngineErrorCode::ProfileUnusable,
            "The profile folder “%1” is read-only. Change its permissions or use another profile.",
            m_directory);
    }
    std::optional<Error> error = openFile(fill);
    if (error) {
        clearFolder(isNewFolder);
    }
    return error;
}

std::optional<Error> ProfileDatabase::openFile(const Filler &fill) {
    m_database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connectionName);
    m_database.setDatabaseName(path());
    if (!m_database.open()) {
        return engineError(EngineErrorCode::ProfileUnusable,
                           localizedSyncString("The profile “%1” cannot be opened: %2")
                               .arg(path(), m_database.lastError().databaseText()));
    }
    for (const QString &setting : connectionSettings()) {
        if (std::optional<Error> error = run(setting)) {
            return error;
        }
    }
    const int version = value(QStringLiteral("PRAGMA user_version")).toInt();
    if (version == 0) {
        return write([&] {
            const std::optional<Error> error = makeTables();
            return error ? error : fill();
        });
    }
    const bool isOld = version < ProfileInspection::SchemaVersion;
    return isOld ? write([this] {
        return ProfileUpgrade::run(*this, [this] { return makeTables(); });
    })
                 : std::nullopt;
}

std::optional<Error> ProfileDatabase::makeTables() const {
    for (const QString &statement : schema()) {
        if (std::optional<Error> error = run(statement)) {
            return error;
        }
    }
    return {};
}

void ProfileDatabase::clearFolder(bool removingIt) {
    const QString directory = m_directory;
    close();
    QDir(directory).removeRecursively();
    if (!removingIt) {
        QDir().mkdir(directory);
    }
}

void ProfileDatabase::close() {
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_connectionName);
    m_directory.clear();
}

QSqlQuery ProfileDatabase::prepare(const QString &statement) const {
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    query.prepare(statement);
    return query;
}

std::optional<Error> ProfileDatabase::run(const QString &statement,
                                          const QVariantList &values) const {
    QSqlQuery query = prepare(statement);
    for (const QVariant &value : values) {
        query.addBindValue(value);
    }
    return query.exec() ? std::nullopt : std::optional(errorOf(query));
}

QVariant ProfileDatabase::text(const QString &string) {
    return string.isNull() ? QStringLiteral("") : string;
}

QVariant ProfileDatabase::value(const QString &statement, const QVariantList &values) const {
    QSqlQuery query = prepare(statement);
    for (const QVariant &value : values) {
        query.addBindValue(value);
    }
    return query.exec() && query.next() ? query.value(0) : QVariant();
}

Error ProfileDatabase::errorOf(const QSqlQuery &query) const {
    return engineError(EngineErrorCode::ProfileNotWritten,
                       localizedSyncString("The profile “%1” cannot be read or written: %2")
                           .arg(path(), query.lastError().databaseText()));
}

std::optional<Error> ProfileDatabase::write(
    const std::function<std::optional<Error>()> &changes) const {
    if (std::optional<Error> error = run(QStringLiteral("BEGIN IMMEDIATE"))) {
        return error;
    }
    std::optional<Error> error = changes();
    if (!error) {
        error = run(QStringLiteral("COMMIT"));
    }
    if (error) {
        run(QStringLiteral("ROLLBACK"));
    }
    return error;
}
