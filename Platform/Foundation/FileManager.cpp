#include "Platform/Foundation/FileManager.h"

#include <sys/stat.h>

#include <QtCore/QFile>
#include <cerrno>

#include "Platform/Foundation/Localization.h"
#include "Platform/Foundation/SystemError.h"

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
