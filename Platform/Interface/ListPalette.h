#pragma once

#include <QtGui/QPalette>

#include "Platform/PlatformExport.h"

/// Palettes for the contents of lists. Lists are white with rows in the selection color under every
/// theme, so their text must not use the theme's colors. Each function follows the application's
/// current palette. Must be used on the main thread, while a QGuiApplication exists.
namespace ListPalette {

/// Returns dark on white, with the application's selection colors. Returns copies of the same
/// palette until the application's changes, so Qt can compare them in O(1).
PLATFORM_EXPORT QPalette normal();
/// Returns the selection's text color on the selection color. Buttons keep their light faces.
PLATFORM_EXPORT QPalette selected();
/// Returns the color of the selection in an active window. Lists show it in inactive windows as
/// well.
PLATFORM_EXPORT QColor alternateSelectedControlColor();

}  // namespace ListPalette
