#include "Engine/Profile/FullDisk.h"

#include <QtCore/QFileInfo>
#include <QtCore/QStorageInfo>

#include "Engine/Profile/SqliteCode.h"
#include "Host/SyncStrings.h"

namespace {

constexpr qint64 LittleSpace = 1LL << 20;

}  // namespace

bool FullDisk::isFull(const QString &path) {
    const QStorageInfo disk(QFileInfo(path).path());
    return disk.isValid() && disk.bytesAvailable() < LittleSpace;
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
