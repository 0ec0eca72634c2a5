#include "Engine/Profile/ProfileFolder.h"

#include <QtCore/QFile>
#include <algorithm>
#include <filesystem>
#include <vector>

#include "Application/Interface/ProfileConstants.h"
#include "Engine/Foundation/EngineError.h"
#include "Engine/Profile/ProfileLock.h"
#include "Host/SyncStrings.h"

namespace {

using Path = std::filesystem::path;

Path pathOf(const QString &name) {
    return QFile::encodeName(name).toStdString();
}

tl::unexpected<Error> readFailure(const QString &directory, const std::error_code &error) {
    return failure(ProfileFolder::unreadable(directory, QString::fromStdString(error.message()),
                                             EngineErrorCode::ProfileUnusable));
}

/// Returns what the folder contains, or what its folders contain too. std::filesystem reports
/// errors; QDir returns an empty list.
template <class Iterator>
Expected<std::vector<std::filesystem::directory_entry>> entriesOf(const QString &directory) {
    std::error_code error;
    std::vector<std::filesystem::directory_entry> entries;
    for (Iterator each(pathOf(directory), error); !error && each != Iterator();
         each.increment(error)) {
        entries.push_back(*each);
    }
    if (error) {
        return readFailure(directory, error);
    }
    return entries;
}

Expected<QStringList> namesIn(const QString &directory) {
    return entriesOf<std::filesystem::directory_iterator>(directory).map([](const auto &entries) {
        QStringList names;
        for (const auto &entry : entries) {
            names.append(QFile::decodeName(entry.path().filename().c_str()));
        }
        return names;
    });
}

/// Returns whether there is a folder at `path`. Symbolic links count as files.
Expected<bool> isFolder(const Path &path) {
    using Type = std::filesystem::file_type;
    std::error_code error;
    const Type type = std::filesystem::symlink_status(path, error).type();
    return type == Type::none ? readFailure(QFile::decodeName(path.c_str()), error)
                              : Expected<bool>(type == Type::directory);
}

/// Returns whether there is nothing but folders at `path`. Symbolic links count as files.
Expected<bool> hasFoldersOnly(const QString &path) {
    Expected<bool> isFolderItself = isFolder(pathOf(path));
    if (!isFolderItself || !*isFolderItself) {
        return isFolderItself;
    }
    const auto entries = entriesOf<std::filesystem::recursive_directory_iterator>(path);
    if (!entries) {
        return failure(entries.error());
    }
    for (const auto &entry : *entries) {
        if (Expected<bool> isEntryFolder = isFolder(entry.path());
            !isEntryFolder || !*isEntryFolder) {
            return isEntryFolder;
        }
    }
    return true;
}

}  // namespace

QStringList ProfileFolder::databaseFiles() {
    return {ProfileDatabaseName, logOf(ProfileDatabaseName),
            ProfileDatabaseName + QStringLiteral("-shm"),
            ProfileDatabaseName + QStringLiteral("-journal")};
}

Expected<bool> ProfileFolder::isUnused(const QString &directory) {
    using Type = std::filesystem::file_type;
    std::error_code error;
    const Type type = std::filesystem::status(pathOf(directory), error).type();
    if (type == Type::not_found) {
        return true;
    }
    if (type == Type::none) {
        return readFailure(directory, error);
    }
    if (type != Type::directory || QFile::exists(directory + u'/' + ProfileDatabaseName)) {
        return false;
    }
    return namesIn(directory).map([](QStringList names) {
        names.removeOne(ProfileLock::FileName);
        return names.isEmpty();
    });
}

Expected<bool> ProfileFolder::isUnusedSinceCreation(const QString &directory) {
    return namesIn(directory).and_then([&](QStringList names) -> Expected<bool> {
        names.removeOne(ProfileLock::FileName);
        const bool hasStores = names.removeOne(SyncStoresName);
        const QStringList files = databaseFiles();
        if (std::any_of(names.begin(), names.end(),
                        [&](const QString &name) { return !files.contains(name); })) {
            return false;
        }
        return hasStores ? hasFoldersOnly(directory + u'/' + SyncStoresName) : Expected<bool>(true);
    });
}

Error ProfileFolder::unreadable(const QString &folder, const QString &reason,
                                EngineErrorCode code) {
    return engineError(code,
                       localizedSyncString("The folder “%1” of the profile cannot be read: %2. "
                                           "Check its disk and its permissions, then try again.")
                           .arg(folder, reason));
}

void ProfileFolder::removeNewProfile(const QString &directory) {
    const QString stores = directory + u'/' + SyncStoresName;
    // If this is interrupted, the database file must be left: it makes the folder a profile's.
    if (hasFoldersOnly(stores).value_or(false)) {
        std::error_code ignored;
        const auto folders = entriesOf<std::filesystem::recursive_directory_iterator>(stores);
        if (folders) {
            std::for_each(folders->rbegin(), folders->rend(), [&](const auto &folder) {
                std::filesystem::remove(folder.path(), ignored);
            });
        }
        std::filesystem::remove(pathOf(stores), ignored);
    }
    const QStringList files = databaseFiles();
    std::for_each(files.rbegin(), files.rend(),
                  [&](const QString &name) { QFile::remove(directory + u'/' + name); });
}
