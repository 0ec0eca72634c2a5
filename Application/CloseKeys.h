#pragma once

class QWidget;

/// The keys that close a window in which nothing can be lost.
namespace CloseKeys {

/// Lets Escape and the desktop's key for closing (Ctrl+W) close `window` while it is active. Must
/// be called on the main thread.
void add(QWidget &window);

}  // namespace CloseKeys
