#pragma once

#include <QtCore/QStringList>

class QWidget;

/// What users with weak sight cannot see in a window. Must be used on the main thread.
namespace ShownContrast {

/// Returns a line for each visible widget in `window` whose outline has a contrast below 3:1, and
/// each enabled one whose text has one below 4.5:1, or whose icon, picture or progress has one
/// below 3:1, to its ground, measured on the pixels of a picture. Disabled texts are measured
/// unless they label a control. `window` must be shown. The font must be at least 14 points large,
/// so that smoothed letters have pixels in their full color.
QStringList problems(QWidget &window);

}  // namespace ShownContrast
