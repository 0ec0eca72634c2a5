#include "Engine/Stores/Folder/MountedVolumes.h"

#include <QtCore/QDir>
#include <QtCore/QStorageInfo>

namespace {

bool isBelow(const QString &path, const QString &folder) {
    return path.startsWith(folder + u'/');
}

}  // namespace

QStringList MountedVolumes::mountPoints() {
    QStringList result;
    for (const QStorageInfo &volume : QStorageInfo::mountedVolumes()) {
        result.append(volume.rootPath());
    }
    return result;
}

bool MountedVolumes::contain(const QString &path, const std::function<QStringList()> &mountPoints) {
    const QString cleanPath = QDir::cleanPath(path);
    for (const QString &base :
         {QStringLiteral("/media"), QStringLiteral("/run/media"), QStringLiteral("/mnt")}) {
        if (isBelow(cleanPath, base)) {
            const QStringList points = mountPoints();
            return std::any_of(points.begin(), points.end(), [&](const QString &point) {
                const bool isVolume = point == base || isBelow(point, base);
                return isVolume && (cleanPath == point || isBelow(cleanPath, point));
            });
        }
    }
    return true;
}
