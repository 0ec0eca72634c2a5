#include "Engine/Profile/ProfileBackups.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtCore/QMap>
#include <QtCore/QVariant>
#include <QtSql/QSqlError>
#include <filesystem>

#include "Application/Interface/ProfileConstants.h"
#include "Engine/Foundation/EngineError.h"
#include "Engine/Profile/FullDisk.h"
#include "Engine/Profile/ProfileFolder.h"
#include "Engine/Profile/ProfileInspection.h"
#include "Engine/Profile/ReadOnlyConnection.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/DurableFile.h"
#include "Platform/Foundation/FileManager.h"

namespace {

/// Number of rows by table.
using Counts = QMap<QString, qint64>;

const QString Suffix = QStringLiteral(".sqlite");
const QString UnfinishedSuffix = QStringLiteral(".unfinished");

tl::unexpected<Error> notMade(const QString &profile, const QString &reason) {
    return failure(
        engineError(EngineErrorCode::BackupFailed,
                    localizedSyncString("No backup of the profile “%1” could be made, and Velmora "
                                        "tries again after an hour. %2")
                        .arg(profile, reason)));
}

/// `reason` is what the system states about a file in the folder `folder`.
QString systemReason(const QString &reason, const QString &folder) {
    return localizedSyncString(
               "The folder “%1” cannot be written: %2. Check its permissions and "
               "its disk.")
        .arg(folder, reason);
}

QString sizeText(qint64 bytes) {
    return QLocale().formattedDataSize(bytes);
}

/// The folder is made on demand; the disk is that of the profile.
Expected<void> makeFolder(const QString &path) {
    return QFileInfo(path).isDir() ? Expected<void>() : FileManager::createDirectory(path);
}

Expected<QStringList> filesIn(const QString &folder) {
    return FileManager::names(folder, std::filesystem::file_type::regular)
        .map_error([&](const Error &error) {
            return ProfileFolder::unreadable(folder, error.localizedFailureReason,
                                             EngineErrorCode::BackupFailed);
        });
}

/// Removes a file. Has no effect if it is gone. `text` is the message of the error.
Expected<void> removeFile(const QString &path, const QString &text) {
    return FileManager::removeFile(path).map_error([&](const Error &error) {
        return engineError(EngineErrorCode::BackupFailed,
                           text.arg(path, error.localizedFailureReason));
    });
}

/// Removes a backup that is not needed any more.
Expected<void> removeOld(const QString &path) {
    return removeFile(path, localizedSyncString(
                                "The old backup “%1” cannot be removed: %2. Check the permissions "
                                "of its folder and its disk."));
}

Expected<Counts> countsIn(const ReadOnlyConnection &database) {
    QStringList tables;
    const Expected<void> listed =
        database.read(QStringLiteral("SELECT name FROM sqlite_schema WHERE type = 'table'"),
                      [&](const QSqlQuery &row) { tables.append(row.value(0).toString()); });
    if (!listed) {
        return failure(listed.error());
    }
    Counts counts;
    for (const QString &table : std::as_const(tables)) {
        const Expected<QVariant> count =
            database.value(QStringLiteral("SELECT count(*) FROM \"%1\"").arg(table));
        if (!count) {
            return failure(count.error());
        }
        counts.insert(table, count->toLongLong());
    }
    return counts;
}

/// Whether a copy with `counts` can have been made between the times of the other counts.
bool isBetween(const Counts &counts, const Counts &before, const Counts &after) {
    if (counts.isEmpty() || counts.keys() != before.keys() || counts.keys() != after.keys()) {
        return false;
    }
    for (auto each = counts.begin(); each != counts.end(); ++each) {
        const qint64 first = before[each.key()];
        const qint64 last = after[each.key()];
        if (each.value() < std::min(first, last) || each.value() > std::max(first, last)) {
            return false;
        }
    }
    return true;
}

Error damagedBackup(const QString &path) {
    return engineError(EngineErrorCode::BackupFailed,
                       "The backup “%1” is damaged. Use another backup.", path);
}

/// Returns whether `error`, of ProfileBackups::verify(), means that the backup is of no use.
bool isDamage(const Error &error) {
    return isEngineError(error, EngineErrorCode::ProfileDamaged) ||
           isEngineError(error, EngineErrorCode::BackupFailed);
}

Expected<void> checkNotEmpty(const QString &path, const std::atomic_bool *isCancelled) {
    return ReadOnlyConnection::open(path, ReadOnlyConnection::Sharing::Immutable, isCancelled)
        .and_then(
            [](const auto &backup) { return backup->value(ProfileInspection::VersionStatement); })
        .and_then([&](const QVariant &version) {
            return version.toInt() == 0 ? failure(damagedBackup(path)) : Expected<void>();
        });
}

/// Returns an error unless the copy at `path` can have been made between the times of the counts.
Expected<void> checkComplete(const QString &path, const Counts &before, const Counts &after,
                             const std::atomic_bool *isCancelled) {
    return ReadOnlyConnection::open(path, ReadOnlyConnection::Sharing::Immutable, isCancelled)
        .and_then([](const auto &copy) { return countsIn(*copy); })
        .and_then([&](const Counts &copied) -> Expected<void> {
            if (isBetween(copied, before, after)) {
                return {};
            }
            return failure(
                engineError(EngineErrorCode::BackupFailed,
                            localizedSyncString("The copy is not complete. Check the disk.")));
        });
}

}  // namespace

