#pragma once

#include <QtCore/QStringList>
#include <functional>

/// Which folders lie on a volume that is there.
namespace MountedVolumes {

/// Where volumes are mounted now, as absolute paths. Any thread.
QStringList mountPoints();

/// Whether the volume that holds `path` is mounted; `mountPoints` is asked only where it matters,
/// since looking at every volume can take its time. Below the folders
/// where removable and network volumes are mounted by custom (Filesystem Hierarchy Standard 3.0,
/// "/media", "/mnt" and "/run/media") nothing but a mounted volume counts: what else lies there is
/// the folder that an absent volume left behind. Every other path is on the system's own volumes.
bool contain(const QString &path, const std::function<QStringList()> &mountPoints);

}  // namespace MountedVolumes
