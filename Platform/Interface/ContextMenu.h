#pragma once

#include "Platform/PlatformExport.h"

class QMenu;
class QWidget;

/// The menu that a secondary click, the menu key or Shift+F10 opens on a view, unless a child of
/// the view under the pointer handles the event. The menu is not owned, may serve several views,
/// and opens without blocking; if it is destroyed, the view has none. Must be used on the main
/// thread.
namespace ContextMenu {

/// Returns the view's menu, or null if it has none. `view` must not be null.
PLATFORM_EXPORT QMenu *menu(const QWidget *view);
/// Sets the view's menu, in place of an earlier one; null removes it. `view` must not be null.
PLATFORM_EXPORT void setMenu(QWidget *view, QMenu *menu);

}  // namespace ContextMenu
