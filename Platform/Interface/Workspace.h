#pragma once

#include <QtGui/QIcon>

#include "Platform/PlatformExport.h"

/// What the desktop knows of files. Main thread.
namespace Workspace {

/// The icon of files with that extension, as the icon theme has it; `fallback` where it has none.
PLATFORM_EXPORT QIcon iconForFileType(const QString &extension, const QIcon &fallback);

}  // namespace Workspace
