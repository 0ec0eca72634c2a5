#include "Engine/Profile/ProfileRecovery.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>
#include <cerrno>
#include <cstring>

#include "Engine/Foundation/EngineError.h"
#include "Platform/Foundation/DurableFile.h"
#include "Engine/Profile/ProfileFolder.h"
#include "Engine/Profile/ProfileLock.h"
#include "Engine/Profile/ReadOnlyConnection.h"
#include "Host/SyncStrings.h"

namespace {

using ProfileFolder::DatabaseName;
const QString RecoveryConnection = QStringLiteral("velmora-profile-recovery");

tl::unexpected<Error> systemFailure(const QString &path) {
    return failure(engineError(EngineErrorCode::BackupFailed,
                               localizedSyncString("The profile “%1” could not be replaced: %2")
                                   .arg(path, QString::fromLocal8Bit(std::strerror(errno)))));
}

/// The files of the database: SQLite would apply a log that is left behind to the next database.
QStringList filesOf(const QString &directory) {
    return QDir(directory).entryList({DatabaseName, DatabaseName + u'-' + u'*'},
                                     QDir::Files | QDir::Hidden | QDir::System);
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
        return systemFailure(directory);
    }
    for (const QString &file : files) {
        if (!DurableFile::rename(directory + u'/' + file, folder + u'/' + file)) {
            return systemFailure(directory);
        }
    }
    return DurableFile::flush(directory) ? Expected<void>() : systemFailure(directory);
}

/// Puts the complete and closed database `file` in the place of the profile's.
Expected<void> replace(const QString &directory, const QString &file) {
    return setAside(directory).and_then([&]() -> Expected<void> {
        if (!DurableFile::flush(file) ||
            !DurableFile::rename(file, directory + u'/' + DatabaseName)) {
            return systemFailure(directory);
        }
        return {};
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

/// Copies the locations from the first of `sources` that can be read.
void copyLocationsFrom(const QStringList &sources, const QString &target) {
    {
        QSqlDatabase database =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), RecoveryConnection);
        database.setDatabaseName(target);
        if (database.open()) {
            std::any_of(sources.begin(), sources.end(),
                        [&](const QString &source) { return copyLocations(source, database); });
        }
    }
    QSqlDatabase::removeDatabase(RecoveryConnection);
}

/// Copies of the databases from which locations may be read, best first. SQLite writes beside a
/// database that it reads, which must not happen to the originals.
QStringList sourcesOfLocations(const QString &directory, const QString &folder) {
    const QString damaged = folder + QStringLiteral("/damaged");
    QStringList sources;
    const QStringList files = filesOf(directory);
    for (const QString &file : files) {
        DurableFile::copy(directory + u'/' + file, damaged + file.mid(DatabaseName.size()));
    }
    sources.append(damaged);
    if (const auto backup = ProfileBackups(directory).newestSound()) {
        const QString copy = folder + QStringLiteral("/backup");
        DurableFile::copy(backup->path, copy);
        sources.append(copy);
    }
    return sources;
}

}  // namespace

bool ProfileRecovery::hasTraces(const QString &directory) {
    const QString log = directory + u'/' + DatabaseName + QStringLiteral("-wal");
    return QFileInfo(directory + u'/' + ProfileBackups::FolderName).isDir() ||
           QFileInfo(directory + u'/' + FolderName).isDir() || QFileInfo(log).size() > 0;
}

Expected<void> ProfileRecovery::restoreBackup(const QString &directory) {
    ProfileLock lock;
    if (Expected<void> locked = lock.acquire(directory); !locked) {
        return locked;
    }
    const std::optional<ProfileBackups::Backup> backup = ProfileBackups(directory).newestSound();
    if (!backup) {
        return failure(engineError(EngineErrorCode::BackupFailed,
                                   "The profile “%1” has no backup that is sound.", directory));
    }
    const QTemporaryDir folder(directory + QStringLiteral("/Restored Profile-XXXXXX"));
    const QString copy = folder.filePath(DatabaseName);
    if (!folder.isValid() || !DurableFile::copy(backup->path, copy)) {
        return systemFailure(directory);
    }
    return ProfileBackups::verify(copy).and_then([&] { return replace(directory, copy); });
}

Expected<void> ProfileRecovery::begin(
    const QString &directory, const std::function<Expected<void>(const QString &folder)> &create) {
    ProfileLock lock;
    if (Expected<void> locked = lock.acquire(directory); !locked) {
        return locked;
    }
    const QTemporaryDir folder(directory + QStringLiteral("/New Profile-XXXXXX"));
    const QTemporaryDir sources(directory + QStringLiteral("/Old Profile-XXXXXX"));
    if (!folder.isValid() || !sources.isValid()) {
        return systemFailure(directory);
    }
    const QString path = folder.filePath(DatabaseName);
    return create(folder.path()).and_then([&] {
        copyLocationsFrom(sourcesOfLocations(directory, sources.path()), path);
        return replace(directory, path);
    });
}
