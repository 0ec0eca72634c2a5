#pragma once

#include <QtCore/QStringList>
#include <mutex>

#include "Platform/Foundation/Expected.h"

class ProfileDatabase;

/// The folders that may be accessed, stored in the profile at once. The profile's own folder always
/// may. The engine and its stores share the ownership. `permit` is thread-safe; everything else
/// must be called on the main thread while the engine exists.
class FolderGrants {
public:
    /// `profile` must outlive this.
    explicit FolderGrants(const ProfileDatabase &profile);
    FolderGrants(const FolderGrants &) = delete;
    FolderGrants &operator=(const FolderGrants &) = delete;

    /// Takes over what the profile holds.
    Expected<void> load();

    /// Whether only what is granted may be reached.
    bool areNeeded() const;
    Expected<void> setNeeded(bool areNeeded);
    /// In the order in which they were granted.
    QStringList paths() const;
    Expected<void> add(const QString &path);
    Expected<void> remove(const QString &path);

    /// Whether `realPath`, which no symbolic link and no ".." is part of, may be reached: is a
    /// granted folder or in one, or no grant is needed. A grant for a path that leads through
    /// symbolic links is one for where they lead now; one for a path where nothing is grants
    /// nothing.
    bool permit(const QString &realPath) const;

private:
    const ProfileDatabase &m_profile;
    mutable std::mutex m_mutex;
    bool m_areNeeded = false;
    QStringList m_paths;
    QString m_ownFolder;
};
