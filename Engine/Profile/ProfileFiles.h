#pragma once

#include <QtCore/QHash>

#include "Platform/Foundation/Expected.h"
#include "Platform/Foundation/FileIdentity.h"

/// Which files a profile consists of while it is open. A value; check() is thread-safe.
class ProfileFiles {
public:
    /// Adds what `path` names now. Has no effect if there is nothing. Fails with the error of
    /// FileIdentity::of(). Blocks for the file system.
    Expected<void> add(const QString &path);
    void clear() { m_identities.clear(); }

    /// Returns an error with the code ProfileNotWritten if a file was moved, deleted or replaced
    /// since it was added, or cannot be reached. Blocks for the file system. A file that is
    /// replaced right after it was looked at is not noticed, so what follows must not rely on it
    /// alone.
    Expected<void> check() const;

private:
    /// By path.
    QHash<QString, FileIdentity> m_identities;
};
