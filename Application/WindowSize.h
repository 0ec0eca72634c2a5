#pragma once

#include <QtCore/QSize>

class QWidget;

namespace WindowSize {

/// Returns the size of a window with room for `columns` average characters and `lines` lines in the
/// font of `widget`, but not more than most of its screen. Must be called on the main thread.
QSize of(const QWidget &widget, int columns, int lines);

}  // namespace WindowSize
