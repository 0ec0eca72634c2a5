#pragma once

#include <atomic>

#include "Engine/Profile/ReadOnlyConnection.h"

class ProfileDatabase;

/// Lets a worker thread read an open profile: while this object exists, all functions of that
/// ProfileDatabase that read use a connection of this object on the thread that has created it.
/// They show the state at the first read, regardless of later changes, so that several reads fit
/// together. Functions that write fail. There must be at most one at a time for each thread, on
/// which it must also be destroyed.
///
/// The reader of a thread is found by the thread, and is no argument of the reading functions,
/// because the same code reads notes on the main thread without a reader.
class ProfileReader {
public:
    /// Makes `profile`, whose database file is `path`, readable on this thread. `profile` and
    /// `isCancelled` are not owned and must outlive the result, which is not null. Blocks for the
    /// disk. Reads fail with the code Cancelled once `isCancelled` is set. Errors are those of
    /// ReadOnlyConnection.
    static Expected<std::unique_ptr<const ProfileReader>> open(const ProfileDatabase &profile,
                                                               const QString &path,
                                                               const std::atomic_bool &isCancelled);
    /// Ends the state: from now on, the thread cannot read the profile.
    ~ProfileReader();
    ProfileReader(const ProfileReader &) = delete;
    ProfileReader &operator=(const ProfileReader &) = delete;

    /// Returns the reader of `profile` on the current thread, or null.
    static const ProfileReader *current(const ProfileDatabase &profile);
    /// Returns whether reads fail from now on.
    bool isCancelled() const { return m_isCancelled; }

private:
    friend class ProfileDatabase;

    ProfileReader(const ProfileDatabase &profile, const std::atomic_bool &isCancelled,
                  std::unique_ptr<const ReadOnlyConnection> connection);
    /// Returns a query on the connection of this object, which must be destroyed before this
    /// object. The profile reports its errors.
    QSqlQuery query() const { return m_connection->query(); }

    const ProfileDatabase &m_profile;
    const std::atomic_bool &m_isCancelled;
    const std::unique_ptr<const ReadOnlyConnection> m_connection;
};
