#include "Engine/Profile/FullDisk.h"

#include <QtCore/QFileInfo>
#include <QtCore/QStorageInfo>
#include <QtSql/QSqlError>

#include "Host/SyncStrings.h"

namespace {

/// SQLITE_FULL, SQLITE_IOERR and SQLITE_CANTOPEN.
constexpr int Full = 13;
constexpr int InputOutputError = 10;
constexpr int CannotOpen = 14;
constexpr qint64 LittleSpace = 1LL << 20;

}  // namespace

bool FullDisk::isFull(const QString &path) {
    const QStorageInfo disk(QFileInfo(path).path());
    return disk.isValid() && disk.bytesAvailable() < LittleSpace;
}

bool FullDisk::isCauseOf(const QSqlError &error, const QString &path) {
    constexpr int primaryCodes = 0xFF;
    const int code = error.nativeErrorCode().toInt() & primaryCodes;
    return code == Full || ((code == InputOutputError || code == CannotOpen) && isFull(path));
}

QString FullDisk::message(const QString &path) {
    return localizedSyncString(
               "There is no space left on the disk with the profile “%1”. Delete files that you no "
               "longer need, then try again.")
        .arg(path);
}
