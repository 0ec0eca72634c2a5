#include "Support/PrivateVolume.h"

#include <sched.h>
#include <sys/mount.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <cerrno>
#include <cstring>
#include <stdexcept>

#include "Support/Namespaces.h"

namespace {

void requireMounted(int result) {
    if (result != 0) {
        throw std::runtime_error(std::string("This test cannot mount a volume: ") +
                                 std::strerror(errno));
    }
}

}  // namespace

void enterPrivateMounts() {
    enterNamespaces(CLONE_NEWNS, NamespaceUser::Same);
}

PrivateVolume::PrivateVolume(const QString &path, qint64 bytes) : m_path(QFile::encodeName(path)) {
    QDir().mkpath(path);
    const QByteArray options = "mode=0755,size=" + QByteArray::number(bytes);
    requireMounted(mount("tmpfs", m_path.constData(), "tmpfs", 0, options.constData()));
}

PrivateVolume::~PrivateVolume() {
    umount2(m_path.constData(), MNT_DETACH);
}

void PrivateVolume::fill() {
    QFile file(QFile::decodeName(m_path) + QStringLiteral("/filler"));
    const QByteArray page(4096, 'x');
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        throw std::runtime_error("This test cannot fill a volume.");
    }
    while (file.write(page) == page.size()) {
    }
}

void PrivateVolume::makeReadOnly() {
    requireMounted(mount("tmpfs", m_path.constData(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr));
}
