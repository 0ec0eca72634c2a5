#include "Engine/Profile/ProfileDatabase.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtCore/QUrl>
#include <QtCore/QUuid>
#include <QtSql/QSqlError>

#include "Application/Interface/ProfileConstants.h"
#include "Engine/Foundation/EngineError.h"
#include "Engine/Profile/FullDisk.h"
#include "Engine/Profile/ProfileFolder.h"
#include "Engine/Profile/ProfileInspection.h"
#include "Engine/Profile/ProfilePermissions.h"
#include "Engine/Profile/ProfileReader.h"
#include "Engine/Profile/ProfileRecovery.h"
#include "Engine/Profile/ProfileSchema.h"
#include "Engine/Profile/SqliteCode.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/ExactText.h"

namespace {

/// After a commit, the main thread moves a log that has more pages, which takes long. Until then,
/// a thread that synchronizes can do so with moveLog().
constexpr int PagesOfLog = 8000;
/// The indexes of identifiers are written at random places.
constexpr int KibibytesOfCache = 16 << 10;

QStringList connectionSettings() {
    return {
        QStringLiteral("PRAGMA busy_timeout = 1000"),
        QStringLiteral("PRAGMA journal_mode = WAL"),
        QStringLiteral("PRAGMA wal_autocheckpoint = %1").arg(PagesOfLog),
        QStringLiteral("PRAGMA cache_size = -%1").arg(KibibytesOfCache),
        QStringLiteral("PRAGMA synchronous = FULL"),
        QStringLiteral("PRAGMA foreign_keys = ON"),
    };
}

QStringList versionMarks() {
    return {
        QStringLiteral("PRAGMA application_id = %1").arg(ProfileInspection::ApplicationId),
        QStringLiteral("%1 = %2")
            .arg(ProfileInspection::VersionStatement)
            .arg(ProfileInspection::SchemaVersion),
    };
}

tl::unexpected<Error> openingFailure(const char *text, const QString &path) {
    return failure(engineError(EngineErrorCode::ProfileUnusable, text, path));
}

/// Returns an error unless a profile can be made in the existing folder `directory`, which has
/// none.
Expected<void> checkUnused(const QString &directory) {
    const Expected<bool> isUnused = ProfileFolder::isUnused(directory);
    if (!isUnused) {
        return failure(isUnused.error());
    }
    if (*isUnused) {
        return {};
    }
    const Expected<bool> hasTraces = ProfileRecovery::hasTraces(directory);
    if (!hasTraces) {
        return failure(hasTraces.error());
    }
    if (*hasTraces) {
        return failure(engineError(EngineErrorCode::ProfileDamaged,
                                   "The profile is missing from the folder “%1”. Restore it from a "
                                   "backup or use another profile.",
                                   directory));
    }
    return openingFailure(
        "The folder “%1” contains other files and no profile. Choose an empty folder.", directory);
}

Error notOpened(const QString &path, const QString &reason) {
    return engineError(EngineErrorCode::ProfileUnusable,
                       localizedSyncString("The profile “%1” cannot be opened: %2. Check its disk "
                                           "and its permissions, then try again.")
                           .arg(path, reason));
}

}  // namespace

ProfileDatabase::ProfileDatabase()
    : m_connectionName(QUuid::createUuid().toString(QUuid::WithoutBraces)) {}

ProfileDatabase::~ProfileDatabase() {
    closeFile();
}

QString ProfileDatabase::path() const {
    return m_directory + u'/' + ProfileDatabaseName;
}

Expected<void> ProfileDatabase::open(const QString &directory, const Changes &fill,
                                     const Changes &convertNotes) {
    Expected<void> opened = openFolder(QDir(directory).absolutePath(), fill, convertNotes);
    if (!opened) {
        closeFile();
        m_lock.undo();
        if (m_hasMadeFolder) {
            QDir().rmdir(m_directory);
        }
        m_directory.clear();
    }
    return opened;
}

