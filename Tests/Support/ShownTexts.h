#pragma once

#include <QtCore/QStringList>

class QWidget;

/// What prevents a user from reading the texts of a window. Must be used on the main thread.
namespace ShownTexts {

/// Returns a line for each visible label, button, field or heading in `window`, which must be
/// shown, that is smaller than its text, reaches beyond its parent, or overlaps another one. Texts
/// that a label shortens on purpose, with a tool tip, count as cut off, too. Of fields, this is
/// about the placeholder.
QStringList problems(const QWidget &window);

/// Gives each wrapped label in `window` that has no text a sentence of several lines, as an error
/// has, and shows all hidden widgets that have a text.
void fill(QWidget &window);

}  // namespace ShownTexts
