#pragma once

#include "Platform/PlatformExport.h"

class QWidget;

/// Letters that, with Alt, press a button or move the focus to the field of a label, and, without
/// it, choose an item of an open menu. Must be used on the main thread.
namespace Mnemonics {

/// Gives each button and each label with a buddy in `window` that has none a letter of its text
/// that no other has in this window, short texts first; marks of translators are kept. Japanese
/// letters, which no single key types, and Arabic ones, which a mark would separate from the
/// letters that they are joined to, are not used: texts that have no others get a free letter from
/// A to Z in brackets, unless they are sentences. Left out are tool buttons, what is inside scroll
/// areas that take the focus, and texts without a free letter. The items of each menu in `window`
/// get letters in the same way that no other item of that menu has; their icon texts stay as they
/// are. Idempotent.
PLATFORM_EXPORT void assign(QWidget &window);

}  // namespace Mnemonics