ProfileBackups::ProfileBackups(const QString &directory) : ProfileBackups(directory, Limits()) {}

ProfileBackups::ProfileBackups(const QString &directory, const Limits &limits)
    : m_profile(QDir(directory).absoluteFilePath(ProfileDatabaseName)),
      m_folder(QDir(directory).absoluteFilePath(FolderName)),
      m_limits(limits) {}

Expected<QList<ProfileBackups::Backup>> ProfileBackups::all(const QDate &today) const {
    return filesIn(m_folder).map([&](const QStringList &names) {
        QList<Backup> backups;
        for (const QString &name : names) {
            const bool isBackup = name.endsWith(Suffix);
            const QDate date = QDate::fromString(name.chopped(Suffix.size()), Qt::ISODate);
            if (isBackup && date.isValid()) {
                backups.append({m_folder + u'/' + name, date});
            }
        }
        std::sort(backups.begin(), backups.end(), [&](const Backup &one, const Backup &other) {
            const bool isOneAhead = one.date > today;
            const bool isOtherAhead = other.date > today;
            return isOneAhead == isOtherAhead ? one.date > other.date : isOtherAhead;
        });
        return backups;
    });
}

Expected<std::optional<ProfileBackups::Backup>> ProfileBackups::newestSound(
    const QDate &today) const {
    using Result = Expected<std::optional<Backup>>;
    return all(today).and_then([](const QList<Backup> &backups) -> Result {
        Result none = std::nullopt;
        for (const Backup &backup : backups) {
            const Expected<void> verified = verify(backup.path);
            if (verified) {
                return backup;
            }
            if (isEngineError(verified.error(), EngineErrorCode::ProfileUnreadable)) {
                none = failure(verified.error());
            } else if (!isDamage(verified.error())) {
                return failure(verified.error());
            }
        }
        return none;
    });
}

Expected<bool> ProfileBackups::isDue(const QDate &today) const {
    return all(today).map([&](const QList<Backup> &backups) {
        return std::none_of(backups.begin(), backups.end(),
                            [&](const Backup &each) { return each.date == today; });
    });
}

Expected<void> ProfileBackups::make(const QDate &today, const std::atomic_bool *isCancelled,
                                    const Check &check, const Inspection &inspect) const {
    if (Expected<void> checked = check(); !checked) {
        return checked;
    }
    if (const Expected<void> made = makeFolder(m_folder); !made) {
        return notMade(m_profile, systemReason(made.error().localizedFailureReason, m_folder));
    }
    const QString path = m_folder + u'/' + today.toString(Qt::ISODate) + Suffix;
    const QString unfinished = path + UnfinishedSuffix;
    Expected<void> removed = removeUnfinished();
    QString damaged;
    return checkSpace()
        .and_then([&] { return writeCopy(unfinished, isCancelled); })
        .and_then([&] {
            return inspect(unfinished).map_error([&](const Error &error) {
                return notMade(m_profile, error.localizedDescription).value();
            });
        })
        .and_then([&](const QString &titles) -> Expected<void> {
            damaged = titles;
            if (isCancelled && *isCancelled) {
                return notMade(m_profile, operationCancelled().localizedDescription);
            }
            return publish(unfinished, path, check);
        })
        .and_then([&] {
            return damaged.isEmpty() ? removeBeyondLimits(today)
                                     : keepBeforeDamage(today, damaged, inspect);
        })
        .and_then([&] { return removed; })
        .map_error([&](const Error &error) { return withRemaining(error); });
}

Error ProfileBackups::withRemaining(const Error &error) const {
    const Expected<void> removed = removeUnfinished();
    return removed || removed.error() == error
               ? error
               : engineError(
                     EngineErrorCode::BackupFailed,
                     error.localizedDescription + u' ' + removed.error().localizedDescription);
}

Expected<void> ProfileBackups::publish(const QString &unfinished, const QString &path,
                                       const Check &check) const {
    return check().and_then([&]() -> Expected<void> {
        return DurableFile::flush(unfinished)
            .and_then([&] { return DurableFile::rename(unfinished, path); })
            .map_error([&](const Error &error) {
                return notMade(m_profile, systemReason(error.localizedFailureReason, m_folder))
                    .value();
            });
    });
}