Expected<void> ProfileDatabase::openFolder(const QString &directory, const Changes &fill,
                                           const Changes &convertNotes) {
    m_directory = directory;
    const QFileInfo folder(m_directory);
    if (folder.exists() && !folder.isDir()) {
        return openingFailure("“%1” is not a folder. Choose a folder for the profile.",
                              m_directory);
    }
    // Nothing is written into a folder of the user's, not even the lock file. Another process may
    // be creating the profile, so its file is looked for last.
    if (folder.exists() && !QFileInfo::exists(path())) {
        Expected<void> unused = checkUnused(m_directory);
        if (!unused && !QFileInfo::exists(path())) {
            return unused;
        }
    }
    m_hasMadeFolder =
        QDir().mkpath(folder.path()) &&
        QDir().mkdir(m_directory, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    if (!QFileInfo(m_directory).isDir()) {
        return openingFailure(
            "The profile folder “%1” could not be created. Check the permissions of the folder "
            "that contains it.",
            m_directory);
    }
    if (Expected<void> locked = m_lock.acquire(m_directory); !locked) {
        const bool isBusy = isEngineError(locked.error(), EngineErrorCode::ProfileInUse);
        // The file may say more precisely what is wrong with the folder.
        const bool canCheck = !isBusy && QFileInfo::exists(path());
        return canCheck ? ProfileInspection::check(path()).and_then([&] { return locked; })
                        : locked;
    }
    return hasFile().and_then([&](bool isThere) {
        return isThere ? checkOrRepair().and_then([&] { return openFile(fill, convertNotes); })
                       : createFile(fill);
    });
}

Expected<bool> ProfileDatabase::hasFile() const {
    return FileIdentity::of(path())
        .map([](const std::optional<FileIdentity> &file) { return file.has_value(); })
        .map_error(
            [&](const Error &error) { return notOpened(path(), error.localizedFailureReason); });
}

Expected<void> ProfileDatabase::createFile(const Changes &fill) {
    if (Expected<void> unused = checkUnused(m_directory); !unused) {
        return unused;
    }
    Expected<void> opened = openFile(fill, [] { return Expected<void>(); });
    if (!opened) {
        closeFile();
        ProfileFolder::removeNewProfile(m_directory);
    }
    return opened;
}

Expected<void> ProfileDatabase::checkOrRepair() {
    Expected<void> checked = ProfileInspection::check(path());
    const bool isOfIndexes =
        !checked && isEngineError(checked.error(), EngineErrorCode::IndexesDamaged);
    const bool isDamaged =
        !checked && isEngineError(checked.error(), EngineErrorCode::ProfileDamaged);
    if (!isOfIndexes && !isDamaged) {
        return checked;
    }
    const Expected<bool> rebuilt = ProfileRecovery::rebuildIndexes(m_directory);
    if (!rebuilt) {
        return failure(rebuilt.error());
    }
    m_hasRebuiltIndexes = *rebuilt;
    if (m_hasRebuiltIndexes) {
        return ProfileInspection::check(path());
    }
    return isOfIndexes ? failure(ProfileInspection::damage(path())) : checked;
}

Expected<void> ProfileDatabase::openFile(const Changes &fill, const Changes &convertNotes) {
    m_protection = ProfilePermissions::removeForOthers(m_directory);
    // SQLite gives the files beside it the same permissions.
    if (Expected<void> created = ProfilePermissions::createFile(path()); !created) {
        return created;
    }
    m_database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connectionName);
    m_database.setDatabaseName(path());
    if (!m_database.open()) {
        const QSqlError error = m_database.lastError();
        return failure(
            FullDisk::isCauseOf(error, path())
                ? engineError(EngineErrorCode::ProfileUnusable, FullDisk::message(path()))
                : notOpened(path(), error.databaseText()));
    }
    if (Expected<void> set = executeAll(connectionSettings()); !set) {
        return set;
    }
    const Expected<QVariant> version = value(ProfileInspection::VersionStatement);
    if (!version) {
        return failure(version.error());
    }
    if (Expected<void> remembered = rememberFiles(); !remembered) {
        return remembered;
    }
    if (version->toInt() == 0) {
        return create(fill);
    }
    if (version->toInt() == ProfileInspection::OldestSchemaVersion) {
        return upgradeNotes(convertNotes);
    }
    if (version->toInt() == ProfileInspection::SchemaVersion) {
        return checkTables();
    }
    return write(
        [&] { return addMissingColumns().and_then([&] { return createMissingTables(); }); });
}

