#pragma once

#include <QtCore/QString>

class QWidget;

/// The places, sizes and splitters of windows, and what is selected in them, from one start to the
/// next, in the user's settings. A failure to read or write them is logged. Must be used on the
/// main thread.
namespace WindowMemory {

/// Moves `window`, which must not be shown yet, to where the window `name` was, as far as that is
/// on a screen, and restores its splitters. Has no effect if nothing is saved for it, or for
/// another arrangement of the window or screen.
void restore(QWidget &window, const QString &name);
void save(const QWidget &window, const QString &name);

/// Returns a text that was saved; empty if there is none.
QString text(const QString &name);
void saveText(const QString &name, const QString &text);

}  // namespace WindowMemory
