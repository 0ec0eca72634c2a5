#include "Platform/Foundation/FileIdentity.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <QtCore/QFile>
#include <cerrno>

#include "Platform/Foundation/Localization.h"
#include "Platform/Foundation/SystemError.h"

Expected<std::optional<FileIdentity>> FileIdentity::of(const QString &path) {
    struct stat found {};
    if (fstatat(AT_FDCWD, QFile::encodeName(path).constData(), &found, 0) == 0) {
        return FileIdentity{found.st_dev, found.st_ino};
    }
    const int number = errno;
    if (number == ENOENT || number == ENOTDIR) {
        return std::nullopt;
    }
    return failure(systemError(
        number, localizedString(PlatformTable,
                                "“%1” cannot be reached. Check the permissions of the folders that "
                                "contain it and its disk.")
                    .arg(path)));
}
