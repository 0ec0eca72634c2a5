#include "Engine/MountedVolumes.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QStorageInfo>

namespace {

bool isWithin(const QString &path, const QString &folder) {
    return path == folder || path.startsWith(folder + u'/');
}

/// The mount point that holds `path`, whether or not there is anything at `path`.
QString mountPoint(QString path) {
    while (!QFileInfo::exists(path)) {
        path = QFileInfo(path).path();
    }
    return QStorageInfo(path).rootPath();
}

}  // namespace

bool isVolumeMounted(const QString &path) {
    const QString clean = QDir::cleanPath(path);
    for (const char *folder : {"/media", "/run/media", "/mnt"}) {
        if (isWithin(clean, QLatin1StringView(folder))) {
            return isWithin(mountPoint(clean), QLatin1StringView(folder));
        }
    }
    return true;
}
