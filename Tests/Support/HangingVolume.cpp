#include "Support/HangingVolume.h"

#include <fcntl.h>
#include <sys/mount.h>
#include <unistd.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <cerrno>
#include <cstring>
#include <stdexcept>

namespace {

int openConnection() {
    return open("/dev/fuse", O_RDWR | O_CLOEXEC);
}

}  // namespace

HangingVolume::HangingVolume(const QString &path)
    : m_path(QFile::encodeName(path)), m_connection(openConnection()) {
    QDir().mkpath(path);
    const QByteArray options = "fd=" + QByteArray::number(m_connection) +
                               ",rootmode=40000,user_id=" + QByteArray::number(getuid()) +
                               ",group_id=" + QByteArray::number(getgid());
    if (mount("hanging", m_path.constData(), "fuse", MS_NOSUID | MS_NODEV, options.constData()) !=
        0) {
        throw std::runtime_error(std::string("This test cannot mount a volume: ") +
                                 std::strerror(errno));
    }
}

HangingVolume::~HangingVolume() {
    // Ends every access that hangs, with an error.
    close(m_connection);
    umount2(m_path.constData(), MNT_DETACH);
}

bool HangingVolume::isAvailable() {
    const int connection = openConnection();
    if (connection < 0) {
        return false;
    }
    close(connection);
    return true;
}
