#include "Engine/Profile/ProfileBackups.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtCore/QMap>
#include <QtCore/QStorageInfo>
#include <QtCore/QVariant>
#include <QtSql/QSqlError>
#include <cerrno>
#include <cstring>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Profile/ProfileInspection.h"
#include "Engine/Profile/ReadOnlyConnection.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/DurableFile.h"

namespace {

/// Number of rows by table.
using Counts = QMap<QString, qint64>;

const QString Suffix = QStringLiteral(".sqlite");
const QString UnfinishedSuffix = QStringLiteral(".unfinished");

tl::unexpected<Error> notMade(const QString &profile, const QString &reason) {
    return failure(
        engineError(EngineErrorCode::BackupFailed,
                    localizedSyncString("No backup of the profile “%1” could be made: %2")
                        .arg(profile, reason)));
}

QString systemReason() {
    return QString::fromLocal8Bit(std::strerror(errno));
}

QString sizeText(qint64 bytes) {
    return QLocale().formattedDataSize(bytes);
}

/// The folder is made on demand; the disk is that of the profile.
bool makeFolder(const QString &path) {
    return QFileInfo(path).isDir() ||
           QDir().mkdir(path,
                        QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

/// Returns no counts if a read fails.
Counts countsIn(const ReadOnlyConnection &database) {
    QStringList tables;
    QSqlQuery query = database.query();
    if (!query.exec(QStringLiteral("SELECT name FROM sqlite_schema WHERE type = 'table'"))) {
        return {};
    }
    while (query.next()) {
        tables.append(query.value(0).toString());
    }
    if (query.lastError().isValid()) {
        return {};
    }
    Counts counts;
    for (const QString &table : std::as_const(tables)) {
        const QVariant count =
            database.value(QStringLiteral("SELECT count(*) FROM \"%1\"").arg(table));
        if (!count.isValid()) {
            return {};
        }
        counts.insert(table, count.toLongLong());
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

Expected<void> verifyIntegrity(const ReadOnlyConnection &database, const QString &path) {
    if (database.value(QStringLiteral("PRAGMA user_version")).toInt() == 0 ||
        database.value(QStringLiteral("PRAGMA integrity_check(1)")) != QStringLiteral("ok")) {
        return failure(
            engineError(EngineErrorCode::BackupFailed, "The backup “%1” is damaged.", path));
    }
    return {};
}

}  // namespace

ProfileBackups::ProfileBackups(const QString &directory) : ProfileBackups(directory, Limits()) {}

ProfileBackups::ProfileBackups(const QString &directory, const Limits &limits)
    : m_profile(QDir(directory).absoluteFilePath(QStringLiteral("profile.sqlite"))),
      m_folder(QDir(directory).absoluteFilePath(FolderName)),
      m_limits(limits) {}

QList<ProfileBackups::Backup> ProfileBackups::all(const QDate &today) const {
    QList<Backup> backups;
    const QDir folder(m_folder);
    const QStringList names = folder.entryList({u'*' + Suffix}, QDir::Files | QDir::NoSymLinks,
                                               QDir::Name | QDir::Reversed);
    for (const QString &name : names) {
        const QDate date = QDate::fromString(name.chopped(Suffix.size()), Qt::ISODate);
        if (date.isValid()) {
            backups.append({folder.filePath(name), date});
        }
    }
    std::stable_partition(backups.begin(), backups.end(),
                          [&](const Backup &each) { return each.date <= today; });
    return backups;
}

std::optional<ProfileBackups::Backup> ProfileBackups::newestSound(const QDate &today) const {
    const QList<Backup> backups = all(today);
    const auto sound = std::find_if(backups.begin(), backups.end(),
                                    [](const Backup &each) { return verify(each.path); });
    return sound == backups.end() ? std::nullopt : std::optional(*sound);
}

bool ProfileBackups::isDue(const QDate &today) const {
    const QList<Backup> backups = all(today);
    return std::none_of(backups.begin(), backups.end(),
                        [&](const Backup &each) { return each.date == today; });
}

Expected<void> ProfileBackups::make(const QDate &today, const std::atomic_bool *isCancelled) const {
    if (!makeFolder(m_folder)) {
        return notMade(m_profile, systemReason());
    }
    const QString path = m_folder + u'/' + today.toString(Qt::ISODate) + Suffix;
    const QString unfinished = path + UnfinishedSuffix;
    removeUnfinished();
    return checkSpace()
        .and_then([&] { return writeCopy(unfinished, isCancelled); })
        .and_then([&]() -> Expected<void> {
            if (isCancelled && *isCancelled) {
                return notMade(m_profile, operationCancelled().localizedDescription);
            }
            if (!DurableFile::flush(unfinished) || !DurableFile::rename(unfinished, path)) {
                return notMade(m_profile, systemReason());
            }
            removeBeyondLimits(today);
            return {};
        })
        .map_error([&](const Error &error) {
            removeUnfinished();
            return error;
        });
}

Expected<void> ProfileBackups::checkSpace() const {
    const qint64 size =
        QFileInfo(m_profile).size() + QFileInfo(m_profile + QStringLiteral("-wal")).size();
    if (size > m_limits.bytes) {
        return notMade(m_profile,
                       localizedSyncString("Its size is %1, and all backups together may have %2.")
                           .arg(sizeText(size), sizeText(m_limits.bytes)));
    }
    const qint64 available = QStorageInfo(m_folder).bytesAvailable();
    if (available < size + m_limits.free) {
        return notMade(m_profile,
                       localizedSyncString("The disk has only %1 left, and %2 are needed. Delete "
                                           "files that you no longer need.")
                           .arg(sizeText(available), sizeText(size + m_limits.free)));
    }
    return {};
}

Expected<void> ProfileBackups::writeCopy(const QString &path,
                                         const std::atomic_bool *isCancelled) const {
    // SQLite writes into an empty file, which keeps its permissions.
    if (!DurableFile::create(path)) {
        return notMade(m_profile, systemReason());
    }
    const ReadOnlyConnection profile(m_profile, ReadOnlyConnection::Sharing::Shared, isCancelled);
    if (!profile.isOpen()) {
        return notMade(m_profile, localizedSyncString("It cannot be read."));
    }
    const Counts before = countsIn(profile);
    {
        QSqlQuery query = profile.query();
        query.prepare(QStringLiteral("VACUUM INTO ?"));
        query.addBindValue(path);
        if (!query.exec()) {
            return notMade(m_profile, query.lastError().databaseText());
        }
    }
    const Counts after = countsIn(profile);
    if (Expected<void> verified = verify(path, isCancelled); !verified) {
        return notMade(m_profile, verified.error().localizedDescription);
    }
    const ReadOnlyConnection copy(path, ReadOnlyConnection::Sharing::Immutable, isCancelled);
    if (!isBetween(countsIn(copy), before, after)) {
        return notMade(m_profile, localizedSyncString("The copy is not complete."));
    }
    return {};
}

void ProfileBackups::removeUnfinished() const {
    const QStringList names = QDir(m_folder).entryList({u'*' + UnfinishedSuffix + u'*'});
    for (const QString &name : names) {
        QFile::remove(m_folder + u'/' + name);
    }
}

void ProfileBackups::removeBeyondLimits(const QDate &today) const {
    qint64 bytes = 0;
    int count = 0;
    const QList<Backup> backups = all(today);
    for (const Backup &backup : backups) {
        bytes += QFileInfo(backup.path).size();
        ++count;
        if (backup.date != today && (count > m_limits.count || bytes > m_limits.bytes)) {
            QFile::remove(backup.path);
        }
    }
}

Expected<void> ProfileBackups::verify(const QString &path, const std::atomic_bool *isCancelled) {
    return ProfileInspection::check(path, isCancelled).and_then([&] {
        const ReadOnlyConnection backup(path, ReadOnlyConnection::Sharing::Immutable, isCancelled);
        return verifyIntegrity(backup, path);
    });
}
