#pragma once

#include <QtCore/QString>

#include "Platform/Foundation/Expected.h"

/// The right of one process to use a profile folder: a lock on the file "profile.lock" in it, which
/// the kernel releases when the process ends, also if it crashes. Works across processes and
/// between objects of one process. May be used on any thread, by one at a time.
class ProfileLock {
public:
    /// The name of the lock file. It stays in the folder; only the lock counts.
    static inline const QString FileName = QStringLiteral("profile.lock");

    ProfileLock() = default;
    /// Releases the lock.
    ~ProfileLock();
    ProfileLock(const ProfileLock &) = delete;
    ProfileLock &operator=(const ProfileLock &) = delete;

    /// Locks the existing folder `directory`, without waiting. Fails with the code ProfileInUse if
    /// the folder is locked, and with ProfileUnusable if the lock file cannot be opened. Must not
    /// be called while the lock is held. Works on network file systems as far as they support locks
    /// (fcntl(2), open file description locks); otherwise it fails.
    Expected<void> acquire(const QString &directory);
    /// Releases the lock; does nothing if it is not held.
    void release();
    /// Removes the lock file if acquire() has created it, then releases the lock. For a folder in
    /// which no profile could be made. Has no effect if the lock is not held.
    void undo();

    /// Returns whether this object holds the lock.
    bool isHeld() const { return m_file >= 0; }

private:
    Expected<bool> tryAcquire();

    QString m_path;
    int m_file = -1;
    bool m_hasCreatedFile = false;
};
