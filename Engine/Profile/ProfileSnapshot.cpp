#include "Engine/Profile/ProfileSnapshot.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QThread>
#include <QtCore/QUrl>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Profile/ProfileInspection.h"
#include "Engine/Profile/ProfileLock.h"
#include "Host/SyncStrings.h"

namespace {

constexpr std::chrono::seconds CreationTimeout(10);
constexpr std::chrono::milliseconds RetryInterval(20);

const QString SnapshotConnection = QStringLiteral("velmora-profile-snapshot");
const QString DatabaseFile = QStringLiteral("/profile.sqlite");

bool isInUse(const Error &error) {
    return error.code == static_cast<int>(EngineErrorCode::ProfileInUse);
}

/// Whether the first transaction of the profile is committed.
bool isComplete(const QSqlDatabase &database) {
    QSqlQuery query(database);
    return query.exec(QStringLiteral("PRAGMA user_version")) && query.next() &&
           query.value(0).toInt() > 0;
}

Expected<bool> copyComplete(const QString &path, const QString &target, bool isLocked) {
    QSqlDatabase database =
        QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), SnapshotConnection);
    // A locked profile has no other user. Without a log, SQLite need not create its files then.
    const bool isImmutable = isLocked && QFileInfo(path + QStringLiteral("-wal")).size() == 0;
    database.setDatabaseName(
        QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded()) +
        (isImmutable ? QStringLiteral("?mode=ro&immutable=1") : QStringLiteral("?mode=ro")));
    database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_OPEN_READONLY"));
    if (!QFileInfo::exists(path) || !database.open() || !isComplete(database)) {
        return false;
    }
    QSqlQuery query(database);
    query.prepare(QStringLiteral("VACUUM INTO ?"));
    query.addBindValue(target + DatabaseFile);
    if (!query.exec()) {
        return failure(engineError(EngineErrorCode::ProfileUnusable,
                                   localizedSyncString("The profile “%1” cannot be copied: %2")
                                       .arg(path, query.lastError().databaseText())));
    }
    return true;
}

/// Copies the profile if it is complete; returns whether it is.
Expected<bool> copy(const QString &path, const QString &target, bool isLocked) {
    Expected<bool> copied = copyComplete(path, target, isLocked);
    QSqlDatabase::removeDatabase(SnapshotConnection);
    return copied;
}

/// Checks and copies a profile that no other process uses.
Expected<bool> copyUnused(const QString &path, const QString &target) {
    return ProfileInspection::check(path).and_then([&] { return copy(path, target, true); });
}

/// Returns whether there is a profile that was copied.
Expected<bool> tryToCopy(const QString &directory, const QString &target) {
    const QString path = directory + DatabaseFile;
    if (!QFileInfo::exists(path)) {
        return false;
    }
    ProfileLock lock;
    if (const Expected<void> acquired = lock.acquire(directory); !acquired) {
        return isInUse(acquired.error()) ? copy(path, target, false) : failure(acquired.error());
    }
    Expected<bool> copied = copyUnused(path, target);
    lock.undo();
    return copied;
}

}  // namespace

Expected<void> ProfileSnapshot::write(const QString &directory, const QString &target,
                                      const std::function<Expected<void>()> &create) {
    const QString absolute = QDir(directory).absolutePath();
    const QDeadlineTimer deadline(CreationTimeout);
    for (;;) {
        const Expected<bool> copied = tryToCopy(absolute, target);
        if (!copied) {
            return failure(copied.error());
        }
        if (*copied) {
            return {};
        }
        Expected<void> created = create();
        if (!created && (!isInUse(created.error()) || deadline.hasExpired())) {
            return created;
        }
        if (!created) {
            QThread::msleep(RetryInterval.count());
        }
    }
}
