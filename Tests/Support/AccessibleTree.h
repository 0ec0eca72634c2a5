#pragma once

#include <QtCore/QStringList>

class QWidget;

/// What prevents a user without a mouse or a screen from using a window. Must be used on the main
/// thread.
namespace AccessibleTree {

/// Returns a line for each control in the accessible tree of `window`, which must be shown and
/// active, that has no name or one without its visible text, that has the same name and description
/// as another one, that Tab does not reach, or reaches after one that is read later, or whose
/// mnemonic presses another one as well; for each item of a menu without a letter of its own; for
/// each row of a list of the pane or its sheets without a description or the action of the button
/// that removes it; if that button does not name the selected row; and if the window itself is none
/// to assistive technologies. Moves the focus.
QStringList problems(QWidget &window);

}  // namespace AccessibleTree
