#pragma once

#include <QtCore/QString>

/// A mounted volume whose file system never responds: every access to it blocks until this object
/// is destroyed. Needs a private mount namespace (see PrivateVolume.h). Throws std::runtime_error
/// if it cannot be mounted.
class HangingVolume {
public:
    /// `path` is created if it does not exist.
    explicit HangingVolume(const QString &path);
    ~HangingVolume();
    HangingVolume(const HangingVolume &) = delete;
    HangingVolume &operator=(const HangingVolume &) = delete;

    /// Returns whether this system lets the test mount such a volume.
    static bool isAvailable();

private:
    const QByteArray m_path;
    /// The file system's end of the connection to the kernel, from which nothing is read.
    int m_connection;
};
