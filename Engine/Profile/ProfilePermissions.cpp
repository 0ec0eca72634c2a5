#include "Engine/Profile/ProfilePermissions.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <QtCore/QFile>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include "Engine/Foundation/EngineError.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/FileDescriptor.h"

namespace {

constexpr mode_t PermissionsOfOthers = S_IRWXG | S_IRWXO;

/// Returns whether other users have no permission for `path` any more.
bool isPrivate(const std::filesystem::path &path) {
    struct stat status = {};
    if (lstat(path.c_str(), &status) != 0) {
        return errno == ENOENT;
    }
    const bool isOpen = !S_ISLNK(status.st_mode) && (status.st_mode & PermissionsOfOthers) != 0;
    return !isOpen || chmod(path.c_str(), status.st_mode & S_IRWXU) == 0;
}

}  // namespace

Expected<void> ProfilePermissions::removeForOthers(const QString &directory) {
    namespace files = std::filesystem;
    std::error_code error;
    // The last part of the path may be a symbolic link.
    const files::path folder = files::canonical(QFile::encodeName(directory).toStdString(), error);
    bool arePrivate = !error && isPrivate(folder);
    files::directory_iterator entries(folder, error);
    for (; !error && entries != files::directory_iterator(); entries.increment(error)) {
        arePrivate = isPrivate(entries->path()) && arePrivate;
    }
    if (arePrivate && !error) {
        return {};
    }
    return failure(engineError(
        EngineErrorCode::ProfileUnusable,
        "Other users of this computer may be able to read the profile “%1”, because its "
        "permissions cannot be changed. Move it to a folder of your own.",
        directory));
}

Expected<void> ProfilePermissions::createFile(const QString &path) {
    const FileDescriptor file(open(QFile::encodeName(path).constData(),
                                   O_WRONLY | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (file.isValid()) {
        return {};
    }
    return failure(engineError(EngineErrorCode::ProfileUnusable,
                               localizedSyncString("The profile “%1” cannot be opened: %2. Check "
                                                   "its disk and its permissions, then try again.")
                                   .arg(path, QString::fromLocal8Bit(std::strerror(errno)))));
}

Error ProfilePermissions::readOnly(const QString &folder) {
    return engineError(
        EngineErrorCode::ProfileUnusable,
        "The profile folder “%1” is read-only. Change its permissions or use another profile.",
        folder);
}
