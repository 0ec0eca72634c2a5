#include "Engine/Profile/ProfileSnapshot.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QVariant>

#include "Application/Interface/ProfileConstants.h"
#include "Engine/Foundation/EngineError.h"
#include "Engine/Profile/ProfileFolder.h"
#include "Engine/Profile/ProfileInspection.h"
#include "Engine/Profile/ProfileLock.h"
#include "Engine/Profile/ReadOnlyConnection.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/Retries.h"

namespace {

/// Another process may be creating the profile, or end before it has.
constexpr std::chrono::seconds CreationTimeout(10);

const QString DatabaseFile = u'/' + ProfileDatabaseName;

bool isInUse(const Error &error) {
    return isEngineError(error, EngineErrorCode::ProfileInUse);
}

/// Copies the profile if its first transaction is committed; returns whether it is.
Expected<bool> copy(const QString &path, const QString &target, bool isLocked) {
    // SQLite would delete the log of a database without a page.
    const Expected<qint64> size = FileManager::size(path);
    const Expected<qint64> sizeOfLog = FileManager::size(ProfileFolder::logOf(path));
    if (!size || !sizeOfLog) {
        return failure(ProfileInspection::unreadable(path));
    }
    if (*size == 0) {
        return false;
    }
    // A locked profile has no other user. Without a log, SQLite need not create its files then.
    const bool isImmutable = isLocked && *sizeOfLog == 0;
    const auto database =
        ReadOnlyConnection::open(path, isImmutable ? ReadOnlyConnection::Sharing::Immutable
                                                   : ReadOnlyConnection::Sharing::Shared);
    if (!database) {
        return failure(database.error());
    }
    const Expected<QVariant> version = (*database)->value(ProfileInspection::VersionStatement);
    if (!version) {
        return failure(version.error());
    }
    if (version->toInt() == 0) {
        return false;
    }
    // A damaged index would be copied or rebuilt. A locked profile was checked before.
    if (const Expected<void> sound =
            isLocked ? Expected<void>() : ProfileInspection::checkIntegrity(path, **database);
        !sound) {
        return failure(sound.error());
    }
    if (const auto copied = (*database)->copyTo(target + DatabaseFile); !copied) {
        return failure(engineError(
            EngineErrorCode::ProfileUnusable,
            localizedSyncString(
                "The profile “%1” cannot be copied: %2. Check the disk, then try again.")
                .arg(path, copied.error().databaseText())));
    }
    return true;
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
    const Retries retries(CreationTimeout);
    for (;;) {
        const Expected<bool> copied = tryToCopy(absolute, target);
        if (!copied) {
            return failure(copied.error());
        }
        if (*copied) {
            return {};
        }
        Expected<void> created = create();
        if (!created && (!isInUse(created.error()) || !retries.wait())) {
            return created;
        }
    }
}
