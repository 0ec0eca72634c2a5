#pragma once

#include "Platform/PlatformExport.h"

class QWidget;

/// Letters that, with Alt, press a button or move the focus to the field of a label. Must be used
/// on the main thread.
namespace Mnemonics {

/// Gives each button and each label with a buddy in `window` that has none a letter of its text
/// that is free in this window, short texts first; marks of translators are kept. Left out are tool
/// buttons, what is inside scroll areas, and texts without a free letter. Idempotent.
PLATFORM_EXPORT void assign(QWidget &window);

}  // namespace Mnemonics
