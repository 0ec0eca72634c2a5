#pragma once

#include <QtCore/QString>

#include "Platform/PlatformExport.h"

/// Shows texts as they are where Qt would look for markup in them. Every text that holds a name or
/// message from outside must go through this function, into a MessageBox, or into a label whose
/// text format is Qt::PlainText: rich text reads every file that an image in it names. Must be used
/// on the main thread.
namespace PlainText {

/// Returns a tool tip that shows `text` as it is, including its line breaks.
PLATFORM_EXPORT QString toolTip(const QString &text);

}  // namespace PlainText
