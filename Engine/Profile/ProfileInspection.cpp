#include "Engine/Profile/ProfileInspection.h"

#include <QtCore/QFileInfo>
#include <QtCore/QVariant>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Profile/FullDisk.h"
#include "Engine/Profile/ProfileFolder.h"
#include "Engine/Profile/ReadOnlyConnection.h"

namespace {

/// SQLite must not create a log if there is none. Otherwise it needs the log to see the latest
/// state; a read-only connection does not change it.
ReadOnlyConnection::Sharing sharingFor(const QString &path) {
    return QFileInfo(path + QStringLiteral("-wal")).size() > 0
               ? ReadOnlyConnection::Sharing::Shared
               : ReadOnlyConnection::Sharing::Immutable;
}

/// Returns whether the database is empty, but not its log, which SQLite deletes then when it opens
/// the database. A first start writes the log after the first page of the database.
bool hasLogOnly(const QString &path) {
    return QFileInfo(path).size() == 0 && QFileInfo(path + QStringLiteral("-wal")).size() > 0;
}

tl::unexpected<Error> unusable(const char *text, const QString &path) {
    return failure(engineError(EngineErrorCode::ProfileUnusable, text, path));
}

tl::unexpected<Error> damaged(const QString &path) {
    // SQLite cannot read a log then, which does not mean that it is damaged.
    if (FullDisk::isFull(path)) {
        return failure(engineError(EngineErrorCode::ProfileUnusable, FullDisk::message(path)));
    }
    return failure(engineError(
        EngineErrorCode::ProfileDamaged,
        "The profile “%1” is damaged and cannot be opened. Restore it from a backup or use another "
        "profile.",
        path));
}

/// Returns an error unless the empty database at `path` is what an interrupted first start leaves.
Expected<void> checkNeverUsed(const QString &path) {
    return ProfileFolder::isUnusedSinceCreation(QFileInfo(path).path())
        .and_then([&](bool isUnused) -> Expected<void> {
            if (isUnused && !hasLogOnly(path)) {
                return {};
            }
            return failure(engineError(
                EngineErrorCode::ProfileDamaged,
                "The profile “%1” is empty, although it has been used. Restore it from a backup or "
                "use another profile.",
                path));
        });
}

Expected<void> checkContents(const QString &path, const ReadOnlyConnection &database) {
    // An invalid variant stands for a failed read. None of these statements has an empty result.
    const QVariant version = database.value(QStringLiteral("PRAGMA user_version"));
    const QVariant tables = database.value(QStringLiteral("SELECT count(*) FROM sqlite_schema"));
    const QVariant application = database.value(QStringLiteral("PRAGMA application_id"));
    if (!version.isValid() || !tables.isValid() || !application.isValid()) {
        return damaged(path);
    }
    if (version.toInt() > ProfileInspection::SchemaVersion) {
        return unusable(
            "The profile “%1” was created by a newer version of Velmora. Update Velmora to open "
            "it.",
            path);
    }
    if (database.value(QStringLiteral("PRAGMA quick_check(1)")) != QStringLiteral("ok")) {
        return damaged(path);
    }
    const bool isEmpty = tables == 0 && version == 0;
    const bool isOurs = application == ProfileInspection::ApplicationId &&
                        version.toInt() >= ProfileInspection::OldestSchemaVersion;
    if (!isEmpty && !isOurs) {
        return unusable(
            "“%1” is a database of another program, not a profile. Choose another folder.", path);
    }
    if (isEmpty) {
        return checkNeverUsed(path);
    }
    // Every profile has one, so it was lost.
    const QVariant inboxes =
        database.value(QStringLiteral("SELECT count(*) FROM databases WHERE is_inbox"));
    return inboxes == 1 ? Expected<void>() : damaged(path);
}

Expected<void> checkAccess(const QString &path) {
    const QFileInfo file(path);
    if (!file.isFile()) {
        return unusable(
            "“%1” is not a file, so it cannot be opened as a profile. Choose another folder.",
            path);
    }
    if (!file.isReadable()) {
        return unusable(
            "You do not have permission to read the profile “%1”. Change its permissions or use "
            "another profile.",
            path);
    }
    if (!file.isWritable()) {
        return unusable(
            "The profile “%1” is read-only. Change its permissions or use another profile.", path);
    }
    if (!QFileInfo(file.path()).isWritable()) {
        return unusable(
            "The profile folder “%1” is read-only. Change its permissions or use another profile.",
            file.path());
    }
    return {};
}

}  // namespace

Expected<void> ProfileInspection::check(const QString &path, const std::atomic_bool *isCancelled) {
    if (Expected<void> accessible = checkAccess(path); !accessible) {
        return accessible;
    }
    if (hasLogOnly(path)) {
        return checkNeverUsed(path);
    }
    const ReadOnlyConnection database(path, sharingFor(path), isCancelled);
    return database.isOpen() ? checkContents(path, database) : damaged(path);
}
