#pragma once

#include <QtCore/QSet>
#include <QtCore/QString>
#include <mutex>
#include <optional>

#include "Platform/Foundation/Expected.h"

class ProfileDatabase;

/// Which databases the direct-connection server serves: all except those that the user has
/// excluded. Databases are identified by the UUIDs that stores use. contain() is thread-safe; the
/// other functions must be called on the main thread and block for the profile.
class ServedDatabases {
public:
    /// `profile` is not owned. It must outlive all calls on the main thread.
    explicit ServedDatabases(const ProfileDatabase &profile) : m_profile(profile) {}

    /// Reads which databases are excluded. Must be called once, before the server is started. If it
    /// fails, nothing is served.
    Expected<void> load();
    /// Excludes the database or serves it again. Durable when the call returns, unless it returns
    /// an error, in which case it has no effect. load() must have succeeded.
    Expected<void> setServed(const QString &databaseUUID, bool isServed);
    /// Returns whether the database is served; false until load() has succeeded.
    bool contain(const QString &databaseUUID) const;

private:
    const ProfileDatabase &m_profile;
    mutable std::mutex m_mutex;
    /// Empty until it was read.
    std::optional<QSet<QString>> m_excluded;
};
