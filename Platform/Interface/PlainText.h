#pragma once

#include <QtCore/QString>

#include "Platform/PlatformExport.h"

class QLabel;

/// Shows texts as they are where Qt would look for markup in them, and only as much of them as Qt
/// can lay out without a stall. Every text that holds a name or message from outside must go
/// through these functions or into a MessageBox, and into a label only if its text format is
/// Qt::PlainText: rich text reads every file that an image in it names. One-way bindings of forms
/// and tables use message(). Must be used on the main thread.
namespace PlainText {

/// Maximum number of characters of a message or tool tip.
inline constexpr qsizetype LongestMessage = 4000;
/// Maximum number of characters of a line of a page, and of its lines.
inline constexpr qsizetype LongestLine = 20'000;
inline constexpr qsizetype MostLines = 200'000;

/// Returns `text`; if it is longer than a message, its beginning and an ellipsis.
PLATFORM_EXPORT QString message(const QString &text);
/// Returns a tool tip that shows `text` as it is, including its line breaks, as a message.
PLATFORM_EXPORT QString toolTip(const QString &text);
/// Returns `text` for a text view. An ellipsis stands for what exceeds the limits of a page. O(n).
PLATFORM_EXPORT QString page(const QString &text);
/// Returns a new label that wraps lines and shows all texts as they are, first `text` as a message.
/// It may be made narrower than a word. The caller owns it, and must shorten later texts.
PLATFORM_EXPORT QLabel *label(const QString &text = {});

}  // namespace PlainText
