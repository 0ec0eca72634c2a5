#include "Engine/ProfileDatabase.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QUuid>
#include <QtCore/QtEndian>
#include <QtSql/QSqlError>

#include "Engine/EngineError.h"
#include "Platform/Foundation/Localization.h"

namespace {

constexpr int schemaVersion = 1;

/// The start of an SQLite database file (https://www.sqlite.org/fileformat.html, "The Database
/// Header").
constexpr char magic[] = "SQLite format 3";
constexpr qint64 headerSize = 100;
constexpr qsizetype userVersionOffset = 60;

constexpr const char *tables[] = {
    "CREATE TABLE databases (uuid TEXT PRIMARY KEY, name TEXT NOT NULL, position INTEGER NOT NULL, "
    "is_inbox INTEGER NOT NULL, is_open INTEGER NOT NULL)",
    "CREATE TABLE notes (uuid TEXT PRIMARY KEY, database_uuid TEXT NOT NULL REFERENCES "
    "databases(uuid) "
    "ON DELETE CASCADE, position INTEGER NOT NULL, title TEXT NOT NULL, text TEXT NOT NULL, "
    "modified TEXT NOT NULL)",
    "CREATE INDEX notes_of_database ON notes(database_uuid, position)",
    "CREATE TABLE locations (id INTEGER PRIMARY KEY, position INTEGER NOT NULL, url TEXT NOT NULL)",
    // A state may be of a database that this profile does not have.
    "CREATE TABLE states (location_id INTEGER NOT NULL REFERENCES locations(id) ON DELETE CASCADE, "
    "position INTEGER NOT NULL, database_uuid TEXT NOT NULL, database_name TEXT NOT NULL, enabled "
    "INTEGER NOT NULL, "
    "schedule_kind TEXT, schedule_minute INTEGER, schedule_days INTEGER, sync_on_open INTEGER NOT "
    "NULL, "
    "sync_on_close INTEGER NOT NULL, last_synced TEXT, PRIMARY KEY (location_id, database_uuid)) "
    "WITHOUT ROWID",
    "CREATE TABLE bookmarks (path TEXT PRIMARY KEY, position INTEGER NOT NULL)",
    "CREATE TABLE settings (key TEXT PRIMARY KEY, value TEXT NOT NULL)",
};

}  // namespace

std::unique_ptr<ProfileDatabase> ProfileDatabase::open(const QString &folder,
                                                       std::optional<Error> *error) {
    std::unique_ptr<ProfileDatabase> profile(
        new ProfileDatabase(folder, QUuid::createUuid().toString(QUuid::WithoutBraces)));
    *error = profile->openFile();
    return *error ? nullptr : std::move(profile);
}

ProfileDatabase::ProfileDatabase(const QString &folder, const QString &connectionName)
    : m_folder(QDir(folder).absolutePath()),
      m_connectionName(connectionName),
      m_database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connectionName)) {
    m_database.setDatabaseName(file());
    m_database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=2000"));
}

ProfileDatabase::~ProfileDatabase() {
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_connectionName);
}

QString ProfileDatabase::file() const {
    return m_folder + QStringLiteral("/profile.sqlite");
}

Error ProfileDatabase::unusable() const {
    return engineError(EngineErrorCode::ProfileUnusable,
                       localizedSyncString("The profile %1 cannot be used.").arg(m_folder),
                       m_lastError);
}

std::optional<Error> ProfileDatabase::openFile() {
    if (!QDir().mkpath(m_folder)) {
        return unusable();
    }
    if (const auto error = checkHeader()) {
        return error;
    }
    if (!m_database.open()) {
        m_lastError = m_database.lastError().text();
        return unusable();
    }
    return prepare();
}

