#include "Engine/Profile/ProfileRecovery.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>
#include <cerrno>
#include <cstring>

#include "Application/Interface/ProfileDatabaseName.h"
#include "Engine/Foundation/EngineError.h"
#include "Engine/Profile/ProfileFolder.h"
#include "Engine/Profile/ProfileLock.h"
#include "Engine/Profile/ReadOnlyConnection.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/DurableFile.h"

namespace {

/// Begins the names of the folders that hold copies during a recovery.
const QString UnfinishedPrefix = QStringLiteral(".velmora-recovery-");
const QString RecoveryConnection = QStringLiteral("velmora-profile-recovery");

Error notReplaced(const QString &path, const QString &reason) {
    return engineError(
        EngineErrorCode::BackupFailed,
        localizedSyncString("The profile “%1” could not be replaced: %2").arg(path, reason));
}

/// Returns the conversion of an error of the system into notReplaced().
auto toNotReplaced(const QString &path) {
    return [path](const Error &error) { return notReplaced(path, error.localizedFailureReason); };
}

/// Returns the files of the database: SQLite would apply a log that is left behind to the next
/// database. They are looked for by name, because the folder may not be readable.
QStringList filesOf(const QString &directory) {
    QStringList files = ProfileFolder::databaseFiles();
    files.removeIf([&](const QString &name) {
        const QFileInfo file(directory + u'/' + name);
        return !file.exists() && !file.isSymLink();
    });
    return files;
}

/// Moves the files of the database away.
Expected<void> setAside(const QString &directory) {
    const QStringList files = filesOf(directory);
    if (files.isEmpty()) {
        return {};
    }
    const QString name =
        QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH-mm-ss-zzz"));
    const QString folder = directory + u'/' + ProfileRecovery::FolderName + u'/' + name;
    if (!QDir().mkpath(folder)) {
        return failure(notReplaced(directory, QString::fromLocal8Bit(std::strerror(errno))));
    }
    Expected<void> done = DurableFile::flush(QFileInfo(folder).path());
    for (const QString &file : files) {
        done = done.and_then(
            [&] { return DurableFile::rename(directory + u'/' + file, folder + u'/' + file); });
    }
    return done.and_then([&] { return DurableFile::flush(directory); })
        .map_error(toNotReplaced(directory));
}

/// Puts the complete and closed database `file` in the place of the profile's.
Expected<void> replace(const QString &directory, const QString &file) {
    return setAside(directory).and_then([&] {
        return DurableFile::flush(file)
            .and_then(
                [&] { return DurableFile::rename(file, directory + u'/' + ProfileDatabaseName); })
            .map_error(toNotReplaced(directory));
    });
}

/// Copies the locations and their states; all or none.
bool copyLocations(const QString &source, QSqlDatabase &target) {
    QSqlQuery query(target);
    query.prepare(QStringLiteral("ATTACH ? AS source"));
    query.addBindValue(source);
    if (!query.exec() || !query.exec(QStringLiteral("BEGIN"))) {
        return false;
    }
    const bool isCopied =
        query.exec(QStringLiteral("INSERT INTO locations SELECT uuid, position, url FROM"
                                  " source.locations")) &&
        query.exec(QStringLiteral(
            "INSERT INTO states (location_uuid, database_uuid, database_name, enabled,"
            " sync_on_open, sync_on_close, schedule, schedule_minutes, schedule_days)"
            " SELECT location_uuid, database_uuid, database_name, enabled, sync_on_open,"
            " sync_on_close, schedule, schedule_minutes, schedule_days FROM source.states"
            " ORDER BY id")) &&
        query.exec(QStringLiteral("COMMIT"));
    if (!isCopied) {
        query.exec(QStringLiteral("ROLLBACK"));
    }
    query.exec(QStringLiteral("DETACH source"));
    return isCopied;
}

/// Copies the locations from the first of `sources` that can be read. Returns whether there is one.
bool copyLocationsFrom(const QStringList &sources, const QString &target) {
    bool isCopied = false;
    {
        QSqlDatabase database =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), RecoveryConnection);
        database.setDatabaseName(target);
        isCopied = database.open() &&
                   std::any_of(sources.begin(), sources.end(), [&](const QString &source) {
                       return copyLocations(source, database);
                   });
    }
    QSqlDatabase::removeDatabase(RecoveryConnection);
    return isCopied;
}

