#pragma once

#include <QtCore/QString>

#include "Platform/Foundation/Expected.h"

/// Keeps other users of the computer out of a profile, regardless of the umask. Thread-safe. The
/// functions block for the time that the file system takes.
namespace ProfilePermissions {

/// Removes the permissions of the group and of other users from the folder `directory` and from the
/// files and folders directly in it. Symbolic links in it are left alone. Returns an error of the
/// code ProfileUnusable if such a permission remains, because the file system has none or because
/// another user owns the folder.
Expected<void> removeForOthers(const QString &directory);

/// Creates the file `path`, which only its owner can read and write, unless it exists. Returns an
/// error of the code ProfileUnusable if it cannot be created.
Expected<void> createFile(const QString &path);

/// Returns the error, of the code ProfileUnusable, for the profile folder `folder`, in which no
/// file can be written.
Error readOnly(const QString &folder);

}  // namespace ProfilePermissions
