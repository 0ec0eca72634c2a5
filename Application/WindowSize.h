#pragma once

#include <QtCore/QSize>

class QWidget;

namespace WindowSize {

/// Returns the size of a window with room for `columns` average characters and `lines` lines in the
/// font of `widget`, but at most 90 % of the free area of the screen that it is on, in each
/// direction. A widget that was not shown yet counts as being on its parent's screen, or else the
/// primary one. Must be called on the main thread.
QSize of(const QWidget &widget, int columns, int lines);
/// Returns that size, but at least `smallest` if the screen has room for it.
QSize atLeast(const QSize &smallest, const QWidget &widget, int columns, int lines);

}  // namespace WindowSize
