#include "Platform/Foundation/FileManager.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QFile>
#include <cerrno>

#include "Platform/Foundation/Localization.h"
#include "Platform/Foundation/SystemError.h"

namespace {

std::filesystem::path toPath(const QString &path) {
    return QFile::encodeName(path).toStdString();
}

/// `text` is a key of the translation table.
Error errorOf(const std::error_code &error, const char *text, const QString &path) {
    return systemError(error.value(), localizedString(PlatformTable, text).arg(path));
}

Error notReached(const std::error_code &error, const QString &path) {
    return errorOf(error,
                   "“%1” cannot be reached. Check the permissions of the folders that contain it "
                   "and its disk.",
                   path);
}

Error notRemoved(const std::error_code &error, const QString &path) {
    return errorOf(error,
                   "“%1” could not be removed. Check the permissions of its folder and its disk.",
                   path);
}

/// Returns whether `error` means that there is no such file.
bool isNone(const std::error_code &error) {
    return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
}

}  // namespace

Expected<void> FileManager::createDirectory(const QString &path) {
    if (mkdir(QFile::encodeName(path).constData(), S_IRWXU) == 0) {
        return {};
    }
    const int number = errno;
    return failure(systemError(
        number, localizedString(PlatformTable,
                                "The folder “%1” could not be created. Check the permissions of "
                                "the folder that contains it, or choose another one.")
                    .arg(path)));
}

Expected<bool> FileManager::exists(const QString &path) {
    struct stat found {};
    if (fstatat(AT_FDCWD, QFile::encodeName(path).constData(), &found, AT_SYMLINK_NOFOLLOW) == 0) {
        return true;
    }
    const std::error_code error(errno, std::generic_category());
    if (isNone(error)) {
        return false;
    }
    return failure(notReached(error, path));
}

Expected<qint64> FileManager::size(const QString &path) {
    struct stat found {};
    if (stat(QFile::encodeName(path).constData(), &found) == 0) {
        return found.st_size;
    }
    const std::error_code error(errno, std::generic_category());
    return isNone(error) ? Expected<qint64>(0) : failure(notReached(error, path));
}

Expected<QStringList> FileManager::names(const QString &path, std::filesystem::file_type type) {
    using Entries = std::filesystem::directory_iterator;
    QStringList names;
    std::error_code error;
    for (Entries each(toPath(path), error); !error && each != Entries(); each.increment(error)) {
        std::error_code unknown;
        const std::filesystem::file_type found = each->symlink_status(unknown).type();
        // The entry may have been removed meanwhile.
        if (unknown && !isNone(unknown)) {
            return failure(notReached(
                unknown, path + u'/' + QFile::decodeName(each->path().filename().c_str())));
        }
        if (found == type) {
            names.append(QFile::decodeName(each->path().filename().c_str()));
        }
    }
    if (error && error != std::errc::no_such_file_or_directory) {
        return failure(errorOf(
            error, "The folder “%1” could not be read. Check its permissions and its disk.", path));
    }
    return names;
}

Expected<void> FileManager::removeFile(const QString &path) {
    const bool isRemoved = unlinkat(AT_FDCWD, QFile::encodeName(path).constData(), 0) == 0;
    const std::error_code error(isRemoved ? 0 : errno, std::generic_category());
    return isRemoved || isNone(error) ? Expected<void>() : failure(notRemoved(error, path));
}

Expected<void> FileManager::removeFolder(const QString &path) {
    std::error_code error;
    std::filesystem::remove_all(toPath(path), error);
    return error ? failure(notRemoved(error, path)) : Expected<void>();
}
