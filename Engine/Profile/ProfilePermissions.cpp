#include "Engine/Profile/ProfilePermissions.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <cerrno>
#include <cstring>

#include "Engine/Foundation/EngineError.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/FileDescriptor.h"

namespace {

constexpr mode_t PermissionsOfOthers = S_IRWXG | S_IRWXO;

/// Returns whether other users have no permission for `path` any more.
bool isPrivate(const QByteArray &path) {
    struct stat status = {};
    if (lstat(path.constData(), &status) != 0) {
        return errno == ENOENT;
    }
    const bool isOpen = !S_ISLNK(status.st_mode) && (status.st_mode & PermissionsOfOthers) != 0;
    return !isOpen || chmod(path.constData(), status.st_mode & S_IRWXU) == 0;
}

}  // namespace

Expected<void> ProfilePermissions::removeForOthers(const QString &directory) {
    const QDir folder(directory);
    // The last part of the path may be a symbolic link.
    bool arePrivate = isPrivate(QFile::encodeName(folder.canonicalPath()));
    const QStringList names =
        folder.entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System);
    for (const QString &name : names) {
        arePrivate = isPrivate(QFile::encodeName(folder.filePath(name))) && arePrivate;
    }
    if (arePrivate) {
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