Expected<void> ProfileDatabase::checkTables() const {
    static const QRegularExpression creation(
        QStringLiteral("^CREATE (TABLE|TRIGGER) IF NOT EXISTS (\\w+)"));
    QSet<std::pair<QString, QString>> present;
    Expected<void> done =
        read(QStringLiteral("SELECT type, name FROM sqlite_schema"), {}, [&](const QSqlQuery &row) {
            present.insert({row.value(0).toString(), row.value(1).toString()});
        });
    if (!done) {
        return done;
    }
    const QStringList statements = ProfileSchema::tables() + ProfileSchema::derivedTables();
    for (const QString &statement : statements) {
        const QRegularExpressionMatch created = creation.match(statement);
        if (created.hasMatch() &&
            !present.contains({created.captured(1).toLower(), created.captured(2)})) {
            return failure(ProfileInspection::damage(path()));
        }
    }
    return {};
}

Expected<void> ProfileDatabase::create(const Changes &fill) const {
    return write([&] { return createMissingTables().and_then(fill); });
}

Expected<void> ProfileDatabase::upgradeNotes(const Changes &convertNotes) const {
    return write([&] {
        return executeAll({QStringLiteral("ALTER TABLE notes RENAME TO old_notes"),
                           QStringLiteral(
                               "ALTER TABLE databases ADD COLUMN sent INTEGER NOT NULL DEFAULT 0")})
            .and_then([&] { return addMissingColumns(); })
            .and_then([&] { return createMissingTables(); })
            .and_then(convertNotes)
            .and_then([&] { return execute(QStringLiteral("DROP TABLE old_notes")); });
    });
}

Expected<void> ProfileDatabase::createMissingTables() const {
    return executeAll(ProfileSchema::tables() + ProfileSchema::derivedTables() + versionMarks());
}

Expected<void> ProfileDatabase::addMissingColumns() const {
    QStringList present;
    const Expected<void> done =
        read(QStringLiteral("SELECT name FROM pragma_table_info('states')"), {},
             [&](const QSqlQuery &row) { present.append(row.value(0).toString()); });
    QStringList statements;
    for (const QString &column : ProfileSchema::columnsOfResults()) {
        if (!present.isEmpty() && !present.contains(column.section(u' ', 0, 0))) {
            statements.append(QStringLiteral("ALTER TABLE states ADD COLUMN ") + column);
        }
    }
    return done.and_then([&] { return executeAll(statements); });
}

Expected<void> ProfileDatabase::executeAll(const QStringList &statements) const {
    for (const QString &statement : statements) {
        if (Expected<void> done = execute(statement); !done) {
            return done;
        }
    }
    return {};
}

void ProfileDatabase::closeFile() {
    m_files.clear();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_connectionName);
}

Expected<QSqlQuery> ProfileDatabase::prepare(const QString &statement) const {
    const ProfileReader *reader = ProfileReader::current(*this);
    QSqlQuery query = reader ? reader->query() : QSqlQuery(m_database);
    query.setForwardOnly(true);
    if (!query.prepare(statement)) {
        return failure(error(query.lastError()));
    }
    return query;
}

Expected<void> ProfileDatabase::run(const QString &statement, const QVariantList &values) const {
    return prepare(statement).and_then([&](QSqlQuery query) { return run(query, values); });
}

Expected<void> ProfileDatabase::run(QSqlQuery &query, const QVariantList &values) const {
    return m_isWriting ? execute(query, values) : write([&] { return execute(query, values); });
}

Expected<void> ProfileDatabase::execute(const QString &statement) const {
    return prepare(statement).and_then([&](QSqlQuery query) { return execute(query, {}); });
}

Expected<void> ProfileDatabase::execute(QSqlQuery &query, const QVariantList &values) const {
    for (qsizetype i = 0; i < values.size(); ++i) {
        query.bindValue(static_cast<int>(i), values[i]);
    }
    if (!query.exec()) {
        return failure(error(query.lastError()));
    }
    return {};
}