// Before SQLite opens the file: opening may already change it.
std::optional<Error> ProfileDatabase::checkHeader() const {
    QFile stored(file());
    if (!stored.exists() || stored.size() == 0) {
        return std::nullopt;
    }
    if (!stored.open(QIODevice::ReadOnly)) {
        return engineError(
            EngineErrorCode::ProfileUnusable,
            localizedSyncString("The profile database %1 cannot be read.").arg(file()),
            stored.errorString());
    }
    const QByteArray header = stored.read(headerSize);
    if (header.size() < headerSize || !header.startsWith(QByteArray(magic, sizeof(magic)))) {
        return engineError(EngineErrorCode::ProfileCorrupt,
                           localizedSyncString("The profile database %1 is damaged.").arg(file()),
                           localizedSyncString("It is not a database. It was left as it is."));
    }
    const auto version = qFromBigEndian<quint32>(header.constData() + userVersionOffset);
    if (version > schemaVersion) {
        return engineError(
            EngineErrorCode::ProfileTooNew,
            localizedSyncString("The profile database %1 comes from a newer version of Velmora.")
                .arg(file()),
            localizedSyncString(
                "It has version %1; this Velmora knows versions up to %2. It was left as it is.")
                .arg(version)
                .arg(schemaVersion));
    }
    return std::nullopt;
}

std::optional<Error> ProfileDatabase::prepare() {
    QString check;
    QString version;
    const auto into = [](QString &text) {
        return [&text](const QSqlQuery &row) { text = row.value(0).toString(); };
    };
    const bool isReadable = select(QStringLiteral("PRAGMA quick_check(1)"), {}, into(check)) &&
                            select(QStringLiteral("PRAGMA user_version"), {}, into(version));
    if (!isReadable || check != QLatin1StringView("ok")) {
        return engineError(EngineErrorCode::ProfileCorrupt,
                           localizedSyncString("The profile database %1 is damaged.").arg(file()),
                           isReadable ? check : m_lastError);
    }
    m_isFresh = version == QLatin1StringView("0");
    const bool isWritable = execute(QStringLiteral("BEGIN IMMEDIATE")) &&
                            execute(QStringLiteral("ROLLBACK")) &&
                            execute(QStringLiteral("PRAGMA journal_mode=WAL")) &&
                            execute(QStringLiteral("PRAGMA synchronous=FULL")) &&
                            execute(QStringLiteral("PRAGMA foreign_keys=ON"));
    if (!isWritable) {
        return engineError(
            EngineErrorCode::ProfileReadOnly,
            localizedSyncString("The profile database %1 cannot be written.").arg(file()),
            m_lastError);
    }
    return m_isFresh ? transaction([this] { return makeTables(); }) : std::nullopt;
}

bool ProfileDatabase::makeTables() {
    for (const char *statement : tables) {
        if (!execute(QLatin1StringView(statement))) {
            return false;
        }
    }
    return execute(QStringLiteral("PRAGMA user_version=%1").arg(schemaVersion));
}

std::optional<Error> ProfileDatabase::transaction(const std::function<bool()> &statements) {
    if (execute(QStringLiteral("BEGIN IMMEDIATE"))) {
        if (statements() && execute(QStringLiteral("COMMIT"))) {
            return std::nullopt;
        }
        QSqlQuery(m_database).exec(QStringLiteral("ROLLBACK"));
    }
    return engineError(EngineErrorCode::NotSaved,
                       localizedSyncString("The profile %1 cannot be saved.").arg(m_folder),
                       m_lastError);
}

bool ProfileDatabase::execute(const QString &statement, const QVariantList &values) {
    return select(statement, values, [](const QSqlQuery &) {});
}

bool ProfileDatabase::select(const QString &query, const QVariantList &values,
                             const std::function<void(const QSqlQuery &)> &row) {
    QSqlQuery prepared(m_database);
    prepared.setForwardOnly(true);
    bool isDone = prepared.prepare(query);
    for (const QVariant &value : values) {
        prepared.addBindValue(value);
    }
    isDone = isDone && prepared.exec();
    while (isDone && prepared.next()) {
        row(prepared);
    }
    isDone = isDone && !prepared.lastError().isValid();
    if (isDone) {
        m_lastInsertId = prepared.lastInsertId().toLongLong();
    } else {
        m_lastError = prepared.lastError().text();
    }
    return isDone;
}
