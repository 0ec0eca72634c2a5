#pragma once

#include <QtCore/QString>

/// Gives this process and those that it starts private mounts, which disappear with them. Must be
/// called while the process has one thread. Exits the process with CannotRunExitCode if the system
/// does not allow it.
void enterPrivateMounts();

/// A small volume, mounted until it goes; for a process with mounts of its own. What fails raises
/// std::runtime_error.
class PrivateVolume {
public:
    /// Mounts an empty volume of so many bytes over the folder `path`, made where it is not there.
    PrivateVolume(const QString &path, qint64 bytes);
    ~PrivateVolume();
    PrivateVolume(const PrivateVolume &) = delete;
    PrivateVolume &operator=(const PrivateVolume &) = delete;

    void makeReadOnly();

private:
    const QByteArray m_path;
};
