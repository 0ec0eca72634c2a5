#pragma once

#include <QtCore/QString>

/// Messages of the desktop's notification service (freedesktop.org, Desktop Notifications 1.2).
/// Must be used on the main thread.
namespace DesktopNotifier {

/// Shows a message and returns at once. Both texts may be any text and are shown as they are. Has
/// no effect if no notification service is running.
void show(const QString &title, const QString &text);

}  // namespace DesktopNotifier
