#include "Engine/Profile/ProfileRecovery.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtCore/QTemporaryDir>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>
#include <algorithm>
#include <array>
#include <cerrno>

#include "Application/Interface/ProfileConstants.h"
#include "Engine/Foundation/EngineError.h"
#include "Engine/Profile/FullDisk.h"
#include "Engine/Profile/ProfileFolder.h"
#include "Engine/Profile/ProfileInspection.h"
#include "Engine/Profile/ProfileLock.h"
#include "Engine/Profile/ReadOnlyConnection.h"
#include "Engine/Profile/SqliteCode.h"
#include "Engine/Profile/WritableConnection.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/DurableFile.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/SystemError.h"

namespace {

/// Begins the names of the folders that hold copies during a recovery.
const QString UnfinishedPrefix = QStringLiteral(".velmora-recovery-");

tl::unexpected<Error> replacementFailure(const QString &directory, const QString &reason) {
    return failure(
        engineError(EngineErrorCode::BackupFailed,
                    localizedSyncString("The profile “%1” could not be replaced: %2. Check its "
                                        "disk and its permissions, then try again.")
                        .arg(directory, reason)));
}

/// Returns the conversion of an error of the system.
auto toReplacementFailure(const QString &directory) {
    return [directory](const Error &cause) {
        return isDiskFull(cause)
                   ? engineError(EngineErrorCode::BackupFailed, FullDisk::message(directory))
                   : replacementFailure(directory, cause.localizedFailureReason).value();
    };
}

/// Returns the error of the system call that has just failed.
tl::unexpected<Error> systemFailure(const QString &directory) {
    return failure(toReplacementFailure(directory)(systemError(errno, {})));
}

template <class Value>
using Result = WritableConnection::Result<Value>;

/// Returns the error of an SQLite operation that has failed on a copy in the profile `directory`.
tl::unexpected<Error> databaseFailure(const QString &directory, const QSqlError &error) {
    return FullDisk::isCauseOf(error, directory + u'/' + ProfileDatabaseName)
               ? failure(engineError(EngineErrorCode::BackupFailed, FullDisk::message(directory)))
               : replacementFailure(directory, error.databaseText());
}

/// Returns whether SQLite has failed because of the disk, and not because of what a database
/// contains.
bool isOfDisk(const QSqlError &error) {
    const SqliteCode code = sqliteCode(error);
    return code == SqliteCode::Full || code == SqliteCode::InputOutputError ||
           code == SqliteCode::CannotOpen;
}

/// Returns `result`, or false if it failed because of what the database contains.
Expected<bool> unlessDamaged(const QString &directory, const Result<bool> &result) {
    if (result) {
        return *result;
    }
    return isOfDisk(result.error()) ? Expected<bool>(databaseFailure(directory, result.error()))
                                    : Expected<bool>(false);
}

/// Returns the files of the database: SQLite would apply a log that is left behind to the next
/// database. They are looked for by name, because the folder may not be readable.
Expected<QStringList> filesOf(const QString &directory) {
    Expected<QStringList> files = QStringList();
    for (const QString &name : ProfileFolder::databaseFiles()) {
        files = files.and_then([&](const QStringList &before) {
            return FileManager::exists(directory + u'/' + name).map([&](bool isThere) {
                return isThere ? before + QStringList(name) : before;
            });
        });
    }
    return files.map_error(toReplacementFailure(directory));
}

/// The folder for the damaged files of a profile folder, and the files that belong into it.
struct Damaged {
    QString directory;
    QString folder;
    QStringList files;
};

Expected<void> makeFolder(const Damaged &damaged) {
    if (!QDir().mkpath(damaged.folder)) {
        return systemFailure(damaged.directory);
    }
    return DurableFile::flush(QFileInfo(damaged.folder).path())
        .map_error(toReplacementFailure(damaged.directory));
}

/// Moves the files into the folder, the database first: it must not be opened without its log.
Expected<void> setAside(const Damaged &damaged) {
    Expected<void> done;
    for (const QString &file : damaged.files) {
        done = done.and_then([&] {
            return DurableFile::rename(damaged.directory + u'/' + file,
                                       damaged.folder + u'/' + file);
        });
    }
    return done.and_then([&] { return DurableFile::flush(damaged.directory); })
        .map_error(toReplacementFailure(damaged.directory));
}

/// Returns `reason`, and where the damaged files are.
Error leftAside(const Damaged &damaged, const Error &reason) {
    return engineError(
        EngineErrorCode::BackupFailed,
        localizedSyncString("%1 Files of the damaged profile were moved to “%2” and could not be "
                            "moved back. Check the disk, then try again.")
            .arg(reason.localizedDescription, damaged.folder));
}

/// Moves the files that are in the folder back, the database last. Returns `reason`, and where the
/// files are if they cannot be moved.
Error moveBack(const Damaged &damaged, const Error &reason) {
    const bool areMoved =
        std::all_of(damaged.files.rbegin(), damaged.files.rend(), [&](const QString &file) {
            const QString moved = damaged.folder + u'/' + file;
            const auto isGone = [&] { return !FileManager::exists(moved).value_or(true); };
            // The folder may not have been written to the disk, but the file is where it belongs.
            return isGone() || DurableFile::rename(moved, damaged.directory + u'/' + file) ||
                   isGone();
        });
    if (!areMoved) {
        return leftAside(damaged, reason);
    }
    QDir().rmdir(damaged.folder);
    QDir().rmdir(QFileInfo(damaged.folder).path());
    return reason;
}

/// Moves the new database back from `target` to `file`, unless it is still there: SQLite must not
/// find it beside the log of the old one. If that is not known, `target` may be the old one, which
/// must not replace it.
Expected<void> withdraw(const QString &target, const QString &file) {
    return FileManager::exists(file).and_then([&](bool isThere) {
        return isThere ? Expected<void>() : DurableFile::rename(target, file);
    });
}

/// Puts the complete and closed database `file` in the place of the profile's, whose files are set
/// aside. If it fails, none are.
Expected<void> replace(const QString &directory, const QString &file) {
    const Expected<QStringList> files = filesOf(directory);
    if (!files) {
        return failure(files.error());
    }
    const QString name =
        QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH-mm-ss-zzz"));
    const Damaged damaged{directory, directory + u'/' + ProfileRecovery::FolderName + u'/' + name,
                          *files};
    const QString target = directory + u'/' + ProfileDatabaseName;
    if (const Expected<void> flushed = DurableFile::flush(file); !flushed) {
        return failure(toReplacementFailure(directory)(flushed.error()));
    }
    const Expected<void> replaced =
        (damaged.files.isEmpty() ? Expected<void>() : makeFolder(damaged))
            .and_then([&] { return setAside(damaged); })
            .and_then([&] {
                return DurableFile::rename(file, target).map_error(toReplacementFailure(directory));
            });
    if (replaced) {
        return {};
    }
    const bool isWithdrawn = withdraw(target, file) || FileManager::exists(file).value_or(false);
    return failure(isWithdrawn ? moveBack(damaged, replaced.error())
                               : leftAside(damaged, replaced.error()));
}

/// The tables of the locations and their columns.
const std::array<std::pair<QString, QString>, 2> Tables = {
    {{QStringLiteral("locations"), QStringLiteral("uuid, position, url")},
     {QStringLiteral("states"),
      QStringLiteral("location_uuid, database_uuid, database_name, enabled, sync_on_open,"
                     " sync_on_close, schedule, schedule_minutes, schedule_days")}}};

/// Reads every row of the tables in the attached database "source".
Result<void> readLocations(const WritableConnection &connection) {
    Result<void> done;
    for (const auto &[table, columns] : Tables) {
        const QString statement = QStringLiteral("SELECT %2 FROM source.%1").arg(table, columns);
        done = done.and_then([&] { return connection.run(statement); });
    }
    return done;
}

Result<void> insertLocations(const WritableConnection &connection) {
    QStringList statements{QStringLiteral("BEGIN")};
    for (const auto &[table, columns] : Tables) {
        statements.append(
            QStringLiteral("INSERT INTO %1 (%2) SELECT %2 FROM source.%1 ORDER BY rowid")
                .arg(table, columns));
    }
    return connection.runAll(statements + QStringList{QStringLiteral("COMMIT")});
}

/// Copies the locations and their states from the database `source` to `target`, a copy in the
/// profile `directory`, all or none. Returns whether they can be read and do not contradict each
/// other.
Expected<bool> copyLocations(const QString &directory, const QString &source,
                             const QString &target) {
    const auto connection = WritableConnection::open(target);
    if (!connection) {
        return databaseFailure(directory, connection.error());
    }
    const Result<void> read =
        (*connection)->run(QStringLiteral("ATTACH ? AS source"), {source}).and_then([&] {
            return readLocations(**connection);
        });
    if (!read) {
        return unlessDamaged(directory, tl::make_unexpected(read.error()));
    }
    const Result<void> copied = insertLocations(**connection);
    const bool isOfSource = !copied && sqliteCode(copied.error()) == SqliteCode::Constraint;
    return copied || isOfSource ? Expected<bool>(copied.has_value())
                                : databaseFailure(directory, copied.error());
}

/// Copies the locations from the first of `sources` that can be read. Returns whether there is one.
Expected<bool> copyLocationsFrom(const QString &directory, const QStringList &sources,
                                 const QString &target) {
    Expected<bool> isCopied = false;
    for (const QString &source : sources) {
        isCopied = isCopied.and_then([&](bool isDone) -> Expected<bool> {
            return isDone ? true : copyLocations(directory, source, target);
        });
    }
    return isCopied;
}

/// Returns whether at most one index of the operations in the closed database `file` differs from
/// their table. All of them contain the database of an operation: if several differ, that value is
/// probably damaged in the table, and rebuilding would move a note to another database.
Result<bool> isTableOfOperationsCredible(const QString &file) {
    QStringList indexes;
    QSet<QString> differing;
    const auto addIndex = [&](const QSqlQuery &row) { indexes.append(row.value(1).toString()); };
    const auto addProblem = [&](const QSqlQuery &row) {
        const QString name = row.value(0).toString().section(u' ', -1);
        if (indexes.contains(name)) {
            differing.insert(name);
        }
    };
    return WritableConnection::open(file)
        .and_then([&](const auto &database) {
            return database->run(QStringLiteral("PRAGMA index_list(operations)"), {}, addIndex)
                .and_then([&] {
                    return database->run(QStringLiteral("PRAGMA integrity_check(1000000)"), {},
                                         addProblem);
                });
        })
        .map([&] { return !indexes.isEmpty() && differing.size() <= 1; });
}

/// Rebuilds the indexes in the closed database `file`, all or none.
Result<bool> reindex(const QString &file) {
    return WritableConnection::open(file)
        .and_then([](const auto &database) {
            return database->runAll({QStringLiteral("BEGIN IMMEDIATE"),
                                     QStringLiteral("REINDEX operations"),
                                     QStringLiteral("REINDEX versions"), QStringLiteral("COMMIT")});
        })
        .map([] { return true; });
}

/// Returns whether the closed database `file` is a sound profile in which no row refers to one that
/// does not exist.
Expected<bool> isSound(const QString &file) {
    const auto reference = [](const auto &database) {
        return database->value(QStringLiteral("PRAGMA foreign_key_check"));
    };
    const Expected<QVariant> dangling =
        ProfileInspection::check(file)
            .and_then([&] {
                return ReadOnlyConnection::open(file, ReadOnlyConnection::Sharing::Immutable);
            })
            .and_then(reference);
    if (dangling) {
        return !dangling->isValid();
    }
    const bool isDamaged = isEngineError(dangling.error(), EngineErrorCode::ProfileDamaged) ||
                           isEngineError(dangling.error(), EngineErrorCode::IndexesDamaged);
    return isDamaged ? Expected<bool>(false) : failure(dangling.error());
}

bool canBeRead(const QString &path) {
    constexpr qint64 chunkSize = 1LL << 20;
    QFile file(path);
    bool isRead = file.open(QIODevice::ReadOnly);
    while (isRead && !file.atEnd()) {
        isRead = !file.read(chunkSize).isEmpty();
    }
    return isRead;
}

/// Copies a file into the profile folder `directory`. Returns whether it can be read.
Expected<bool> copyFile(const QString &from, const QString &to, const QString &directory) {
    const Expected<void> copied = DurableFile::copy(from, to);
    if (!copied && (isDiskFull(copied.error()) || canBeRead(from))) {
        return failure(toReplacementFailure(directory)(copied.error()));
    }
    return copied.has_value();
}

/// Copies the database that is the first of `files`, and its log, into `folder`, which is in the
/// profile `directory`. Returns whether there are any and they can be read.
Expected<bool> copyDatabase(const QStringList &files, const QString &folder,
                            const QString &directory) {
    Expected<bool> isReadable =
        !files.isEmpty() && QFileInfo(files.constFirst()).fileName() == ProfileDatabaseName;
    for (const QString &file : files) {
        const bool isWorth = isReadable && *isReadable;
        isReadable = isWorth ? copyFile(file, folder + u'/' + QFileInfo(file).fileName(), directory)
                             : isReadable;
    }
    return isReadable;
}

Expected<QStringList> pathsIn(const QString &directory) {
    return filesOf(directory).map([&](QStringList paths) {
        for (QString &path : paths) {
            path.prepend(directory + u'/');
        }
        return paths;
    });
}

/// Returns the files of the damaged database, the database first. If a recovery was interrupted, it
/// has set them aside, or the first of them.
Expected<QStringList> pathsOfDamaged(const QString &directory) {
    Expected<QStringList> present = pathsIn(directory);
    if (!present || present->contains(directory + u'/' + ProfileDatabaseName)) {
        return present;
    }
    const QString folder = directory + u'/' + ProfileRecovery::FolderName;
    return FileManager::names(folder, std::filesystem::file_type::directory)
        .map_error([&](const Error &error) {
            return ProfileFolder::unreadable(folder, error.localizedFailureReason,
                                             EngineErrorCode::BackupFailed);
        })
        .and_then([&](const QStringList &names) {
            // They are named after the time.
            const auto latest = std::max_element(names.begin(), names.end());
            return latest == names.end()
                       ? present
                       : pathsIn(folder + u'/' + *latest).map([&](const QStringList &aside) {
                             return aside + *present;
                         });
        });
}

/// Copies the files of the damaged database into `folder`. Returns whether they can be read.
Expected<bool> copyDamaged(const QString &directory, const QString &folder) {
    return pathsOfDamaged(directory).and_then(
        [&](const QStringList &files) { return copyDatabase(files, folder, directory); });
}

/// Moves what is in the log of the closed database `file` into the file itself. SQLite does so when
/// a database is closed, but does not report if it fails.
Expected<void> mergeLog(const QString &directory, const QString &file) {
    bool isMerged = false;
    // The first column says whether something is left in the log.
    const auto look = [&](const QSqlQuery &row) { isMerged = row.value(0).toInt() == 0; };
    const Result<void> done = WritableConnection::open(file).and_then([&](const auto &database) {
        return database->run(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"), {}, look);
    });
    if (!done) {
        return databaseFailure(directory, done.error());
    }
    return isMerged ? Expected<void>()
                    : replacementFailure(directory, QString::fromUtf8(sqlite3_errstr(SQLITE_BUSY)));
}

/// Makes the closed database `file` a single file, and returns an error unless it is sound.
Expected<void> complete(const QString &directory, const QString &file) {
    return mergeLog(directory, file).and_then([&] { return ProfileBackups::verify(file); });
}

/// Copies `backup` into the empty folder `folder`, and lets `amend` add what it lacks.
Expected<void> prepareBackup(const QString &directory, const QString &backup, const QString &folder,
                             const ProfileRecovery::Amendment &amend) {
    const QTemporaryDir copies(directory + u'/' + UnfinishedPrefix + QStringLiteral("XXXXXX"));
    if (!copies.isValid()) {
        return systemFailure(directory);
    }
    const QString copy = folder + u'/' + ProfileDatabaseName;
    return DurableFile::copy(backup, copy)
        .map_error(toReplacementFailure(directory))
        .and_then([&] { return copyDamaged(directory, copies.path()); })
        .and_then([&](bool) { return amend(folder, copies.filePath(ProfileDatabaseName)); })
        .and_then([&] { return complete(directory, copy); });
}

/// Copies of the databases from which locations may be read, best first.
struct LocationSources {
    QStringList paths;
    /// Why there may be another one, which could not be looked for.
    std::optional<Error> failure;
};

/// SQLite writes beside a database that it reads, which must not happen to the originals.
Expected<LocationSources> sourcesOfLocations(const QString &directory, const QString &folder) {
    const QString backupCopy = folder + QStringLiteral("/backup");
    const Expected<bool> isReadable = copyDamaged(directory, folder);
    if (!isReadable) {
        return failure(isReadable.error());
    }
    LocationSources sources;
    if (*isReadable) {
        sources.paths.append(folder + u'/' + ProfileDatabaseName);
    }
    const auto backup = ProfileBackups(directory).newestSound(QDate::currentDate());
    if (!backup) {
        sources.failure = backup.error();
        return sources;
    }
    return (*backup ? copyFile((*backup)->path, backupCopy, directory) : false)
        .map([&](bool isCopied) {
            if (isCopied) {
                sources.paths.append(backupCopy);
            }
            return sources;
        });
}

}  // namespace

Expected<bool> ProfileRecovery::hasTraces(const QString &directory) {
    const QString log = ProfileFolder::logOf(directory + u'/' + ProfileDatabaseName);
    return FileManager::names(directory, std::filesystem::file_type::directory)
        .and_then([&](const QStringList &folders) {
            return folders.contains(ProfileBackups::FolderName) || folders.contains(FolderName)
                       ? Expected<bool>(true)
                       : FileManager::size(log).map([](qint64 size) { return size > 0; });
        })
        .map_error([&](const Error &error) {
            return ProfileFolder::unreadable(directory, error.localizedFailureReason,
                                             EngineErrorCode::ProfileUnusable);
        });
}

Expected<void> ProfileRecovery::restoreBackup(const QString &directory, const Amendment &amend) {
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
    if (!folder.isValid()) {
        return systemFailure(directory);
    }
    return prepareBackup(directory, backup->path, folder.path(), amend).and_then([&] {
        return replace(directory, folder.filePath(ProfileDatabaseName));
    });
}

Expected<ProfileRecovery::Beginning> ProfileRecovery::begin(
    const QString &directory, const std::function<Expected<void>(const QString &folder)> &create,
    const Amendment &amend) {
    ProfileLock lock;
    if (Expected<void> locked = lock.acquire(directory); !locked) {
        return failure(locked.error());
    }
    const QTemporaryDir folder(directory + u'/' + UnfinishedPrefix + QStringLiteral("XXXXXX"));
    const QTemporaryDir copies(directory + u'/' + UnfinishedPrefix + QStringLiteral("XXXXXX"));
    if (!folder.isValid() || !copies.isValid()) {
        return systemFailure(directory);
    }
    const QString path = folder.filePath(ProfileDatabaseName);
    return create(folder.path())
        .and_then([&] { return sourcesOfLocations(directory, copies.path()); })
        .and_then([&](const LocationSources &sources) {
            return copyLocationsFrom(directory, sources.paths, path).and_then([&](bool areCopied) {
                return amend(folder.path(), copies.filePath(ProfileDatabaseName))
                    .and_then([&] { return complete(directory, path); })
                    .and_then([&] { return replace(directory, path); })
                    .map([&] {
                        return Beginning{areCopied, sources.failure};
                    });
            });
        });
}

Expected<bool> ProfileRecovery::rebuildIndexes(const QString &directory) {
    const QTemporaryDir folder(directory + u'/' + UnfinishedPrefix + QStringLiteral("XXXXXX"));
    const QString copy = folder.filePath(ProfileDatabaseName);
    if (!folder.isValid()) {
        return systemFailure(directory);
    }
    return pathsIn(directory)
        .and_then(
            [&](const QStringList &files) { return copyDatabase(files, folder.path(), directory); })
        .and_then([&](bool isCopied) {
            return isCopied ? unlessDamaged(directory, isTableOfOperationsCredible(copy))
                            : Expected<bool>(false);
        })
        .and_then([&](bool isCredible) {
            return isCredible ? unlessDamaged(directory, reindex(copy)) : Expected<bool>(false);
        })
        .and_then([&](bool isRebuilt) { return isRebuilt ? isSound(copy) : Expected<bool>(false); })
        .and_then([&](bool isRepairable) {
            return isRepairable
                       ? unlessDamaged(directory, reindex(directory + u'/' + ProfileDatabaseName))
                       : Expected<bool>(false);
        });
}

Expected<void> ProfileRecovery::removeUnfinished(const QString &directory) {
    // QTemporaryDir replaces the template by six letters.
    static const QRegularExpression copies(QRegularExpression::anchoredPattern(
        QRegularExpression::escape(UnfinishedPrefix) + QStringLiteral("[a-zA-Z]{6}")));
    const auto remaining = [](const QString &path) {
        return [path](const Error &error) {
            return engineError(EngineErrorCode::BackupFailed,
                               localizedSyncString(
                                   "Files that an interrupted recovery has left in “%1” cannot be "
                                   "removed: %2. Check the permissions of the folder and its disk.")
                                   .arg(path, error.localizedFailureReason));
        };
    };
    return FileManager::names(directory, std::filesystem::file_type::directory)
        .map_error(remaining(directory))
        .and_then([&](const QStringList &names) {
            Expected<void> removed;
            for (const QString &name : names) {
                const QString path = directory + u'/' + name;
                if (copies.match(name).hasMatch()) {
                    removed =
                        FileManager::removeFolder(path).map_error(remaining(path)).and_then([&] {
                            return removed;
                        });
                }
            }
            return removed;
        });
}
