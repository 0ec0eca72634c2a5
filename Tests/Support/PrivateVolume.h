#pragma once

#include <QtCore/QString>

/// Gives this process and those that it starts private mounts, which disappear with them. Must be
/// called while the process has one thread. Exits the process with CannotRunExitCode if the system
/// does not allow it.
void enterPrivateMounts();

/// A small volume that is mounted while the object exists, in a process with private mounts.
/// Failures raise std::runtime_error.
class PrivateVolume {
public:
    /// Mounts an empty volume of this size over the folder `path`, which is created if it does not
    /// exist.
    PrivateVolume(const QString &path, qint64 bytes);
    ~PrivateVolume();
    PrivateVolume(const PrivateVolume &) = delete;
    PrivateVolume &operator=(const PrivateVolume &) = delete;

    void makeReadOnly();
    /// Fills the volume with the file "filler".
    void fill();

private:
    const QByteArray m_path;
};
