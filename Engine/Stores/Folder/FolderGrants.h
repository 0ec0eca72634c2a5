#pragma once

#include <QtCore/QStringList>
#include <mutex>

#include "Platform/Foundation/Expected.h"

class ProfileDatabase;

/// Which folders may be reached, kept in the profile at once. The profile's own folder always may.
/// The engine owns the only one; the static function answers for it. Main thread but for that.
class FolderGrants {
public:
    /// `profile` must outlive this.
    explicit FolderGrants(const ProfileDatabase &profile);
    ~FolderGrants();
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
    /// nothing. True where there is no engine. Any thread.
    static bool permit(const QString &realPath);

private:
    const ProfileDatabase &m_profile;
    bool m_areNeeded = false;
    QStringList m_paths;
    QString m_ownFolder;

    static std::mutex s_mutex;
    static FolderGrants *s_current;
};
