#pragma once

#include <QtGui/QIcon>
#include <functional>

#include "Platform/Foundation/Error.h"
#include "Platform/PlatformExport.h"

/// Services of the desktop for files. Must be called on the main thread.
namespace Workspace {

/// Receives an error for the user.
using FailureHandler = std::function<void(const Error &error)>;

/// Returns the icon theme's icon for files with `extension` (without the point), or `fallback` if
/// the type is unknown or the theme has no icon for it. Reads no file.
PLATFORM_EXPORT QIcon iconForFileType(const QString &extension, const QIcon &fallback);

/// Returns the icon of the file or folder at `path`, or of a plain file if nothing exists there.
/// Reads the file's metadata, so it may block on a slow volume.
PLATFORM_EXPORT QIcon iconForFile(const QString &path);

/// Shows the file in the desktop's file manager, selected in its folder
/// (https://www.freedesktop.org/wiki/Specifications/file-manager-interface). If no file manager
/// implements this, opens the folder that contains the file in the user's program for folders.
/// Asynchronous: returns at once, also if the volume does not respond. If nothing exists at `path`
/// or no program can be started, `failed`, which may be empty, is called later, on the main thread,
/// with an error for the user; not if the system cannot start a thread. `path` must be absolute.
PLATFORM_EXPORT void selectFile(const QString &path, const FailureHandler &failed = {});

}  // namespace Workspace
