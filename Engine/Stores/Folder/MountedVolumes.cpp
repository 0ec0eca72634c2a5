#include "Engine/Stores/Folder/MountedVolumes.h"

#include <QtCore/QDir>
#include <QtCore/QStorageInfo>

#include "Platform/Foundation/PathComponents.h"

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
        if (cleanPath != base && PathComponents::isAtOrBelow(cleanPath, base)) {
            const QStringList points = mountPoints();
            return std::any_of(points.begin(), points.end(), [&](const QString &point) {
                return PathComponents::isAtOrBelow(point, base) &&
                       PathComponents::isAtOrBelow(cleanPath, point);
            });
        }
    }
    return true;
}
