#pragma once

#include <QtCore/QString>
#include <optional>

#include "Platform/Foundation/Expected.h"
#include "Platform/PlatformExport.h"

/// Which file a path names, regardless of its contents. A value; thread-safe.
///
/// As long as a file is open, no other file of the same disk gets an equal identity.
struct PLATFORM_EXPORT FileIdentity {
    quint64 device = 0;
    quint64 number = 0;

    bool operator==(const FileIdentity &) const = default;

    /// Returns the identity of what `path` names now, or std::nullopt if there is nothing. Follows
    /// symbolic links. Fails with the error of the system, see SystemErrorDomain, if that cannot be
    /// determined, for example because a folder above cannot be searched. Blocks for the file
    /// system.
    static Expected<std::optional<FileIdentity>> of(const QString &path);
};
