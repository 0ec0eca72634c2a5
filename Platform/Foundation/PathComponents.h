#pragma once

#include <QtCore/QString>

#include "Platform/PlatformExport.h"

/// Paths as texts of components between "/". Nothing here looks at the file system. Any thread.
namespace PathComponents {

/// The text behind the last "/", one at the end of the path aside.
PLATFORM_EXPORT QString last(const QString &path);
/// What stands before the last component: "/" for "/a", empty for "a".
PLATFORM_EXPORT QString withoutLast(const QString &path);
/// Without the last point and what follows it in the last component, unless there is nothing before
/// or behind the point.
PLATFORM_EXPORT QString withoutExtension(const QString &path);
/// `path`, "/", and `component`, without a "/" too many; an empty one of them adds nothing.
PLATFORM_EXPORT QString appending(const QString &path, const QString &component);
/// `path` without "/" at its end, ".", and `extension`; an empty path stays empty.
PLATFORM_EXPORT QString appendingExtension(const QString &path, const QString &extension);
/// Makes several "/" one, and drops segments "." and a "/" at the end. Segments ".." stay: what
/// they lead to is not known of a relative path.
PLATFORM_EXPORT QString standardizingRelative(const QString &path);

}  // namespace PathComponents
