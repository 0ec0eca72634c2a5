#pragma once

#include <QtCore/QString>

/// Whether the volume that holds `path` is mounted. Below the folders where removable and network
/// volumes appear (Filesystem Hierarchy Standard 3.0, /media and /mnt; udisks, /run/media) a path
/// without a mount point of its own there is on a volume that is not; any other path is on one that
/// is always there.
bool isVolumeMounted(const QString &path);