/// Copies a file. A file that cannot be read is none; a copy that cannot be written is an error.
Expected<bool> copyFile(const QString &from, const QString &to) {
    const Expected<void> copied = DurableFile::copy(from, to);
    if (!copied && (copied.error().code == ENOSPC || copied.error().code == EDQUOT)) {
        return failure(toNotReplaced(QFileInfo(to).path())(copied.error()));
    }
    return copied.has_value();
}

/// Returns copies of the databases from which locations may be read, best first. SQLite writes
/// beside a database that it reads, which must not happen to the originals.
Expected<QStringList> sourcesOfLocations(const QString &directory, const QString &folder) {
    const QString damaged = folder + u'/' + ProfileDatabaseName;
    const QString backupCopy = folder + QStringLiteral("/backup");
    Expected<bool> isReadable = QFileInfo::exists(directory + u'/' + ProfileDatabaseName);
    const QStringList files = filesOf(directory);
    for (const QString &file : files) {
        const bool isWorth = isReadable && *isReadable;
        isReadable = isWorth ? copyFile(directory + u'/' + file, folder + u'/' + file) : isReadable;
    }
    if (!isReadable) {
        return failure(isReadable.error());
    }
    const QStringList sources = *isReadable ? QStringList(damaged) : QStringList();
    // If the backups cannot be read and the database has no locations, the user learns that none
    // were found.
    const auto backup =
        ProfileBackups(directory).newestSound(QDate::currentDate()).value_or(std::nullopt);
    return (backup ? copyFile(backup->path, backupCopy) : false).map([&](bool isCopied) {
        return isCopied ? sources + QStringList(backupCopy) : sources;
    });
}

}  // namespace

bool ProfileRecovery::hasTraces(const QString &directory) {
    const QString log = directory + u'/' + ProfileDatabaseName + QStringLiteral("-wal");
    return QFileInfo(directory + u'/' + ProfileBackups::FolderName).isDir() ||
           QFileInfo(directory + u'/' + FolderName).isDir() || QFileInfo(log).size() > 0;
}

Expected<void> ProfileRecovery::restoreBackup(const QString &directory) {
    ProfileLock lock;
    if (Expected<void> locked = lock.acquire(directory); !locked) {
        return locked;
    }
    const auto found = ProfileBackups(directory).newestSound(QDate::currentDate());
    if (!found) {
        return failure(found.error());
    }
    const std::optional<ProfileBackups::Backup> &backup = *found;
    if (!backup) {
        return failure(
            engineError(EngineErrorCode::BackupFailed,
                        "The profile “%1” has no intact backup. Use another profile, and get your "
                        "notes from the locations with which you have synchronized.",
                        directory));
    }
    const QTemporaryDir folder(directory + u'/' + UnfinishedPrefix + QStringLiteral("XXXXXX"));
    const QString copy = folder.filePath(ProfileDatabaseName);
    if (!folder.isValid()) {
        return failure(notReplaced(directory, folder.errorString()));
    }
    return DurableFile::copy(backup->path, copy)
        .map_error(toNotReplaced(directory))
        .and_then([&] { return ProfileBackups::verify(copy); })
        .and_then([&] { return replace(directory, copy); });
}

Expected<bool> ProfileRecovery::begin(
    const QString &directory, const std::function<Expected<void>(const QString &folder)> &create) {
    ProfileLock lock;
    if (Expected<void> locked = lock.acquire(directory); !locked) {
        return failure(locked.error());
    }
    const QTemporaryDir folder(directory + u'/' + UnfinishedPrefix + QStringLiteral("XXXXXX"));
    const QTemporaryDir copies(directory + u'/' + UnfinishedPrefix + QStringLiteral("XXXXXX"));
    if (!folder.isValid() || !copies.isValid()) {
        return failure(notReplaced(directory, (folder.isValid() ? copies : folder).errorString()));
    }
    const QString path = folder.filePath(ProfileDatabaseName);
    return create(folder.path())
        .and_then([&] { return sourcesOfLocations(directory, copies.path()); })
        .and_then([&](const QStringList &sources) {
            const bool areCopied = copyLocationsFrom(sources, path);
            return replace(directory, path).map([&] { return areCopied; });
        });
}

void ProfileRecovery::removeUnfinished(const QString &directory) {
    // QTemporaryDir replaces the template by six letters.
    const QString letters = QStringLiteral("[a-zA-Z]").repeated(6);
    const QStringList folders = QDir(directory).entryList(
        {UnfinishedPrefix + letters}, QDir::Dirs | QDir::Hidden | QDir::NoSymLinks);
    for (const QString &folder : folders) {
        QDir(directory + u'/' + folder).removeRecursively();
    }
}
