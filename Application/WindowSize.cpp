#include "Application/WindowSize.h"

#include <QtGui/QScreen>
#include <QtWidgets/QWidget>

QSize WindowSize::of(const QWidget &widget, int columns, int lines) {
    return atLeast({}, widget, columns, lines);
}

QSize WindowSize::atLeast(const QSize &smallest, const QWidget &widget, int columns, int lines) {
    const QFontMetrics font = widget.fontMetrics();
    const QSize size(columns * font.averageCharWidth(), lines * font.lineSpacing());
    return size.expandedTo(smallest).boundedTo(widget.screen()->availableSize() * 9 / 10);
}
