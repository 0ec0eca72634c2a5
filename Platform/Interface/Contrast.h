#pragma once

#include <QtGui/QColor>

#include "Platform/PlatformExport.h"

class QPalette;

/// The contrast of colors as the Web Content Accessibility Guidelines 2.1 define it: from 1 (equal)
/// to 21 (black on white). Thread-safe.
namespace Contrast {

/// What texts, and the outlines of controls, need at least.
constexpr double OfText = 4.5;
constexpr double OfOutline = 3;

/// Returns the ratio of two opaque colors.
PLATFORM_EXPORT double ratio(const QColor &one, const QColor &other);
/// Returns the opaque color that results from painting `color` on `ground`, which is opaque.
PLATFORM_EXPORT QColor blended(const QColor &color, const QColor &ground);
/// Returns `color`, less transparent if it needs that for the contrast `minimum` on `ground`;
/// opaque if even that is not enough.
PLATFORM_EXPORT QColor legible(const QColor &color, const QColor &ground, double minimum = OfText);
/// Returns a subdued opaque color between those of window and window text for the outline of a
/// control.
PLATFORM_EXPORT QColor outline(const QPalette &palette);
/// Returns the color of the selection, lighter or darker if it needs that to be seen on the window,
/// for the outline of the control with the focus.
PLATFORM_EXPORT QColor focus(const QPalette &palette);
/// Returns `palette` with a selection, a placeholder and disabled controls whose texts are legible,
/// if they are not: the color of the selection then moves away from that of its text, and that of a
/// disabled text towards that of an enabled one.
PLATFORM_EXPORT QPalette withLegibleTexts(const QPalette &palette);

}  // namespace Contrast
