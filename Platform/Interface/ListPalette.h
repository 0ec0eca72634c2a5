#pragma once

#include <QtGui/QPalette>

#include "Platform/PlatformExport.h"

/// The colours in lists, which paint white and the selection colour whatever the theme: what stands
/// in them must be legible there, under a dark theme too.
namespace ListPalette {

/// Dark on white, with the application's selection colours.
PLATFORM_EXPORT QPalette normal();
/// The selection's text colour on the selection colour. Buttons keep their own light faces.
PLATFORM_EXPORT QPalette selected();
/// The colour of the selection.
PLATFORM_EXPORT QColor alternateSelectedControlColor();

}  // namespace ListPalette
