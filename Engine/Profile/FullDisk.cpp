#include "Engine/Profile/FullDisk.h"

#include <QtCore/QFileInfo>
#include <QtCore/QStorageInfo>

#include "Engine/Profile/SqliteCode.h"
#include "Host/SyncStrings.h"

namespace {

constexpr qint64 LittleSpace = 1LL << 20;

}  // namespace

std::optional<qint64> FullDisk::freeBytes(const QString &path) {
    const QStorageInfo disk(path);
    // Some file systems state that they have no size at all.
    const bool isKnown = disk.isValid() && disk.bytesTotal() > 0 && disk.bytesAvailable() >= 0;
    return isKnown ? std::optional(disk.bytesAvailable()) : std::nullopt;
}

bool FullDisk::isFull(const QString &path) {
    const std::optional<qint64> free = freeBytes(QFileInfo(path).path());
    return free && *free < LittleSpace;
}

bool FullDisk::isCauseOf(const QSqlError &error, const QString &path) {
    const SqliteCode code = sqliteCode(error);
    const bool mayBeFull = code == SqliteCode::InputOutputError || code == SqliteCode::CannotOpen;
    return code == SqliteCode::Full || (mayBeFull && isFull(path));
}

QString FullDisk::message(const QString &path) {
    return localizedSyncString(
               "There is no space left on the disk with the profile “%1”. Delete files that you no "
               "longer need, then try again.")
        .arg(path);
}
