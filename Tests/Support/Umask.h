#pragma once

#include <sys/stat.h>

#include <QtCore/QFile>

/// Sets the umask of the process while it exists.
class Umask {
public:
    explicit Umask(mode_t mask) : m_before(umask(mask)) {}
    ~Umask() { umask(m_before); }
    Umask(const Umask &) = delete;
    Umask &operator=(const Umask &) = delete;

private:
    const mode_t m_before;
};

/// The permissions of the file or folder `path`; not those of a link's target.
inline unsigned permissionsOf(const QString &path) {
    struct stat status = {};
    constexpr unsigned permissions = S_IRWXU | S_IRWXG | S_IRWXO;
    return lstat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & permissions
                                                                    : ~0U;
}