Expected<void> ProfileDatabase::read(const QString &statement, const QVariantList &values,
                                     const RowVisitor &visit) const {
    return prepare(statement).and_then([&](QSqlQuery query) { return read(query, values, visit); });
}

Expected<void> ProfileDatabase::read(QSqlQuery &query, const QVariantList &values,
                                     const RowVisitor &visit) const {
    const ProfileReader *reader = ProfileReader::current(*this);
    if (reader && reader->isCancelled()) {
        return failure(operationCancelled());
    }
    if (Expected<void> executed = execute(query, values); !executed) {
        return executed;
    }
    while (query.next()) {
        if (reader && reader->isCancelled()) {
            return failure(operationCancelled());
        }
        visit(query);
    }
    // The end of the result and an error in the middle of it differ in this only.
    if (query.lastError().isValid()) {
        return failure(error(query.lastError()));
    }
    query.finish();
    // The reader has opened what the path names now.
    return reader ? checkFiles() : Expected<void>();
}

Expected<QVariant> ProfileDatabase::value(const QString &statement,
                                          const QVariantList &values) const {
    QVariant first;
    const Expected<void> done = read(statement, values, [&](const QSqlQuery &row) {
        first = first.isValid() ? first : row.value(0);
    });
    if (!done) {
        return failure(done.error());
    }
    return first;
}

Expected<void> ProfileDatabase::write(const Changes &changes) const {
    if (Expected<void> begun = execute(QStringLiteral("BEGIN IMMEDIATE")); !begun) {
        return begun;
    }
    m_isWriting = true;
    Expected<void> done = changes().and_then([&] { return checkFiles(); }).and_then([&] {
        return execute(QStringLiteral("COMMIT"));
    });
    m_isWriting = false;
    if (!done) {
        // Fails if SQLite has rolled back by itself, as it does after some errors.
        static_cast<void>(execute(QStringLiteral("ROLLBACK")));
    }
    return done.and_then([&] { return checkFiles(); });
}

Expected<void> ProfileDatabase::moveLog(const QString &path, const ProfileFiles &files) {
    const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces);
    Expected<void> moved;
    {
        QSqlDatabase connection = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        connection.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI"));
        connection.setDatabaseName(QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded()) +
                                   QStringLiteral("?mode=rw"));
        moved = connection.open() ? files.check() : failure(errorOf(path, connection.lastError()));
        QSqlQuery query(connection);
        if (moved && !query.exec(QStringLiteral("PRAGMA wal_checkpoint(PASSIVE)"))) {
            moved = failure(errorOf(path, query.lastError()));
        }
    }
    QSqlDatabase::removeDatabase(name);
    return moved;
}

Expected<void> ProfileDatabase::rememberFiles() {
    Expected<void> remembered;
    for (const QString &file :
         {path(), ProfileFolder::logOf(path()), m_directory + u'/' + ProfileLock::FileName}) {
        remembered = remembered.and_then([&] { return m_files.add(file); });
    }
    return remembered.map_error(
        [&](const Error &error) { return notOpened(path(), error.localizedFailureReason); });
}

QVariant ProfileDatabase::text(const QString &string) {
    return string.isNull() ? QStringLiteral("") : string;
}

QVariant ProfileDatabase::exactText(const QString &string) {
    return string.isEmpty() ? QByteArray("") : string.toUtf8();
}

QString ProfileDatabase::exactText(const QVariant &bytes) {
    return ExactText::fromUtf8(bytes.toByteArray());
}

Error ProfileDatabase::errorOf(const QString &path, const QSqlError &reason) {
    if (FullDisk::isCauseOf(reason, path)) {
        return engineError(EngineErrorCode::ProfileNotWritten, FullDisk::message(path));
    }
    const bool isDamage = sqliteCode(reason) == SqliteCode::Corrupt;
    return engineError(
        EngineErrorCode::ProfileNotWritten,
        localizedSyncString(
            isDamage ? "The profile “%1” is damaged (%2). Quit Velmora and start it "
                       "again: it then repairs the profile or offers to restore a backup."
                     : "The profile “%1” cannot be read or written: %2. Check its disk and its "
                       "permissions, then try again.")
            .arg(path, reason.databaseText()));
}
