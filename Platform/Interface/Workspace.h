#pragma once

#include <QtCore/QUrl>
#include <QtGui/QIcon>

#include "Platform/PlatformExport.h"

/// What the desktop knows of files. Main thread.
namespace Workspace {

/// The icon of files with that extension, as the icon theme has it; `fallback` where it has none.
PLATFORM_EXPORT QIcon iconForFileType(const QString &extension, const QIcon &fallback);

/// The icon of what is at `path`, or of a plain file where nothing is.
PLATFORM_EXPORT QIcon iconForFile(const QString &path);

/// Shows the file in the desktop's file manager, selected in the folder that holds it, as
/// https://www.freedesktop.org/wiki/Specifications/file-manager-interface has it. Returns at once;
/// where no file manager answers, nothing is shown.
PLATFORM_EXPORT void selectFile(const QString &path);

/// Opens `URL` in the program that the person has for it, for "http" and "https" their browser.
/// False where there is none. A program may take over a scheme (QDesktopServices::setUrlHandler).
PLATFORM_EXPORT bool openURL(const QUrl &URL);

}  // namespace Workspace