Expected<void> ProfileBackups::checkSpace() const {
    const Expected<qint64> sizeOfProfile = FileManager::size(m_profile);
    const Expected<qint64> sizeOfLog = FileManager::size(ProfileFolder::logOf(m_profile));
    const std::optional<qint64> available = FullDisk::freeBytes(m_folder);
    if (!sizeOfProfile || !sizeOfLog) {
        return failure(ProfileInspection::unreadable(m_profile));
    }
    const qint64 size = *sizeOfProfile + *sizeOfLog;
    if (size > m_limits.bytes) {
        return notMade(m_profile, localizedSyncString(
                                      "Its size is %1, and all backups together may have %2. Quit "
                                      "Velmora and copy the profile yourself.")
                                      .arg(sizeText(size), sizeText(m_limits.bytes)));
    }
    // Where it is unknown, a disk that is full fails the copy, which is verified.
    if (available && *available < size + m_limits.free) {
        return notMade(m_profile,
                       localizedSyncString("The disk has only %1 left, and %2 are needed. Delete "
                                           "files that you no longer need.")
                           .arg(sizeText(*available), sizeText(size + m_limits.free)));
    }
    return {};
}

Expected<void> ProfileBackups::writeCopy(const QString &path,
                                         const std::atomic_bool *isCancelled) const {
    // SQLite writes into an empty file, which keeps its permissions.
    if (const Expected<void> created = DurableFile::create(path); !created) {
        return notMade(m_profile, systemReason(created.error().localizedFailureReason, m_folder));
    }
    const auto profile =
        ReadOnlyConnection::open(m_profile, ReadOnlyConnection::Sharing::Shared, isCancelled);
    if (!profile) {
        return notMade(m_profile, profile.error().localizedDescription);
    }
    // SQLite copies a damaged index as it is.
    const Expected<Counts> before =
        ProfileInspection::checkIntegrity(m_profile, **profile).and_then([&] {
            return countsIn(**profile);
        });
    if (!before) {
        return notMade(m_profile, before.error().localizedDescription);
    }
    if (const auto written = (*profile)->copyTo(path); !written) {
        return notMade(m_profile, systemReason(written.error().databaseText(), m_folder));
    }
    const Expected<Counts> after = countsIn(**profile);
    if (!after) {
        return notMade(m_profile, after.error().localizedDescription);
    }
    return verify(path, isCancelled)
        .and_then([&] { return checkComplete(path, *before, *after, isCancelled); })
        .map_error([&](const Error &error) {
            return notMade(m_profile, error.localizedDescription).value();
        });
}

Expected<void> ProfileBackups::removeUnfinished() const {
    return filesIn(m_folder).and_then([&](const QStringList &names) {
        Expected<void> removed;
        for (const QString &name : names) {
            if (name.contains(UnfinishedSuffix)) {
                removed = removeFile(m_folder + u'/' + name,
                                     localizedSyncString(
                                         "The unfinished backup “%1” cannot be removed: %2. Check "
                                         "the permissions of its folder and its disk."))
                              .and_then([&] { return removed; });
            }
        }
        return removed;
    });
}

Expected<void> ProfileBackups::removeBeyondLimits(const QDate &today) const {
    return all(today).and_then([&](const QList<Backup> &backups) -> Expected<void> {
        qint64 bytes = 0;
        int count = 0;
        Expected<void> removed;
        for (const Backup &backup : backups) {
            const Expected<qint64> size = FileManager::size(backup.path);
            if (!size) {
                return failure(size.error());
            }
            bytes += *size;
            ++count;
            if (backup.date != today && (count > m_limits.count || bytes > m_limits.bytes)) {
                removed = removeOld(backup.path).and_then([&] { return removed; });
            }
        }
        return removed;
    });
}

Expected<void> ProfileBackups::keepBeforeDamage(const QDate &today, const QString &damaged,
                                                const Inspection &inspect) const {
    const Expected<QList<Backup>> backups = all(today);
    if (!backups) {
        return failure(backups.error());
    }
    const auto previous = std::find_if(backups->begin(), backups->end(),
                                       [&](const Backup &each) { return each.date != today; });
    const Expected<QString> problem =
        previous == backups->end() ? Expected<QString>(QString()) : inspect(previous->path);
    const Expected<void> removed = problem.and_then([&](const QString &found) {
        return found.isEmpty() ? Expected<void>() : removeOld(previous->path);
    });
    QString text =
        localizedSyncString(
            "The profile “%1” has damaged or lost notes: %2. Synchronize, so that they are read "
            "again from the locations. If this message appears again, check the texts of the "
            "damaged notes and edit them, and synchronize on the other computers. The backups that "
            "have all notes intact are kept.")
            .arg(m_profile, damaged);
    if (!removed) {
        text += u' ' + removed.error().localizedDescription;
    }
    return failure(engineError(EngineErrorCode::BackupFailed, text));
}

Expected<void> ProfileBackups::verify(const QString &path, const std::atomic_bool *isCancelled) {
    return ProfileInspection::checkReadable(path, isCancelled)
        .map_error([&](const Error &error) {
            return isEngineError(error, EngineErrorCode::IndexesDamaged) ? damagedBackup(path)
                                                                         : error;
        })
        .and_then([&] { return checkNotEmpty(path, isCancelled); });
}
