#include "Platform/Foundation/FileIdentity.h"

#include <sys/stat.h>

#include <QtCore/QFile>

std::optional<FileIdentity> FileIdentity::of(const QString &path) {
    struct stat found {};
    if (stat(QFile::encodeName(path).constData(), &found) != 0) {
        return std::nullopt;
    }
    return FileIdentity{found.st_dev, found.st_ino};
}
