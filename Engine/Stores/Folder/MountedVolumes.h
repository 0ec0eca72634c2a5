#pragma once

#include <QtCore/QStringList>
#include <functional>

#include "Platform/Foundation/Expected.h"

/// Finds out whether folders are on mounted volumes. Thread-safe.
namespace MountedVolumes {

/// Returns the absolute paths at which volumes are mounted now, as the kernel lists them. Does not
/// block, even if a volume does not respond. Fails if /proc is not available or cannot be
/// read.
Expected<QStringList> mountPoints();

/// Returns whether the volume that should contain `path` is mounted. Below the folders in which
/// removable and network volumes are usually mounted (Filesystem Hierarchy Standard 3.0: "/media",
/// "/mnt" and "/run/media"), only a mounted volume counts, since a folder there may be left over
/// from a volume that was removed. Every other path is on a volume of the system. `mountPoints` is
/// called only if needed; its error is returned. `path` need not exist; "." and ".." in it are
/// resolved as text.
Expected<bool> contain(const QString &path,
                       const std::function<Expected<QStringList>()> &mountPoints);

}  // namespace MountedVolumes
