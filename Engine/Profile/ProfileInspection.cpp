#include "Engine/Profile/ProfileInspection.h"

#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>
#include <QtCore/QVariant>
#include <QtSql/QSqlQuery>
#include <algorithm>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Profile/FullDisk.h"
#include "Engine/Profile/ProfileFolder.h"
#include "Engine/Profile/ProfilePermissions.h"
#include "Engine/Profile/ReadOnlyConnection.h"
#include "Engine/Profile/SqliteCode.h"
#include "Platform/Foundation/FileManager.h"

namespace {

/// SQLite must not create a log if there is none. Otherwise it needs the log to see the latest
/// state; a read-only connection does not change it.
ReadOnlyConnection::Sharing sharingFor(qint64 sizeOfLog) {
    return sizeOfLog > 0 ? ReadOnlyConnection::Sharing::Shared
                         : ReadOnlyConnection::Sharing::Immutable;
}

/// The sizes of a database and of its log.
struct Sizes {
    qint64 database;
    qint64 log;
    /// SQLite deletes the log then when it opens the database. A first start writes the log after
    /// the first page of the database.
    bool areLogOnly() const { return database == 0 && log > 0; }
};

Expected<Sizes> readSizes(const QString &path) {
    return FileManager::size(path)
        .and_then([&](qint64 database) {
            return FileManager::size(ProfileFolder::logOf(path)).map([&](qint64 log) {
                return Sizes{database, log};
            });
        })
        .map_error([&](const Error & /*error*/) { return ProfileInspection::unreadable(path); });
}

tl::unexpected<Error> unusable(const char *text, const QString &path) {
    return failure(engineError(EngineErrorCode::ProfileUnusable, text, path));
}

tl::unexpected<Error> damaged(const QString &path) {
    // SQLite cannot read a log then, which does not mean that it is damaged.
    if (FullDisk::isFull(path)) {
        return failure(engineError(EngineErrorCode::ProfileUnusable, FullDisk::message(path)));
    }
    return failure(ProfileInspection::damage(path));
}

tl::unexpected<Error> damagedIndexes(const QString &path) {
    return failure(engineError(EngineErrorCode::IndexesDamaged,
                               "An index of the profile “%1” is damaged, so that notes may seem to "
                               "be missing. Quit Velmora if it is running, and start it: it "
                               "rebuilds the index or offers to restore a backup.",
                               path));
}

/// SQLite cannot replace the page of an index that is none.
tl::unexpected<Error> damagedIndexPage(const QString &path) {
    return failure(engineError(EngineErrorCode::ProfileDamaged,
                               "An index of the profile “%1” is damaged in a way that cannot be "
                               "repaired. At its start, Velmora offers to restore a backup.",
                               path));
}

/// `reason` is the error of a read of the database.
tl::unexpected<Error> notRead(const QString &path, const Error &reason) {
    if (isEngineError(reason, EngineErrorCode::ProfileDamaged) || FullDisk::isFull(path)) {
        return damaged(path);
    }
    if (!isEngineError(reason, EngineErrorCode::ProfileUnreadable)) {
        return failure(reason);
    }
    return failure(ProfileInspection::unreadable(path));
}

/// The numbers that identify the program of an SQLite file and its tables.
struct Header {
    int version;
    int tables;
    int application;
};

Expected<Header> readHeader(const QString &path, const ReadOnlyConnection &database) {
    QList<int> numbers;
    for (const QString &statement :
         {ProfileInspection::VersionStatement, QStringLiteral("SELECT count(*) FROM sqlite_schema"),
          QStringLiteral("PRAGMA application_id")}) {
        const Expected<QVariant> number = database.value(statement);
        if (!number) {
            return notRead(path, number.error());
        }
        numbers.append(number->toInt());
    }
    return Header{numbers[0], numbers[1], numbers[2]};
}

/// Returns an error unless the empty database at `path` is what an interrupted first start leaves.
Expected<void> checkNeverUsed(const QString &path) {
    const Expected<Sizes> sizes = readSizes(path);
    if (!sizes) {
        return failure(sizes.error());
    }
    return ProfileFolder::isUnusedSinceCreation(QFileInfo(path).path())
        .and_then([&](bool isUnused) -> Expected<void> {
            if (isUnused && !sizes->areLogOnly()) {
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
    const Expected<Header> header = readHeader(path, database);
    if (!header) {
        return failure(header.error());
    }
    const auto &[version, tables, application] = *header;
    if (version > ProfileInspection::SchemaVersion) {
        return unusable(
            "The profile “%1” was created by a newer version of Velmora. Update Velmora to open "
            "it.",
            path);
    }
    if (Expected<void> sound = ProfileInspection::checkIntegrity(path, database); !sound) {
        return sound;
    }
    const bool isEmpty = tables == 0 && version == 0;
    const bool isOurs = application == ProfileInspection::ApplicationId &&
                        version >= ProfileInspection::OldestSchemaVersion;
    if (!isEmpty && !isOurs) {
        return unusable(
            "“%1” is a database of another program, not a profile. Choose another folder.", path);
    }
    if (isEmpty) {
        return checkNeverUsed(path);
    }
    // Every profile has one, so it was lost.
    const Expected<QVariant> inboxes =
        database.value(QStringLiteral("SELECT count(*) FROM databases WHERE is_inbox"));
    if (!inboxes) {
        return notRead(path, inboxes.error());
    }
    return *inboxes == 1 ? Expected<void>() : damaged(path);
}

/// Returns whether SQLite has found `problem` within a page of a table or an index. A page that
/// another one names by mistake says nothing about which of the two is wrong, and the rest of a
/// long text may be that of another one without an error.
bool isInPage(const QString &problem) {
    static const QRegularExpression page(QStringLiteral("page \\d+[^:]*: "),
                                         QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression link(
        QStringLiteral("reference|overflow|invalid page number|never used"));
    return page.match(problem).hasMatch() && !link.match(problem).hasMatch();
}

/// Returns whether all rows of the tables can be read completely, without their indexes.
bool areTablesReadable(const ReadOnlyConnection &database) {
    QStringList tables;
    const Expected<void> listed =
        database.read(QStringLiteral("SELECT name FROM sqlite_schema WHERE type = 'table'"),
                      [&](const QSqlQuery &row) { tables.append(row.value(0).toString()); });
    return listed && std::all_of(tables.begin(), tables.end(), [&](const QString &table) {
               // Counting the rows would not read the rest of long texts.
               return database
                   .read(QStringLiteral("SELECT * FROM \"%1\" NOT INDEXED").arg(table),
                         [](const QSqlQuery & /*row*/) {})
                   .has_value();
           });
}

Expected<void> checkReadAccess(const QString &path) {
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
    return {};
}

Expected<void> checkWriteAccess(const QString &path) {
    const QFileInfo file(path);
    if (!file.isWritable()) {
        return unusable(
            "The profile “%1” is read-only. Change its permissions or use another profile.", path);
    }
    if (!QFileInfo(file.path()).isWritable()) {
        return failure(ProfilePermissions::readOnly(file.path()));
    }
    return {};
}

}  // namespace

Error ProfileInspection::damage(const QString &path) {
    return engineError(
        EngineErrorCode::ProfileDamaged,
        "The profile “%1” is damaged. Restore it from a backup or use another profile.", path);
}

Error ProfileInspection::unreadable(const QString &path) {
    return engineError(
        EngineErrorCode::ProfileUnreadable,
        "The profile “%1” cannot be read, because its disk reports an error. Check the disk and "
        "its connection, then start Velmora again.",
        path);
}

bool ProfileInspection::isInputOutputError(const QString &problem) {
    static const QRegularExpression code(QStringLiteral("error code[= ](\\d+)"));
    if (problem.contains(QStringLiteral("failed to get page"))) {
        return true;
    }
    // It may have several lines.
    for (const QRegularExpressionMatch &match : code.globalMatch(problem)) {
        if (sqliteCode(match.captured(1).toInt()) == SqliteCode::InputOutputError) {
            return true;
        }
    }
    return false;
}

Expected<void> ProfileInspection::checkIntegrity(const QString &path,
                                                 const ReadOnlyConnection &database) {
    const QString sound = QStringLiteral("ok");
    const Expected<QVariant> all = database.value(QStringLiteral("PRAGMA integrity_check(1)"));
    if (!all) {
        return notRead(path, all.error());
    }
    if (*all == sound) {
        return {};
    }
    if (isInputOutputError(all->toString())) {
        return failure(unreadable(path));
    }
    // This one does not compare the indexes with the tables.
    const Expected<QVariant> structure = database.value(QStringLiteral("PRAGMA quick_check(1)"));
    if (!structure) {
        return notRead(path, structure.error());
    }
    if (*structure == sound) {
        return damagedIndexes(path);
    }
    return isInPage(structure->toString()) && areTablesReadable(database) ? damagedIndexPage(path)
                                                                          : damaged(path);
}

Expected<void> ProfileInspection::check(const QString &path) {
    return checkReadAccess(path).and_then([&] { return checkWriteAccess(path); }).and_then([&] {
        return checkReadable(path);
    });
}

Expected<void> ProfileInspection::checkReadable(const QString &path,
                                                const std::atomic_bool *isCancelled) {
    const Expected<Sizes> sizes = checkReadAccess(path).and_then([&] { return readSizes(path); });
    if (!sizes) {
        return failure(sizes.error());
    }
    if (sizes->areLogOnly()) {
        return checkNeverUsed(path);
    }
    const auto database = ReadOnlyConnection::open(path, sharingFor(sizes->log), isCancelled);
    return database ? checkContents(path, **database) : notRead(path, database.error());
}
