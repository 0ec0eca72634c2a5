#pragma once

#include <atomic>

#include "Engine/Profile/ReadOnlyConnection.h"

class ProfileDatabase;

/// Lets a worker thread read an open profile: while this object exists, all functions of that
/// ProfileDatabase that read use a connection of this object on the thread that has created it.
/// They show the state at the first read, regardless of later changes. Functions that write fail.
/// There must be at most one at a time for each thread.
class ProfileReader {
public:
    /// Neither argument is owned; both must outlive this object. Blocks for the disk. If the
    /// connection cannot be opened, every read fails; so do reads once `isCancelled` is set.
    ProfileReader(const ProfileDatabase &profile, const std::atomic_bool &isCancelled);
    ~ProfileReader();
    ProfileReader(const ProfileReader &) = delete;
    ProfileReader &operator=(const ProfileReader &) = delete;

    /// Returns the reader of `profile` on the current thread, or null.
    static const ProfileReader *current(const ProfileDatabase &profile);
    /// Returns a query on the connection of this object.
    QSqlQuery query() const { return m_connection.query(); }
    bool isCancelled() const { return m_isCancelled; }

private:
    const ProfileDatabase &m_profile;
    const std::atomic_bool &m_isCancelled;
    const ReadOnlyConnection m_connection;
};
