#pragma once

#include <QtCore/QStringList>
#include <mutex>

#include "Platform/Foundation/Expected.h"

class ProfileDatabase;

/// The folders that may be accessed, stored in the profile immediately. The profile's own folder is
/// always permitted. Shared ownership by the engine and its stores. permit() is thread-safe; all
/// other functions must be called on the main thread while the engine exists. Those that write
/// block for the disk and then read everything again, as load() does.
class FolderGrants {
public:
    /// `profile` is not owned; see above. Until load() is called, everything is permitted.
    explicit FolderGrants(const ProfileDatabase &profile);
    FolderGrants(const FolderGrants &) = delete;
    FolderGrants &operator=(const FolderGrants &) = delete;

    /// Reads the grants and the setting from the profile. If it fails, nothing but the profile's
    /// own folder is permitted until it succeeds.
    Expected<void> load();

    /// Returns whether only granted folders may be accessed, as it was last read.
    bool areNeeded() const;
    /// Stores the setting in the profile.
    Expected<void> setNeeded(bool areNeeded);
    /// Returns the granted paths in the order in which they were granted.
    QStringList paths() const;
    /// Grants access to `path`, which must be absolute, and everything below it. Succeeds if it is
    /// granted already. The path need not exist, and is stored as it is.
    Expected<void> add(const QString &path);
    /// Withdraws the grant of exactly this path. Succeeds if there is none.
    Expected<void> remove(const QString &path);

    /// Returns whether `realPath`, which must contain no symbolic link and no "..", may be
    /// accessed: if it is a granted folder or below one, or if no grants are needed. A granted path
    /// with symbolic links grants what they refer to at the time of this call; a granted path that
    /// does not exist grants nothing. Blocks for file system access.
    bool permit(const QString &realPath) const;

private:
    const ProfileDatabase &m_profile;
    mutable std::mutex m_mutex;
    bool m_areNeeded = false;
    QStringList m_paths;
    QString m_ownFolder;
};
