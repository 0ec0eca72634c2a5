#pragma once

#include <QtCore/QString>

#include "Platform/PlatformExport.h"

class QMessageBox;

/// Shows texts as they are where Qt would look for markup in them. Every text that holds a name or
/// message from outside must go through one of these functions, or into a label whose text format
/// is Qt::PlainText: rich text reads every file that an image in it names. Must be used on the main
/// thread.
namespace PlainText {

/// Returns a tool tip that shows `text` as it is, including its line breaks.
PLATFORM_EXPORT QString toolTip(const QString &text);

/// Sets both texts of `box`, neither of which is read as markup. `informativeText` may be empty.
/// `box` must not be null. Call it once, before the box is shown.
PLATFORM_EXPORT void setTexts(QMessageBox *box, const QString &text,
                              const QString &informativeText);

}  // namespace PlainText
