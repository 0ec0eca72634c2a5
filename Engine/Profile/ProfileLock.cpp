#include "Engine/Profile/ProfileLock.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <cerrno>
#include <cstring>
#include <utility>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Profile/FullDisk.h"
#include "Engine/Profile/ProfilePermissions.h"
#include "Host/SyncStrings.h"

namespace {

/// Whether `path` still names the open file `file`, which another process may have removed.
bool isAt(const QByteArray &path, int file) {
    struct stat here {};
    struct stat there {};
    return fstat(file, &here) == 0 && stat(path.constData(), &there) == 0 &&
           here.st_ino == there.st_ino && here.st_dev == there.st_dev;
}

Error openError(const QString &path, int number) {
    const QString folder = QFileInfo(path).path();
    if (number == EACCES || number == EROFS) {
        return ProfilePermissions::readOnly(folder);
    }
    if (number == ENOSPC || number == EDQUOT) {
        return engineError(EngineErrorCode::ProfileUnusable, FullDisk::message(folder));
    }
    return engineError(EngineErrorCode::ProfileUnusable,
                       localizedSyncString("The profile folder “%1” cannot be locked: %2. Check "
                                           "its disk and its permissions, then try again.")
                           .arg(folder, QString::fromLocal8Bit(std::strerror(number))));
}

}  // namespace

ProfileLock::~ProfileLock() {
    release();
}

Expected<void> ProfileLock::acquire(const QString &directory) {
    m_path = directory + u'/' + FileName;
    for (;;) {
        const Expected<bool> acquired = tryAcquire();
        if (!acquired) {
            release();
            return failure(acquired.error());
        }
        if (*acquired) {
            return {};
        }
        // The file was removed between opening and locking it.
        release();
    }
}

Expected<bool> ProfileLock::tryAcquire() {
    const QByteArray path = QFile::encodeName(m_path);
    constexpr int flags = O_RDWR | O_CLOEXEC | O_NOFOLLOW;
    constexpr mode_t ownerOnly = S_IRUSR | S_IWUSR;
    m_file = open(path.constData(), flags | O_CREAT | O_EXCL, ownerOnly);
    m_hasCreatedFile = m_file >= 0;
    if (m_file < 0 && errno == EEXIST) {
        m_file = open(path.constData(), flags | O_CREAT, ownerOnly);
    }
    if (m_file < 0) {
        return failure(openError(m_path, errno));
    }
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    if (fcntl(m_file, F_OFD_SETLK, &lock) == 0) {
        return isAt(path, m_file);
    }
    if (errno == EAGAIN || errno == EACCES) {
        return failure(
            engineError(EngineErrorCode::ProfileInUse,
                        "The profile “%1” is in use by another Velmora. Quit it and try again.",
                        QFileInfo(m_path).path()));
    }
    return failure(openError(m_path, errno));
}

void ProfileLock::release() {
    if (m_file >= 0) {
        close(std::exchange(m_file, -1));
    }
}

void ProfileLock::undo() {
    if (m_hasCreatedFile && isHeld()) {
        QFile::remove(m_path);
    }
    release();
}
