#include "Engine/Stores/Folder/MountedVolumes.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <algorithm>

#include "Engine/Foundation/EngineError.h"
#include "Platform/Foundation/PathComponents.h"

namespace {

/// Returns the field of a line of the table with its octal escapes, such as "\040", replaced.
QString pathFrom(const QByteArray &field) {
    constexpr qsizetype escapeSize = 4;
    QByteArray bytes;
    for (qsizetype i = 0; i < field.size(); ++i) {
        bool isNumber = false;
        const uint code = field.at(i) == '\\' ? field.mid(i + 1, 3).toUInt(&isNumber, 8) : 0;
        bytes += isNumber ? static_cast<char>(code) : field.at(i);
        i += isNumber ? escapeSize - 1 : 0;
    }
    return QFile::decodeName(bytes);
}

}  // namespace

Expected<QStringList> MountedVolumes::mountPoints() {
    // Unlike QStorageInfo, the table is read without asking any file system.
    constexpr qsizetype mountPointField = 4;
    QFile table(QStringLiteral("/proc/self/mountinfo"));
    const bool isOpen = table.open(QIODevice::ReadOnly);
    const QByteArray lines = isOpen ? table.readAll() : QByteArray();
    if (!isOpen || table.error() != QFileDevice::NoError) {
        return failure(engineError(EngineErrorCode::StoreUnreachable,
                                   "The list of mounted volumes cannot be read: %1. Try again.",
                                   table.errorString()));
    }
    QStringList result;
    for (const QByteArray &line : lines.split('\n')) {
        const QByteArrayList fields = line.split(' ');
        if (fields.size() > mountPointField) {
            result.append(pathFrom(fields.at(mountPointField)));
        }
    }
    return result;
}

Expected<bool> MountedVolumes::contain(const QString &path,
                                       const std::function<Expected<QStringList>()> &mountPoints) {
    const QString cleanPath = QDir::cleanPath(path);
    for (const QString &base :
         {QStringLiteral("/media"), QStringLiteral("/run/media"), QStringLiteral("/mnt")}) {
        if (cleanPath != base && PathComponents::isAtOrBelow(cleanPath, base)) {
            return mountPoints().map([&](const QStringList &points) {
                return std::any_of(points.begin(), points.end(), [&](const QString &point) {
                    return PathComponents::isAtOrBelow(point, base) &&
                           PathComponents::isAtOrBelow(cleanPath, point);
                });
            });
        }
    }
    return true;
}
