#pragma once

#include <QtCore/QString>

#include "Platform/PlatformExport.h"

/// Operations on paths as text, whose components are separated by "/". None of them accesses the
/// file system. Thread-safe.
namespace PathComponents {

/// Returns the last component, ignoring slashes at the end of `path`: "b" for "/a/b/", "/" for "/",
/// and an empty text for an empty path.
PLATFORM_EXPORT QString last(const QString &path);
/// Returns `path` without its last component and the slashes before that: "/" for "/a", and an
/// empty text for "a".
PLATFORM_EXPORT QString withoutLast(const QString &path);
/// Returns `path` without the extension of its last component, which is the text from the last dot
/// on. A dot at the beginning or end of the component does not count: ".a" and "a." are unchanged.
/// Slashes at the end of `path` are removed as well.
PLATFORM_EXPORT QString withoutExtension(const QString &path);
/// Returns `path` and `component` joined by a slash. A slash that ends `path` and one that starts
/// `component` are not repeated; further ones are kept. If one of them is empty, returns the other.
/// `component` may consist of several.
PLATFORM_EXPORT QString appending(const QString &path, const QString &component);
/// Returns `path` without slashes at its end, followed by a dot and `extension`. An empty path
/// stays empty. `extension` is without the dot and appended even if `path` ends with it.
PLATFORM_EXPORT QString appendingExtension(const QString &path, const QString &extension);
/// Returns whether `path` is `folder` or lies in it, at any depth. Both must be absolute and clean:
/// without "." and ".." components and repeated slashes.
PLATFORM_EXPORT bool isAtOrBelow(const QString &path, const QString &folder);
/// Returns `path` with repeated slashes merged and without "." components and slashes at the end.
/// ".." components are kept, because their target is unknown in a relative path.
PLATFORM_EXPORT QString standardizingRelative(const QString &path);

}  // namespace PathComponents
