#pragma once

#include "Platform/PlatformExport.h"

class QMenu;
class QWidget;

/// The menu that a secondary click or the menu key opens on a view. The view does not own it; it
/// may go first.
namespace ContextMenu {

/// nullptr where there is none.
PLATFORM_EXPORT QMenu *menu(const QWidget *view);
/// nullptr takes the menu away.
PLATFORM_EXPORT void setMenu(QWidget *view, QMenu *menu);

}  // namespace ContextMenu
