#pragma once

#include <QtGui/QPalette>

#include "Platform/PlatformExport.h"

/// Palettes for the contents of lists: text on the application's list ground, which is white in
/// light themes, and rows in its selection color. Each function follows the application's current
/// palette. Must be used on the main thread, while a QGuiApplication exists.
namespace ListPalette {

/// Returns the application's palette with the colors of list grounds as those of windows. Returns
/// copies of the same palette until the application's changes, so Qt can compare them in O(1).
PLATFORM_EXPORT QPalette normal();
/// Returns the selection's text color on the selection color. Busy bars get a color between these
/// two, and buttons keep their faces.
PLATFORM_EXPORT QPalette selected();
/// Returns the color behind rows that are not selected.
PLATFORM_EXPORT QColor groundColor();
/// Returns the color of the selection in an active window. Lists show it in inactive windows as
/// well.
PLATFORM_EXPORT QColor alternateSelectedControlColor();

}  // namespace ListPalette
