#pragma once

#include <QtCore/QString>
#include <QtCore/QVariant>

#include "Platform/Foundation/Expected.h"
#include "Platform/PlatformExport.h"

/// The user's settings of this application, which are saved in a file and shared by all code of the
/// process (QSettings). Thread-safe; every function may block for the file. Each read sees what
/// other processes have written before it. If the file exists but cannot be read, the functions
/// that read return an error for the user; lines of it that are no settings are ignored. Secrets
/// must not be stored here. No change is announced. Only the user can access the file and its
/// folder, regardless of the umask; where the file system does not allow that, a warning is written
/// to the log.
namespace UserDefaults {

/// Returns the setting, or false if it is not set. Texts are converted as QVariant does: "false"
/// and "0" are false.
PLATFORM_EXPORT Expected<bool> boolForKey(const QString &key);
/// Returns the setting, or 0 if it is not set or is not a number.
PLATFORM_EXPORT Expected<int> integerForKey(const QString &key);
/// Returns the setting, or an empty text if it is not set.
PLATFORM_EXPORT Expected<QString> stringForKey(const QString &key);
/// Returns whether the setting is set.
PLATFORM_EXPORT Expected<bool> contains(const QString &key);
/// Sets the setting and writes it to the file. If that fails, returns an error for the user; the
/// setting is then in effect in this process only. The file is written before this returns.
PLATFORM_EXPORT Expected<void> setValue(const QString &key, const QVariant &value);
/// Removes the setting and writes the file, as setValue() does. Has no effect if it is not set.
PLATFORM_EXPORT Expected<void> remove(const QString &key);

}  // namespace UserDefaults
